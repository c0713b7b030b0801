// Renamed and reordered lines, made, taken back and made again through the guarded writer.
#include <sstream>

#include "support/cases.h"
#include "support/listed.h"
#include "support/temporary_folder.h"
#include "tables/chosen_lines.h"
#include "tables/entry_rename.h"
#include "tables/line_order.h"
#include "tables/table_writer.h"

namespace zentab::tables {
namespace {

using platform::SystemFiles;
using test::BytesOf;

CurveTableEntry Named(const std::string& name) {
  return {name, {}, false, false, Instrument::None};
}

class LineEdits : public test::TemporaryFolder {
 protected:
  void List(std::string_view bytes) { listing_ = test::Listed(file_ = Write("t.dat", bytes)); }
  // Makes what a verb, the numbers of lines and a name say.
  std::error_code Run(const std::string& command) {
    std::istringstream words(command);
    std::string verb, name;
    std::vector<std::size_t> lines;
    for (words >> verb; words >> name;) {
      if (name[0] >= '0' && name[0] <= '9') lines.push_back(std::stoul(name));
    }
    if (verb == "add") return writer_.AppendEntry(file_, listing_, Named(name));
    EntryMark mark = listing_.MarkOf(lines.front());
    if (verb == "remove") return writer_.RemoveEntry(file_, listing_, mark);
    LineChange change;
    const std::error_code error =
        verb == "move"     ? MoveOf(SystemFiles(), file_, listing_, mark, lines[1], change)
        : verb == "rename" ? RenameOf(SystemFiles(), file_, listing_, mark, name, change)
        : verb == "copy"   ? CopiesOf(SystemFiles(), file_, listing_, lines, change, copies_)
                           : RemovalOf(SystemFiles(), file_, listing_, lines, change);
    EXPECT_TRUE(verb != "copy" || error || copies_.size() == lines.size());
    return error || change.file.empty() ? error : writer_.Make(change, listing_);
  }

  std::filesystem::path file_;
  TableListing listing_;
  std::vector<std::size_t> copies_;
  TableWriter writer_{SystemFiles(), Backups::None};
};

TEST_F(LineEdits, FindTheirPlaceInWhatOthersMadeOfTheFile) {
  const auto result = [this](std::error_code error) {
    if (!error) {
      EXPECT_EQ(listing_.stamp, test::Listed(file_).stamp);
    }
    return !error ? BytesOf(file_) : error == std::errc::file_exists ? "(taken)" : "(refused)";
  };
  LineChange made;
  writer_.OnChange([&made](const LineChange& change) { made = change; });
  for (const auto& row : test::Cases("line_changes.txt", "changes")) {
    SCOPED_TRACE(row[0] + ' ' + row[1]);
    List(row[0]);
    EXPECT_EQ(result(Run(row[1])), row[2]);
    for (std::size_t at = 3; at + 2 < row.size(); at += 3) {
      // Another file, whatever the clock says.
      std::filesystem::rename(Write("other.dat", row[at]), file_);
      const LineChange back = made.Reversed();
      EXPECT_EQ(result(writer_.Make(back, listing_)), row[at + 1]);
      const std::optional<EntryMark> first = FirstEntry(back, listing_);
      EXPECT_EQ(first ? std::to_string(first->index) : "none", row[at + 2]);
    }
  }
}

TEST_F(LineEdits, AreNotMadeOfAWrongOrderOrAnotherFile) {
  List("a\nb\nc");
  LineChange change;
  for (const auto& wrong : std::vector<std::vector<std::size_t>>{{0, 2, 2}, {0, 1, 3}, {0, 1}}) {
    EXPECT_EQ(OrderOf(SystemFiles(), file_, listing_, wrong, change), std::errc::invalid_argument);
  }
  const std::vector<std::size_t> order = {1, 0, 2}, one = {0};
  Write("t.dat", "someone else was quicker");
  EXPECT_EQ(OrderOf(SystemFiles(), file_, listing_, order, change), kEntryChanged);
  std::filesystem::remove(file_);
  constexpr auto kGone = std::errc::no_such_file_or_directory;
  EXPECT_EQ(OrderOf(SystemFiles(), file_, listing_, order, change), kGone);
  EXPECT_EQ(RemovalOf(SystemFiles(), file_, listing_, one, change), kGone);
}

}  // namespace
}  // namespace zentab::tables
