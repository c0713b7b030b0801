#include "muparser_bench.h"

namespace zentab::mathparser::bench {

void RegisterMuParser(const Formula&, const std::string&) {}

}  // namespace zentab::mathparser::bench
