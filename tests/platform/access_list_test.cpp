#include "platform/posix/access_list.h"

#include <endian.h>
#include <gtest/gtest.h>
#include <linux/posix_acl.h>
#include <linux/posix_acl_xattr.h>
#include <sys/stat.h>

#include <cstring>
#include <vector>

namespace zentab::platform {
namespace {

constexpr id_t kNobodys = 4'000'000'000;  // the number of no user and of no group
constexpr id_t kRoot = 0;                 // a member of the group 0

struct Entry {
  unsigned short tag, rights;
  id_t id = 0;
};

std::string Attribute(const std::vector<Entry>& entries) {
  const posix_acl_xattr_header header = {htole32(POSIX_ACL_XATTR_VERSION)};
  std::string bytes(reinterpret_cast<const char*>(&header), sizeof header);
  for (const auto& [tag, rights, id] : entries) {
    const posix_acl_xattr_entry entry = {htole16(tag), htole16(rights), htole32(id)};
    bytes.append(reinterpret_cast<const char*>(&entry), sizeof entry);
  }
  return entries.empty() ? std::string() : bytes;
}

// What the file gives its owner he must have as someone else, too, once it belongs to another one.
TEST(AccessList, ServesTheFormerOwnerByTheFirstEntryThatIsHis) {
  const struct {
    id_t user, group;
    mode_t mode;
    std::vector<Entry> list;
    bool serves;
  } cases[] = {
      {kRoot, 0, 0660, {}, true},
      {kRoot, 0, 0640, {}, false},
      {kRoot, 0, 0646, {}, false},
      {kRoot, 0, 0440, {}, true},
      {kRoot, 0, 0750, {}, false},
      {kRoot, 0, 0560, {}, true},
      {kRoot, kNobodys, 0606, {}, true},
      {kRoot, kNobodys, 0664, {}, false},
      {kNobodys, 0, 0600, {}, true},
      {kRoot, 0, 0, {{ACL_USER_OBJ, 6}, {ACL_USER, 6, kRoot}, {ACL_MASK, 6}}, true},
      {kRoot, 0, 0, {{ACL_USER_OBJ, 6}, {ACL_USER, 6, kRoot}, {ACL_MASK, 4}}, false},
      {kNobodys, 0, 0, {{ACL_USER_OBJ, 6}, {ACL_USER, 4, kNobodys}, {ACL_OTHER, 6}}, false},
      {kRoot, 0, 0, {{ACL_USER_OBJ, 6}, {ACL_USER, 4, 7}, {ACL_GROUP_OBJ, 6}}, true},
      {kRoot, kNobodys, 0, {{ACL_USER_OBJ, 6}, {ACL_GROUP_OBJ, 4}, {ACL_GROUP, 6, 0}}, true},
      {kRoot,
       0,
       0,
       {{ACL_USER_OBJ, 6}, {ACL_GROUP_OBJ, 4}, {ACL_GROUP, 6, 7}, {ACL_OTHER, 6}},
       false},
      {kRoot, kNobodys, 0, {{ACL_USER_OBJ, 6}, {ACL_GROUP_OBJ, 6}, {ACL_OTHER, 4}}, false},
      {kRoot, kNobodys, 0, {{ACL_USER_OBJ, 6}, {ACL_GROUP_OBJ, 4}, {ACL_OTHER, 6}}, true},
  };
  int number = 0;
  for (const auto& [user, group, mode, list, serves] : cases) {
    struct stat file {};
    file.st_uid = user;
    file.st_gid = group;
    file.st_mode = mode;
    EXPECT_EQ(AccessList(Attribute(list), file).ServesFormerOwner(file), serves) << number;
    ++number;
  }
}

}  // namespace
}  // namespace zentab::platform
