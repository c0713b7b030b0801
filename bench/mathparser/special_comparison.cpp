// The errors of the special functions over the reference values and their times over the same
// arguments, beside Boost.Math and the standard library:
//     special_comparison REFERENCES [DOCUMENT]
// prints both tables, or writes them into the document between its lines "<!-- ... -->" of their
// names. With "worst" instead of a document it prints the points of the largest errors as well.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <string_view>

#include "bench/speed_line.h"
#include "special_peers.h"
#include "special_reference.h"

namespace {

using namespace zentab::mathparser;
using bench::Peer;
using References = std::vector<ReferenceValue>;

constexpr int kRounds = 25;

std::string Format(const char* format, double value) {
  char text[40];
  std::snprintf(text, sizeof text, format, value);
  return text;
}

double ValueOf(Peer peer, const ReferenceValue& reference) {
  try {
    return peer(reference.arguments.data());
  } catch (const std::exception&) {
    return std::nan("");
  }
}

// As a share of the value; near zeros, of 0.1, so that 1e-13 is the aim everywhere.
double ErrorOf(const ReferenceValue& reference, double value) {
  return 1e-13 * ErrorInTolerances(reference, value);
}

struct Errors {
  std::vector<double> all;
  std::size_t missing = 0;
  std::string worst;

  void Add(double value, const ReferenceValue& reference) {
    if (!std::isfinite(value)) {
      ++missing;
      return;
    }
    const double error = ErrorOf(reference, value);
    if (all.empty() || error > Largest()) worst = reference.Text();
    all.push_back(error);
  }
  [[nodiscard]] double Largest() const { return *std::max_element(all.begin(), all.end()); }
  [[nodiscard]] double Median() const {
    std::vector<double> sorted = all;
    const auto middle = sorted.begin() + static_cast<std::ptrdiff_t>(sorted.size() / 2);
    std::nth_element(sorted.begin(), middle, sorted.end());
    return *middle;
  }
  [[nodiscard]] std::string Cells() const {
    if (all.empty()) return " - | - |";
    const std::string without = missing == 0 ? "" : " (" + std::to_string(missing) + " without)";
    return " " + Format("%.1e", Largest()) + without + " | " + Format("%.1e", Median()) + " |";
  }
};

void AddErrorRow(std::ostream& out, const std::string& keyword, const References& references,
                 bool showWorst) {
  Errors own, boost, standard;
  const Peer boostPeer = bench::BoostPeer(keyword);
  const Peer standardPeer = bench::StandardPeer(keyword);
  for (const ReferenceValue& reference : references) {
    own.Add(Computed(reference), reference);
    if (boostPeer != nullptr) boost.Add(ValueOf(boostPeer, reference), reference);
    if (standardPeer != nullptr) standard.Add(ValueOf(standardPeer, reference), reference);
  }
  out << "| " << keyword << " | " << references.size() << " |" << own.Cells() << boost.Cells()
      << standard.Cells();
  if (showWorst) out << ' ' << own.worst << " |";
  out << '\n';
}

// The nanoseconds of one call, the mean over the references; the least of several rounds, as
// whatever else the machine does only slows them.
class Stopwatch {
 public:
  template <class Function>
  void Measure(const References& references, Function function) {
    using Clock = std::chrono::steady_clock;
    if (repetitions_ == 0) {
      const double once = Pass(references, function);
      repetitions_ = std::clamp(static_cast<int>(1e6 / std::max(once, 1.0)), 1, 10000);
    }
    const auto start = Clock::now();
    for (int i = 0; i < repetitions_; ++i) Pass(references, function);
    const std::chrono::duration<double, std::nano> elapsed = Clock::now() - start;
    const double perCall = elapsed.count() / repetitions_ / static_cast<double>(references.size());
    if (best_ == 0.0 || perCall < best_) best_ = perCall;
  }
  [[nodiscard]] double Best() const { return best_; }
  [[nodiscard]] std::string Cell() const {
    return best_ == 0.0 ? " - |" : " " + Format("%.0f", best_) + " |";
  }

 private:
  template <class Function>
  double Pass(const References& references, Function function) {
    const auto start = std::chrono::steady_clock::now();
    for (const ReferenceValue& reference : references) sink_ = function(reference);
    return std::chrono::duration<double, std::nano>(std::chrono::steady_clock::now() - start)
        .count();
  }

  int repetitions_ = 0;
  double best_ = 0.0;
  volatile double sink_ = 0.0;
};

// Gives the ratio of our time to Boost.Math's, 0 for none.
double AddTimeRow(std::ostream& out, const std::string& keyword, const References& references) {
  const Kernel kernel = StandardCatalogue().Find(keyword)->kernel;
  const Peer boostPeer = bench::BoostPeer(keyword);
  const Peer standardPeer = bench::StandardPeer(keyword);
  const auto answeredBy = [&](Peer peer) {
    References answered;
    for (const ReferenceValue& reference : references) {
      if (peer == nullptr || std::isfinite(ValueOf(peer, reference))) answered.push_back(reference);
    }
    return answered;
  };
  // Only what the other library has a value for is compared.
  const References common = answeredBy(boostPeer);
  const References others = answeredBy(standardPeer);
  Stopwatch own, boost, standard;
  for (int round = 0; round < kRounds; ++round) {
    CallContext context;
    own.Measure(common,
                [&](const ReferenceValue& r) { return kernel(r.arguments.data(), context); });
    const auto call = [](Peer peer) {
      return [peer](const ReferenceValue& r) { return peer(r.arguments.data()); };
    };
    if (boostPeer != nullptr) boost.Measure(common, call(boostPeer));
    if (standardPeer != nullptr) standard.Measure(others, call(standardPeer));
  }
  const double ratio = boostPeer == nullptr ? 0.0 : own.Best() / boost.Best();
  out << "| " << keyword << " |" << own.Cell() << boost.Cell()
      << (ratio == 0.0 ? " - |" : " " + Format("%.2f", ratio) + " |") << standard.Cell() << '\n';
  return ratio;
}

std::string ErrorTable(const std::map<std::string, References>& families, bool showWorst) {
  std::ostringstream table;
  table << "| keyword | values | largest | median | Boost.Math largest | median | "
           "standard library largest | median |"
        << (showWorst ? " at |" : "") << "\n|---|---:|---:|---:|---:|---:|---:|---:|"
        << (showWorst ? "---|" : "") << '\n';
  for (const auto& [keyword, references] : families) {
    AddErrorRow(table, keyword, references, showWorst);
  }
  return table.str();
}

std::string TimeTable(const std::map<std::string, References>& families) {
  std::ostringstream table;
  table << "| keyword | ns | Boost.Math ns | ratio | standard library ns |\n"
           "|---|---:|---:|---:|---:|\n";
  double logarithms = 0.0;
  int compared = 0;
  for (const auto& [keyword, references] : families) {
    const double ratio = AddTimeRow(table, keyword, references);
    if (ratio == 0.0) continue;
    logarithms += std::log(ratio);
    ++compared;
  }
  const double mean = std::exp(logarithms / compared);
  table << "| geometric mean | | | " << Format("%.2f", mean) << " | |\n";
  zentab::bench::PrintSpeedLine("Special functions, geometric mean", "x Boost.Math", mean);
  return table.str();
}

// Puts the table between the lines of its name and of "<!-- end -->".
bool Replace(std::string& document, std::string_view name, const std::string& table) {
  const std::string opening = "<!-- " + std::string(name) + " -->\n";
  const std::size_t start = document.find(opening);
  const std::size_t end = document.find("<!-- end -->", start);
  if (start == std::string::npos || end == std::string::npos) return false;
  document.replace(start + opening.size(), end - start - opening.size(), table);
  return true;
}

}  // namespace

int main(int count, char** words) {
  if (count < 2) return 1;
  std::map<std::string, References> families;
  for (ReferenceValue& value : ReadReferenceValues(words[1])) {
    families[value.keyword].push_back(std::move(value));
  }
  const std::string_view last = count > 2 ? words[2] : "";
  const std::string errors = ErrorTable(families, last == "worst");
  std::fputs(errors.c_str(), stdout);
  const std::string times = TimeTable(families);
  std::fputs(times.c_str(), stdout);
  if (last.empty() || last == "worst") return 0;

  std::stringstream document;
  document << std::ifstream(words[2]).rdbuf();
  std::string text = document.str();
  if (!Replace(text, "errors", errors) || !Replace(text, "times", times)) return 1;
  std::ofstream out(words[2]);
  out << text;
  return out ? 0 : 1;
}
