#include "platform/ascii.h"

#include <cstdint>
#include <cstring>

namespace zentab::platform {

bool IsAscii(std::string_view bytes) {
  std::uint64_t bits = 0;
  std::size_t at = 0;
  for (; at + sizeof bits <= bytes.size(); at += sizeof bits) {
    std::uint64_t word = 0;
    std::memcpy(&word, bytes.data() + at, sizeof word);
    bits |= word;
  }
  for (; at < bytes.size(); ++at) bits |= static_cast<unsigned char>(bytes[at]);
  return (bits & 0x8080808080808080u) == 0;
}

}  // namespace zentab::platform
