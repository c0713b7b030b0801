#include "editor/table_state.h"

#include <algorithm>
#include <string_view>

namespace zentab::editor {
namespace {

// A text behind its length, in groups of seven bits, the last one first marked by its eighth bit
// being clear: a cell costs one byte more than its text.
void PutText(PackedTable& packed, std::string_view text) {
  std::size_t length = text.size();
  for (; length >= 0x80; length >>= 7) packed += static_cast<char>(0x80 | (length & 0x7F));
  packed += static_cast<char>(length);
  packed += text;
}

class Reader {
 public:
  explicit Reader(std::string_view packed) : rest_(packed) {}

  char Byte() {
    if (rest_.empty()) return 0;
    const char byte = rest_.front();
    rest_.remove_prefix(1);
    return byte;
  }

  std::string_view Text() {
    std::size_t length = 0;
    for (unsigned shift = 0;; shift += 7) {
      const auto byte = static_cast<unsigned char>(Byte());
      length |= static_cast<std::size_t>(byte & 0x7F) << shift;
      if (byte < 0x80) break;
    }
    const std::string_view text = rest_.substr(0, length);
    rest_.remove_prefix(text.size());
    return text;
  }

 private:
  std::string_view rest_;
};

constexpr int kMilliseconds = 1;
constexpr int kAbsoluteValues = 2;

}  // namespace

std::string PackPoints(const CurveGrid& grid, const ValueModes& modes) {
  std::string packed;
  packed += static_cast<char>((modes.milliseconds ? kMilliseconds : 0) |
                              (modes.absoluteValues ? kAbsoluteValues : 0));
  for (int row = kFirstRow; row <= kLastRow; ++row) {
    for (const int column : {kLoadColumn, kTimeColumn}) PutText(packed, grid.Cell(row, column));
  }
  return packed;
}

PackedTable Pack(const CurveGrid& grid, const ValueModes& modes, tables::Instrument instrument) {
  PackedTable packed = PackPoints(grid, modes);
  packed += static_cast<char>(instrument);
  PutText(packed, modes.pickup);
  PutText(packed, modes.multiplier);
  packed.shrink_to_fit();
  return packed;
}

void Unpack(const PackedTable& table, CurveGrid& grid, ValueModes& modes,
            tables::Instrument& instrument) {
  Reader reader(table);
  const auto flags = static_cast<unsigned char>(reader.Byte());
  modes.milliseconds = (flags & kMilliseconds) != 0;
  modes.absoluteValues = (flags & kAbsoluteValues) != 0;
  for (int row = kFirstRow; row <= kLastRow; ++row) {
    for (const int column : {kLoadColumn, kTimeColumn}) grid.SetCell(row, column, reader.Text());
  }
  instrument = static_cast<tables::Instrument>(static_cast<unsigned char>(reader.Byte()));
  modes.pickup = reader.Text();
  modes.multiplier = reader.Text();
}

}  // namespace zentab::editor
