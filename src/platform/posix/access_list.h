#pragma once

#include <sys/stat.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zentab::platform {

/// The extended attribute in which Linux hands out a file's access list (POSIX.1e draft 17).
inline constexpr const char* kAccessList = "system.posix_acl_access";

/// Who may do what with a file.
class AccessList {
 public:
  /// The list in the bytes of that attribute or, when there are none, in the mode.
  AccessList(std::string_view attribute, const struct stat& file);

  /// Whether a former owner could still read and write, as far as he could as the owner, when the
  /// file belonged to someone else. A user whose groups the system does not know is taken for a
  /// member of any.
  [[nodiscard]] bool ServesFormerOwner(const struct stat& file) const;

 private:
  struct Entry {
    unsigned tag, rights;
    std::uint32_t id;
  };
  [[nodiscard]] unsigned RightsOf(unsigned tag, unsigned missing) const;

  std::vector<Entry> entries_;
};

}  // namespace zentab::platform
