#include <array>
#include <numbers>

#include "mathparser/special/special_functions.h"

namespace zentab::mathparser {
namespace {

constexpr double kTwoPi = 2.0 * std::numbers::pi;
constexpr double kPhaseTolerance = 5e-14;

// Every wave has amplitude 1 and takes the time first. Domain: all times; the period or frequency
// not 0, a share from 0 to 1, a time constant above 0. The error is that of the phase: about 1e-16
// of a period for each period since time 0.

// The elapsed part of the period, in [0,1); what is a period but for rounding counts as one.
double FractionOf(double turns) {
  const double fraction = turns - std::floor(turns);
  return fraction > 1.0 - kPhaseTolerance || fraction < kPhaseTolerance ? 0.0 : fraction;
}
double Phase(double t, double period) {
  return period > 0.0 ? FractionOf(std::fmod(t, period) / period) : kNoNumber;
}

bool HasReached(double phase, double edge) { return phase >= edge - kPhaseTolerance; }
bool IsShare(double share) { return share >= 0.0 && share <= 1.0; }

// The sine of 2 pi f t, whole turns removed first.
double SineOf(double frequency, double t) {
  const double product = frequency * t;
  const double error = std::fma(frequency, t, -product);
  return std::sin(kTwoPi * (std::remainder(product, 1.0) + error));
}

// From 0 up to 1, down to -1 and back to 0.
double Triangle(double t, double period) {
  const double phase = Phase(t, period);
  if (phase < 0.25) return 4.0 * phase;
  return phase < 0.75 ? 2.0 - 4.0 * phase : 4.0 * phase - 4.0;
}

// 1 for the first half of the period, -1 for the second.
double Square(double t, double period) {
  const double phase = Phase(t, period);
  return std::isnan(phase) ? phase : HasReached(phase, 0.5) ? -1.0 : 1.0;
}

// From -1 straight up to 1, then back at once.
double Saw(double t, double period) { return 2.0 * Phase(t, period) - 1.0; }

// From 0 straight up to 1, then back at once.
double RisingRamp(double t, double period) { return Phase(t, period); }

// Arcs of parabolas like a sine: 1 after a quarter of the period, -1 after three.
double Parabola(double t, double period) {
  const double phase = Phase(t, period);
  return phase < 0.5 ? 16.0 * phase * (0.5 - phase) : 16.0 * (phase - 0.5) * (phase - 1.0);
}

// 1 for the given share of the period, then -1.
double Rectangle(double t, double period, double share) {
  const double phase = Phase(t, period);
  return std::isnan(phase) || !IsShare(share) ? kNoNumber : HasReached(phase, share) ? -1.0 : 1.0;
}

// As the rectangle, but 0 instead of -1.
double Pulse(double t, double period, double share) {
  const double phase = Phase(t, period);
  return std::isnan(phase) || !IsShare(share) ? kNoNumber : HasReached(phase, share) ? 0.0 : 1.0;
}

// The pulse, given by its frequency.
double PulseOfFrequency(double t, double frequency, double share) {
  if (!(frequency > 0.0) || !IsShare(share)) return kNoNumber;
  const double product = frequency * t;
  const double phase = FractionOf(std::fmod(product, 1.0) + std::fma(frequency, t, -product));
  return HasReached(phase, share) ? 0.0 : 1.0;
}

// A triangle cut off at 1 and -1: each of its two slopes takes the given share of the period, at
// most a half. It begins at 0 in the middle of the rising one.
double Trapezoid(double t, double period, double slope) {
  if (!(slope >= 0.0 && slope <= 0.5)) return kNoNumber;
  if (slope == 0.0) return Square(t, period);
  const double triangle = Triangle(t, period) * 0.5 / slope;
  return std::isnan(triangle) ? triangle : std::fmin(std::fmax(triangle, -1.0), 1.0);
}

// From -1 straight up to 1 within the given share of the period, then straight down.
double Linear(double t, double period, double share) {
  const double phase = Phase(t, period);
  if (std::isnan(phase) || !IsShare(share)) return kNoNumber;
  return phase < share  ? 2.0 * phase / share - 1.0
         : share == 1.0 ? -1.0
                        : 1.0 - 2.0 * (phase - share) / (1.0 - share);
}

// A staircase from 0 up to 1 with the given number of treads.
double Steps(double t, double period, double count) {
  if (!(count >= 2.0) || !IsWholeNumber(count)) return kNoNumber;
  const double phase = Phase(t, period);
  const double level = std::floor(phase * count + kPhaseTolerance * count);
  return std::isnan(phase) ? phase : std::fmin(level, count - 1.0) / (count - 1.0);
}

// 1 at the start of every period, decaying with the given time constant.
double Exponential(double t, double period, double constant) {
  return constant > 0.0 ? std::exp(-Phase(t, period) * (period / constant)) : kNoNumber;
}

// The exponential from 1 in the first half of the period, from -1 in the second.
double BipolarExponential(double t, double period, double constant) {
  if (!(constant > 0.0)) return kNoNumber;
  const double phase = Phase(t, period);
  const bool isSecond = HasReached(phase, 0.5);
  const double value =
      std::exp(-std::fmax(isSecond ? phase - 0.5 : phase, 0.0) * (period / constant));
  return std::isnan(phase) ? phase : isSecond ? -value : value;
}

// A sine of the given period after a two-way rectifier with a capacitor that is discharged with the
// given time constant: |sin| where the rectifier conducts, exponential where it does not.
double Ripple(double t, double period, double constant) {
  if (!(constant > 0.0)) return kNoNumber;
  const double angle = std::numbers::pi * FractionOf(2.0 * Phase(t, period));
  const double slowness = kTwoPi * (constant / period);  // the time constant in radians
  const double end = std::numbers::pi - std::atan(slowness);
  const double peak = std::sin(end);
  if (angle >= end) return peak * std::exp(-(angle - end) / slowness);
  const double held = peak * std::exp(-(angle + std::numbers::pi - end) / slowness);
  const double sine = std::sin(angle);
  return sine < held ? held : sine;
}

// A sine of the given frequency that starts anew every period and decays with the time constant.
double Ring(double t, double period, double frequency, double constant) {
  if (!(constant > 0.0)) return kNoNumber;
  const double elapsed = Phase(t, period) * period;
  return std::exp(-elapsed / constant) * SineOf(frequency, elapsed);
}

// A sine carrier, its amplitude 1 + depth * sine of the signal.
double AmplitudeModulation(double t, double carrier, double signal, double depth) {
  return (1.0 + depth * SineOf(signal, t)) * SineOf(carrier, t);
}

// A sine carrier, its phase advanced by index * sine of the signal.
double FrequencyModulation(double t, double carrier, double signal, double index) {
  const double product = carrier * t;
  const double error = std::fma(carrier, t, -product);
  return std::sin(kTwoPi * (std::remainder(product, 1.0) + error) + index * SineOf(signal, t));
}

constexpr std::array kFunctions = {
    Special<Triangle>("wtri", 103),
    Special<Square>("wsqr", 104),
    Special<Saw>("wsaw", 105),
    Special<RisingRamp>("wraise", 106),
    Special<Parabola>("wparab", 107),
    Special<Rectangle>("wrect", 208),
    Special<Trapezoid>("wtrapez", 209),
    Special<Linear>("wlin", 210),
    Special<Pulse>("wpulse", 211),
    Special<Steps>("wsteps", 212),
    Special<Exponential>("wexp", 213),
    Special<BipolarExponential>("wexpb", 214),
    Special<PulseOfFrequency>("wpulsef", 215),
    Special<Ripple>("wripple", 216),
    Special<Ring>("wring", 217),
    Special<AmplitudeModulation>("wam", 218),
    Special<FrequencyModulation>("wfm", 219),
};

}  // namespace

FunctionFamily WaveformFunctions() { return kFunctions; }

}  // namespace zentab::mathparser
