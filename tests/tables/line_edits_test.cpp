// Renamed and reordered lines, made, taken back and made again through the guarded writer.
#include <numeric>

#include "support/listed.h"
#include "support/temporary_folder.h"
#include "tables/entry_rename.h"
#include "tables/line_order.h"
#include "tables/table_writer.h"

namespace zentab::tables {
namespace {

using platform::SystemFiles;
using test::BytesOf;

const std::string kMark = "\xEF\xBB\xBF";
const std::string kLines =
    kMark + "{\"a\"\t(1;2) 001}\n{\"b\"\t 000}\r\nnone\n{\"\xC3\x84\"\t 000}\r{\"d\"\t 000}";

CurveTableEntry Named(const std::string& name) {
  return {name, {}, false, false, Instrument::None};
}

class LineEdits : public test::TemporaryFolder {
 protected:
  void SetUp() override {
    file_ = Write("t.dat", kLines);
    listing_ = test::Listed(file_);
  }

  // Makes a change, takes it back and makes it again.
  void ExpectChange(const LineChange& change, const std::string& bytes) {
    ASSERT_FALSE(writer_.Make(change, listing_));
    EXPECT_EQ(BytesOf(file_), bytes);
    ASSERT_FALSE(writer_.Make(change.Reversed(), listing_));
    EXPECT_EQ(BytesOf(file_), kLines);
    ASSERT_FALSE(writer_.Make(change, listing_));
    EXPECT_EQ(BytesOf(file_), bytes);
  }

  std::filesystem::path file_;
  TableListing listing_;
  TableWriter writer_{SystemFiles(), Backups::None};
};

TEST_F(LineEdits, ARenameKeepsTheRestAndComesBack) {
  LineChange change;
  EntryMark mark = listing_.MarkOf(0);
  EXPECT_EQ(RenameOf(SystemFiles(), file_, listing_, mark, "D", change), std::errc::file_exists);
  EXPECT_EQ(RenameOf(SystemFiles(), file_, listing_, mark, "x(1", change),
            std::errc::invalid_argument);
  ASSERT_FALSE(RenameOf(SystemFiles(), file_, listing_, mark, "A", change));
  std::string renamed = kLines;
  renamed[kMark.size() + 2] = 'A';
  ExpectChange(change, renamed);
  // Someone else has taken the former name meanwhile.
  ASSERT_FALSE(RenameOf(SystemFiles(), file_, listing_, mark = listing_.MarkOf(0), "z", change));
  ASSERT_FALSE(writer_.Make(change, listing_));
  ASSERT_FALSE(writer_.AppendEntry(file_, listing_, Named("a")));
  EXPECT_EQ(writer_.Make(change.Reversed(), listing_), kEntryChanged);
}

TEST_F(LineEdits, AnOrderComesBackAndLineEndsStayInTheirPlaces) {
  LineChange change;
  std::vector<std::size_t> order = {0, 4, 3, 2, 1};
  ASSERT_FALSE(OrderOf(SystemFiles(), file_, listing_, order, change));
  ExpectChange(change,
               kMark +
                   "{\"a\"\t(1;2) 001}\n{\"d\"\t 000}\r\n{\"\xC3\x84\"\t 000}\nnone\r{\"b\"\t "
                   "000}");
  ASSERT_FALSE(writer_.Make(change.Reversed(), listing_));
  order[0] = 1;
  EXPECT_EQ(OrderOf(SystemFiles(), file_, listing_, order, change), std::errc::invalid_argument);
  std::iota(order.begin(), order.end(), 0);
  ASSERT_FALSE(OrderOf(SystemFiles(), file_, listing_, order, change));
  EXPECT_TRUE(change.before.empty());
  // Someone else was quicker.
  std::swap(order[1], order[2]);
  Write(file_.filename().string(), BytesOf(file_) + "{\"new\"\t 000}");
  EXPECT_EQ(OrderOf(SystemFiles(), file_, listing_, order, change), kEntryChanged);
}

TEST_F(LineEdits, EveryChangeKeepsTheByteOrderMark) {
  std::vector<LineChange> made;
  writer_.OnChange([&made](const LineChange& change) { made.push_back(change); });
  EntryMark mark = listing_.MarkOf(0);
  ASSERT_FALSE(writer_.ReplaceEntry(file_, listing_, mark, Named("new")));
  ASSERT_FALSE(writer_.RemoveEntry(file_, listing_, mark));
  ASSERT_FALSE(writer_.AppendEntry(file_, listing_, Named("last")));
  EXPECT_EQ(BytesOf(file_),
            kMark + kLines.substr(kLines.find("{\"b\"")) + "\r\n{\"last\"\t 000}\r\n");
  writer_.OnChange({});
  for (auto change = made.rbegin(); change != made.rend(); ++change) {
    ASSERT_FALSE(writer_.Make(change->Reversed(), listing_));
  }
  EXPECT_EQ(BytesOf(file_), kLines);
}

}  // namespace
}  // namespace zentab::tables
