#include "mathparser/operand_documentation.h"

#include <array>

namespace zentab::mathparser {
namespace {

constexpr auto kConstants = std::to_array<OperandDocumentation>({
    {"pi", "π"},
    {"pi2#", "π/2"},
    {"pi3#", "π/3"},
    {"pi4#", "π/4"},
    {"e#", "base of the natural logarithm"},
    {"eu#", "Euler's constant"},
    {"phi#", "golden ratio"},
    {"g#", "standard gravity, m/s²"},
    {"G#", "constant of gravitation, m³/(kg s²)"},
    {"R#", "gas constant, J/(mol K)"},
    {"eps#", "permittivity of vacuum, F/m"},
    {"mu#", "permeability of vacuum, H/m"},
    {"c#", "speed of light, m/s"},
    {"q#", "elementary charge, C"},
    {"me#", "mass of the electron, kg"},
    {"mp#", "mass of the proton, kg"},
    {"mn#", "mass of the neutron, kg"},
    {"K#", "Boltzmann's constant, J/K"},
    {"h#", "Planck's constant, J s"},
    {"A#", "Avogadro's constant, 1/mol"},
});

constexpr auto kUnits = std::to_array<OperandDocumentation>({
    {"s", "second"},
    {"Hz", "hertz"},
    {"m", "metre"},
    {"g", "gram"},
    {"rad", "radian"},
    {"S", "siemens"},
    {"V", "volt"},
    {"A", "ampere"},
    {"W", "watt"},
    {"F", "farad"},
    {"bar", "bar"},
    {"Pa", "pascal"},
    {"Nm", "newton metre"},
    {"Ohm", "ohm"},
});

constexpr auto kPrefixes = std::to_array<OperandDocumentation>({
    {"p", "pico"},
    {"n", "nano"},
    {"u", "micro"},
    {"m", "milli"},
    {"c", "centi"},
    {"k", "kilo"},
    {"M", "mega"},
    {"G", "giga"},
    {"T", "tera"},
});

}  // namespace

std::span<const OperandDocumentation> DocumentedConstants() { return kConstants; }
std::span<const OperandDocumentation> DocumentedUnits() { return kUnits; }
std::span<const OperandDocumentation> DocumentedPrefixes() { return kPrefixes; }

}  // namespace zentab::mathparser
