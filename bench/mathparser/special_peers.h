#pragma once

#include <string>

namespace zentab::mathparser::bench {

/// A function of another library with the arguments of one of our keywords.
using Peer = double (*)(const double* arguments);

/// Boost.Math's, as its users call it (double in and out, errors given back as values); null where
/// it has none.
[[nodiscard]] Peer BoostPeer(const std::string& keyword);

/// The standard library's, null where it has none. May throw.
[[nodiscard]] Peer StandardPeer(const std::string& keyword);

}  // namespace zentab::mathparser::bench
