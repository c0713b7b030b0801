// Draws every waveform keyword over two and a half periods of 20 ms, each into a file of its name:
// waveform_pictures docs/waveforms
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "mathparser/math_parser.h"

namespace {

// The time t in milliseconds.
constexpr std::array kPictures = {"wtri(t, 20)",           "wsqr(t, 20)",
                                  "wsaw(t, 20)",           "wraise(t, 20)",
                                  "wparab(t, 20)",         "wrect(t, 20, 0.3)",
                                  "wtrapez(t, 20, 0.2)",   "wlin(t, 20, 0.8)",
                                  "wpulse(t, 20, 0.3)",    "wsteps(t, 20, 5)",
                                  "wexp(t, 20, 5)",        "wexpb(t, 20, 3)",
                                  "wpulsef(t, 0.05, 0.1)", "wripple(t, 20, 10)",
                                  "wring(t, 20, 0.25, 4)", "wam(t, 0.5, 0.05, 0.6)",
                                  "wfm(t, 0.25, 0.05, 3)"};
constexpr double kEnd = 50.0;
constexpr int kPoints = 2000;
constexpr double kLeft = 34.0, kRight = 350.0, kTop = 34.0, kBottom = 154.0;

struct Curve {
  std::vector<double> values;  // at the times from 0 to before kEnd
  double largest = 1.0;
};

Curve CurveOf(const char* text) {
  Curve curve;
  zentab::mathparser::MathParser parser;
  if (!parser.StoreExpression(text)) return curve;
  for (int i = 0; i < kPoints; ++i) {
    parser.VarValue(1, kEnd * i / kPoints);
    curve.values.push_back(parser.Eval());
    curve.largest = std::max(curve.largest, std::abs(curve.values.back()));
  }
  return curve;
}

class Picture {
 public:
  Picture(const std::filesystem::path& path, double largest)
      : out_(path), scale_((kBottom - kTop) / 2.0 / largest) {
    out_ << "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"360\" height=\"180\" "
            "viewBox=\"0 0 360 180\" font-family=\"sans-serif\" font-size=\"11\">\n"
            "<rect width=\"100%\" height=\"100%\" fill=\"white\"/>\n";
  }

  void Title(const std::string& text) {
    out_ << "<text x=\"" << kLeft << "\" y=\"20\" font-size=\"13\">" << text << "</text>\n";
  }
  void Grid() {
    out_ << "<g stroke=\"#d0d0d0\">\n";
    for (const double y : {-1.0, 0.0, 1.0}) Line(0.0, y, kEnd, y);
    for (double t = 0.0; t <= kEnd; t += 10.0) {
      Line(t, -1.0 / scale_ * (kBottom - kTop) / 2.0, t, (kBottom - kTop) / 2.0 / scale_);
    }
    out_ << "</g>\n<g fill=\"#404040\">\n";
    for (const int y : {-1, 0, 1}) {
      out_ << "<text text-anchor=\"end\" x=\"" << kLeft - 6.0 << "\" y=\"" << Y(y) + 4.0 << "\">"
           << (y < 0    ? "−1"
               : y == 0 ? "0"
                        : "1")
           << "</text>\n";
    }
    for (int t = 0; t <= 40; t += 10) {
      out_ << "<text text-anchor=\"middle\" x=\"" << X(t) << "\" y=\"" << kBottom + 16.0 << "\">"
           << t << "</text>\n";
    }
    out_ << "<text text-anchor=\"end\" x=\"" << kRight << "\" y=\"" << kBottom + 16.0
         << "\">t in ms</text>\n</g>\n";
  }
  // Leaves out the points on a straight line between their neighbours.
  void Draw(const std::vector<double>& values) {
    out_ << "<polyline fill=\"none\" stroke=\"#1f4e9c\" stroke-width=\"1.6\" "
            "stroke-linejoin=\"round\" points=\"";
    for (std::size_t i = 0; i < values.size(); ++i) {
      const bool isInside = i > 0 && i + 1 < values.size();
      const double bend = isInside ? values[i - 1] - 2.0 * values[i] + values[i + 1] : 1.0;
      // A gentle bend counts every 8 points, a quarter of a millimetre.
      if (std::abs(bend) < 1e-3 && (std::abs(bend) < 1e-9 || i % 8 != 0)) continue;
      std::array<char, 40> point{};
      std::snprintf(point.data(), point.size(), "%.2f,%.2f ",
                    X(kEnd * static_cast<double>(i) / kPoints), Y(values[i]));
      out_ << point.data();
    }
    out_ << "\"/>\n";
  }
  [[nodiscard]] bool End() {
    out_ << "</svg>\n";
    out_.close();
    return !out_.fail();
  }

 private:
  static double X(double t) { return kLeft + (kRight - kLeft) * t / kEnd; }
  [[nodiscard]] double Y(double value) const { return (kTop + kBottom) / 2.0 - scale_ * value; }
  void Line(double x1, double y1, double x2, double y2) {
    out_ << "<path d=\"M" << X(x1) << ' ' << Y(y1) << 'L' << X(x2) << ' ' << Y(y2) << "\"/>\n";
  }

  std::ofstream out_;
  double scale_;
};

}  // namespace

int main(int count, char** words) {
  if (count != 2) return 1;
  std::filesystem::create_directories(words[1]);
  for (const std::string text : kPictures) {
    const Curve curve = CurveOf(text.c_str());
    if (curve.values.empty()) return 1;
    Picture picture(std::filesystem::path(words[1]) / (text.substr(0, text.find('(')) + ".svg"),
                    curve.largest);
    picture.Title(text);
    picture.Grid();
    picture.Draw(curve.values);
    if (!picture.End()) return 1;
  }
  return 0;
}
