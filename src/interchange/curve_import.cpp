#include "interchange/curve_import.h"

#include <algorithm>

#include "interchange/cell_number.h"
#include "interchange/cell_table.h"
#include "interchange/column_plan.h"
#include "interchange/curve_csv.h"
#include "interchange/entry_meaning.h"

namespace zentab::interchange {
namespace {

constexpr std::size_t kSampleRows = 100;
constexpr double kAmperesPerKiloampere = 1000.0;

double TableLoad(double load, LoadUnit unit) {
  return unit == LoadUnit::Kiloampere ? load * kAmperesPerKiloampere : load;
}

double TableTime(double time, TimeUnit unit) {
  constexpr double kHertz50 = 50.0;
  constexpr double kHertz60 = 60.0;
  if (unit == TimeUnit::Cycle50) return time / kHertz50;
  return unit == TimeUnit::Cycle60 ? time / kHertz60 : time;
}

// Rows that belong together: what stands above the numbers, and the numbers.
struct Block {
  std::string title;
  std::vector<BlockColumn> columns;
  bool hasHeader = false;
  std::size_t begin = 0;  // rows of numbers
  std::size_t end = 0;
};

class Importer {
 public:
  Importer(const CellTable& table, char decimalSign, const ImportChoices& choices)
      : table_(table), decimalSign_(decimalSign), choices_(choices) {}

  std::optional<Fault> Run(ImportedText& text) {
    std::size_t row = 0;
    for (Block block; NextBlock(row, block);) {
      if (auto fault = TakeBlock(block, text)) return fault;
      row = block.end;
    }
    if (text.curves.empty()) return Fault{FaultKind::NoNumbers};
    return std::nullopt;
  }

 private:
  [[nodiscard]] bool HasNumber(std::size_t row) const {
    return std::ranges::any_of(table_.Row(row), [this](std::string_view cell) {
      return CellNumber(cell, decimalSign_).has_value() || IsCellNumber(cell);
    });
  }

  [[nodiscard]] bool IsHeading(std::size_t row, bool isFirst) const {
    if (choices_.hasHeader) return *choices_.hasHeader && isFirst;
    const auto cells = table_.Row(row);
    const auto first = std::ranges::find_if(cells, [](auto cell) { return !cell.empty(); });
    return first != cells.end() && !IsCellNumber(*first);
  }

  // Cells of headings above one another are one heading; a lone one is a title.
  void AddHeading(std::size_t row, Block& block, bool& isFresh) const {
    const auto cells = table_.Row(row);
    const auto filled = std::ranges::count_if(cells, [](auto cell) { return !cell.empty(); });
    const auto first = std::ranges::find_if(cells, [](auto cell) { return !cell.empty(); });
    if (filled == 1) {
      block.title = PlainText(*first);
      return;
    }
    if (isFresh) block.columns.clear();
    isFresh = false;
    block.columns.resize(std::max(block.columns.size(), cells.size()));
    for (std::size_t at = 0; at < cells.size(); ++at) {
      std::string& heading = block.columns[at].heading;
      if (!heading.empty() && !cells[at].empty()) heading += ' ';
      heading += cells[at];
    }
  }

  // The next block from a row on. Headings stay those of the one before where it has none.
  bool NextBlock(std::size_t row, Block& block) const {
    bool isFresh = true;
    bool isFirst = true;
    block.title.clear();
    const std::size_t count = table_.RowCount();
    for (; row < count && (table_.IsBlank(row) || IsHeading(row, isFirst)); ++row) {
      if (table_.IsBlank(row)) continue;
      AddHeading(row, block, isFresh);
      isFirst = false;
    }
    block.hasHeader = !isFirst;
    block.begin = row;
    while (row < count && !table_.IsBlank(row) && HasNumber(row)) ++row;
    block.end = row;
    // Without a number there is nothing more to come but what IsHeading was told not to be one.
    if (row == block.begin && row < count) block.end = row + 1;
    if (block.begin < count) Describe(block);
    return block.begin < count;
  }

  void Describe(Block& block) const {
    for (BlockColumn& column : block.columns) column.hasNumbers = column.increases = false;
    const std::size_t end = std::min(block.end, block.begin + kSampleRows);
    for (std::size_t row = block.begin; row < end; ++row) {
      const auto cells = table_.Row(row);
      if (cells.size() > block.columns.size()) block.columns.resize(cells.size());
      for (std::size_t at = 0; at < cells.size(); ++at) {
        if (IsCellNumber(cells[at])) block.columns[at].hasNumbers = true;
      }
    }
    if (block.begin + 1 >= block.end) return;
    const auto first = table_.Row(block.begin);
    const auto second = table_.Row(block.begin + 1);
    for (std::size_t at = 0; at < std::min(first.size(), second.size()); ++at) {
      const auto one = CellNumber(first[at], decimalSign_);
      const auto two = CellNumber(second[at], decimalSign_);
      block.columns[at].increases = one && two && *one < *two;
    }
  }

  std::optional<Fault> Find(const Block& block, const std::string& wanted,
                            std::size_t& column) const {
    if (wanted.empty()) return std::nullopt;
    column = ColumnOf(block.columns, wanted);
    if (column < block.columns.size()) return std::nullopt;
    return Fault{FaultKind::NoColumn, wanted, table_.LineOf(block.begin)};
  }

  std::optional<Fault> TakeBlock(const Block& block, ImportedText& text) const {
    std::size_t load = kUnknownColumn;
    std::size_t time = kUnknownColumn;
    if (auto fault = Find(block, choices_.load, load)) return fault;
    if (auto fault = Find(block, choices_.time, time)) return fault;
    const std::vector<CurveColumns> plan = PlanColumns(block.columns, load, time);
    if (plan.empty()) return FaultWithoutPlan(block);
    // Curves side by side need not have the same loads.
    const bool mayLack = plan.size() > 1 || !choices_.time.empty();
    for (const CurveColumns& columns : plan) {
      ImportedCurve curve;
      curve.loadUnit =
          choices_.loadUnit.value_or(columns.loadHeading.loadUnit.value_or(LoadUnit::Multiple));
      curve.timeUnit =
          choices_.timeUnit.value_or(columns.timeHeading.timeUnit.value_or(TimeUnit::Second));
      curve.name = columns.timeHeading.name;
      if (!block.title.empty()) {
        curve.name = block.title + (curve.name.empty() ? "" : ' ' + curve.name);
      }
      if (auto fault = TakePoints(block, columns, mayLack, curve)) return fault;
      if (curve.points.empty()) continue;
      if (text.curves.empty()) TellColumns(block, columns, text);
      text.curves.push_back(std::move(curve));
    }
    return std::nullopt;
  }

  static void TellColumns(const Block& block, const CurveColumns& columns, ImportedText& text) {
    text.hasHeader = block.hasHeader;
    text.load = columns.load;
    text.time = columns.time;
    for (const BlockColumn& column : block.columns) text.headings.push_back(column.heading);
  }

  [[nodiscard]] Fault FaultWithoutPlan(const Block& block) const {
    const auto columns = std::ranges::count_if(
        block.columns, [](const BlockColumn& column) { return column.hasNumbers; });
    return {
        columns == 0 ? FaultKind::NoNumbers : FaultKind::OneColumn, {}, table_.LineOf(block.begin)};
  }

  std::optional<Fault> TakePoints(const Block& block, const CurveColumns& columns, bool mayLack,
                                  ImportedCurve& curve) const {
    curve.points.reserve(block.end - block.begin);
    for (std::size_t row = block.begin; row < block.end; ++row) {
      const auto cells = table_.Row(row);
      const std::string_view load = columns.load < cells.size() ? cells[columns.load] : "";
      const std::string_view time = columns.time < cells.size() ? cells[columns.time] : "";
      if (time.empty() && (mayLack || load.empty())) continue;
      if (load.empty() || time.empty()) {
        return Fault{FaultKind::MissingNumber, {}, table_.LineOf(row)};
      }
      const auto loadNumber = CellNumber(load, decimalSign_);
      const auto timeNumber = CellNumber(time, decimalSign_);
      if (!loadNumber || !timeNumber) {
        return Fault{FaultKind::BadNumber, std::string(loadNumber ? time : load),
                     table_.LineOf(row)};
      }
      curve.points.push_back(
          {TableLoad(*loadNumber, curve.loadUnit), TableTime(*timeNumber, curve.timeUnit)});
    }
    return std::nullopt;
  }

  const CellTable& table_;
  char decimalSign_;
  const ImportChoices& choices_;
};

}  // namespace

tables::Instrument ImportedCurve::Instrument() const {
  if (loadUnit == LoadUnit::Multiple) return tables::Instrument::None;
  return loadUnit == LoadUnit::Volt ? tables::Instrument::Voltage : tables::Instrument::Current;
}

Outcome<ImportedText> ImportCurves(std::string bytes, const ImportChoices& choices) {
  ImportedText result;
  result.encoding = choices.encoding.value_or(GuessEncoding(bytes));
  std::string text = Decoded(std::move(bytes), result.encoding);
  if (const auto line = LineOfNoText(text)) return Fault{FaultKind::NoText, {}, *line};
  const std::optional<char> given = TakeSeparatorLine(text);
  const char excluded = choices.decimalSign.value_or('\0');
  result.separator = choices.separator ? *choices.separator
                     : given           ? *given
                                       : GuessSeparator(text, excluded);
  const CellTable table(std::move(text), result.separator, kMostRows + 1);
  if (table.RowCount() > kMostRows) {
    return Fault{FaultKind::TooManyLines, std::to_string(kMostRows), table.LineOf(kMostRows)};
  }
  result.decimalSign = choices.decimalSign.value_or(GuessDecimalSign(table));
  if (auto fault = Importer(table, result.decimalSign, choices).Run(result)) return *fault;
  return result;
}

curves::Outcome<curves::ChosenPoints> PointsForTable(const ImportedCurve& curve, Surplus surplus) {
  if (curve.points.size() <= tables::kMaxPoints) return curves::ChosenPoints{curve.points, 0.0};
  if (surplus == Surplus::Cut) {
    return curves::ChosenPoints{{curve.points.begin(), curve.points.begin() + tables::kMaxPoints},
                                0.0};
  }
  const auto whole = curves::TableCurve::Of(curve.points, curves::Axes::Chart);
  if (const curves::Fault* const fault = curves::FaultOf(whole)) return *fault;
  return curves::Thin(std::get<curves::TableCurve>(whole), tables::kMaxPoints);
}

tables::CurveTableEntry EntryOf(const ImportedCurve& curve,
                                const std::vector<curves::Point>& points) {
  if (curve.stored) return curve.stored->entry;
  tables::CurveTableEntry entry = {
      curve.name, {}, curve.Milliseconds(), curve.AbsoluteValues(), curve.Instrument()};
  for (const curves::Point& point : points) {
    entry.points.push_back({NumberCell(point.load), NumberCell(point.time)});
  }
  return entry;
}

}  // namespace zentab::interchange
