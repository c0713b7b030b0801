#include <array>

#include "mathparser/function_catalogue.h"
#include "mathparser/operations.h"

namespace zentab::mathparser {
namespace {

constexpr std::array kFunctions = {
    One<[](double a, double) { return Truth(a == 0.0); }>("not", 44),
    Two<[](double a, double b) { return Truth(a != 0.0 && b != 0.0); }>("and", 42),
    Two<[](double a, double b) { return Truth(a != 0.0 || b != 0.0); }>("or", 43),
    Two<[](double a, double b) { return Truth((a != 0.0) != (b != 0.0)); }>("xor", 45),
    Two<[](double a, double b) { return Truth(a == 0.0 || b == 0.0); }>("nand", 72),
    Two<[](double a, double b) { return Truth(a == 0.0 && b == 0.0); }>("nor", 73),
    Two<[](double a, double b) { return Truth((a != 0.0) == (b != 0.0)); }>("nxor", 74),
};

}  // namespace

FunctionFamily LogicFunctions() { return kFunctions; }

}  // namespace zentab::mathparser
