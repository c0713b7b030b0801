// Draws every waveform keyword over two and a half periods: waveform_pictures docs/waveforms.svg
#include <array>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <string>
#include <vector>

#include "mathparser/math_parser.h"

namespace {

// Times in milliseconds of a period of 20 ms.
constexpr std::array kPictures = {"wtri(t, 20)",           "wsqr(t, 20)",
                                  "wsaw(t, 20)",           "wraise(t, 20)",
                                  "wparab(t, 20)",         "wrect(t, 20, 0.3)",
                                  "wtrapez(t, 20, 0.2)",   "wlin(t, 20, 0.8)",
                                  "wpulse(t, 20, 0.3)",    "wsteps(t, 20, 5)",
                                  "wexp(t, 20, 5)",        "wexpb(t, 20, 3)",
                                  "wpulsef(t, 0.05, 0.1)", "wripple(t, 20, 10)",
                                  "wring(t, 20, 0.25, 4)", "wam(t, 0.5, 0.05, 0.6)",
                                  "wfm(t, 0.25, 0.05, 3)"};
constexpr int kColumns = 3;
constexpr int kWidth = 300;
constexpr int kHeight = 150;
constexpr double kEnd = 50.0;
constexpr int kPoints = 400;

std::string Drawn(const char* text) {
  zentab::mathparser::MathParser parser;
  if (!parser.StoreExpression(text)) return {};
  std::string points;
  for (int i = 0; i <= kPoints; ++i) {
    const double t = kEnd * i / kPoints;
    parser.VarValue(1, t);
    std::array<char, 40> point{};
    std::snprintf(point.data(), point.size(), "%.2f,%.2f ", 10.0 + 280.0 * i / kPoints,
                  85.0 - 32.0 * parser.Eval());
    points += point.data();
  }
  return points;
}

}  // namespace

int main(int count, char** words) {
  if (count != 2) return 1;
  std::ofstream out(words[1]);
  const int rows = (static_cast<int>(kPictures.size()) + kColumns - 1) / kColumns;
  out << "<svg xmlns=\"http://www.w3.org/2000/svg\" font-family=\"monospace\" font-size=\"13\" "
      << "viewBox=\"0 0 " << kColumns * kWidth << ' ' << rows * kHeight << "\">\n"
      << "<rect width=\"100%\" height=\"100%\" fill=\"white\"/>\n";
  for (std::size_t i = 0; i < kPictures.size(); ++i) {
    const int place = static_cast<int>(i);
    const std::string points = Drawn(kPictures[i]);
    if (points.empty()) return 1;
    out << "<g transform=\"translate(" << place % kColumns * kWidth << ' '
        << place / kColumns * kHeight << ")\">\n<text x=\"10\" y=\"18\">" << kPictures[i]
        << "</text>\n<path d=\"M10 85H290M10 53H290M10 117H290\" stroke=\"#ccc\" fill=\"none\"/>\n"
        << "<polyline points=\"" << points << "\" fill=\"none\" stroke=\"#1f4e9c\"/>\n</g>\n";
  }
  out << "</svg>\n";
  return out ? 0 : 1;
}
