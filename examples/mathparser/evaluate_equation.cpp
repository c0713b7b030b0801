// evaluate_equation "0.14/((i/2)^0.02-1)" i=20: compiles an equation and prints its value.

#include <cstdlib>
#include <iostream>
#include <string_view>

#include "mathparser/math_parser.h"

int main(int argc, char** argv) {
  zentab::mathparser::MathParser parser;
  if (!parser.StoreExpression(argc > 1 ? argv[1] : "")) {
    std::cerr << parser.ErrorDescription() << '\n';
    return EXIT_FAILURE;
  }
  for (int i = 2; i < argc; ++i) {
    const std::string_view assignment = argv[i];
    const std::size_t sign = assignment.find('=');
    if (sign == std::string_view::npos) continue;
    parser.VarSymb(assignment.substr(0, sign), std::atof(argv[i] + sign + 1));
  }
  try {
    std::cout << parser.Eval() << '\n';
  } catch (const zentab::mathparser::EvaluationError& error) {
    std::cerr << error.what() << '\n';
    return EXIT_FAILURE;
  }
  return EXIT_SUCCESS;
}
