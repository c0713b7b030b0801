#include "interchange/library_merge.h"

#include "interchange/entry_meaning.h"
#include "platform/line_reader.h"

namespace zentab::interchange {
namespace {

// One entry on the three sides; kNoLine where a side has none of its name.
struct Lines {
  std::size_t base;
  std::size_t ours;
  std::size_t theirs;
};

enum class Choice { Ours, Theirs, Conflict };

bool IsSame(const LibraryText& one, std::size_t line, const LibraryText& other,
            std::size_t otherLine) {
  if (line == kNoLine || otherLine == kNoLine) return line == otherLine;
  return LinesSayTheSame(one.Line(line), other.Line(otherLine));
}

class Merger {
 public:
  Merger(const LibraryText& base, const LibraryText& ours, const LibraryText& theirs)
      : base_(base), ours_(ours), theirs_(theirs) {}

  MergedLibrary Run() {
    if (ours_.HasByteOrderMark()) merged_.bytes = platform::kByteOrderMark;
    const NamedLines baseNames = base_.Names();
    const NamedLines ourNames = ours_.Names();
    const NamedLines theirNames = theirs_.Names();
    const NameIndex base(baseNames);
    const NameIndex ours(ourNames);
    const NameIndex theirs(theirNames);
    std::size_t entry = 0;
    for (std::size_t line = 0; line < ours_.LineCount(); ++line) {
      if (entry == ours.Count() || ours.Line(entry) != line) {
        Add(ours_, line);
        continue;
      }
      Put({base.LineOf(ours, entry), line, theirs.LineOf(ours, entry)}, ours.Name(entry));
      ++entry;
    }
    for (entry = 0; entry < theirs.Count(); ++entry) {
      if (ours.LineOf(theirs, entry) != kNoLine) continue;
      Put({base.LineOf(theirs, entry), kNoLine, theirs.Line(entry)}, theirs.Name(entry));
    }
    return std::move(merged_);
  }

 private:
  [[nodiscard]] Choice ChoiceOf(const Lines& lines) const {
    if (IsSame(ours_, lines.ours, base_, lines.base)) return Choice::Theirs;
    const bool theyDidNothing = IsSame(theirs_, lines.theirs, base_, lines.base);
    return theyDidNothing || IsSame(ours_, lines.ours, theirs_, lines.theirs) ? Choice::Ours
                                                                              : Choice::Conflict;
  }

  void Put(const Lines& lines, const std::string& name) {
    const Choice choice = ChoiceOf(lines);
    if (choice == Choice::Conflict) merged_.conflicts.push_back(name);
    if (choice != Choice::Theirs) {
      if (lines.ours != kNoLine) Add(ours_, lines.ours);
    } else if (lines.theirs != kNoLine) {
      // What says the same on both sides keeps our form.
      const bool isOurs = IsSame(ours_, lines.ours, theirs_, lines.theirs);
      Add(isOurs ? ours_ : theirs_, isOurs ? lines.ours : lines.theirs);
    }
  }

  void Add(const LibraryText& library, std::size_t line) {
    if (isOpen_) merged_.bytes += "\r\n";
    merged_.bytes += library.Line(line);
    merged_.bytes += library.Ending(line);
    isOpen_ = library.Ending(line).empty();
  }

  const LibraryText& base_;
  const LibraryText& ours_;
  const LibraryText& theirs_;
  MergedLibrary merged_;
  bool isOpen_ = false;  // the last line has no line end yet
};

}  // namespace

MergedLibrary Merge(const LibraryText& base, const LibraryText& ours, const LibraryText& theirs) {
  return Merger(base, ours, theirs).Run();
}

}  // namespace zentab::interchange
