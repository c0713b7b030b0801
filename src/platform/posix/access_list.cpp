#include "platform/posix/access_list.h"

#include <endian.h>
#include <grp.h>
#include <linux/posix_acl.h>
#include <linux/posix_acl_xattr.h>
#include <pwd.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <optional>

namespace zentab::platform {
namespace {

constexpr unsigned kAllRights = ACL_READ | ACL_WRITE | ACL_EXECUTE;

std::optional<std::vector<gid_t>> GroupsOf(uid_t user) {
  passwd account{};
  passwd* found = nullptr;
  std::vector<char> texts(1024);
  int error = 0;
  while ((error = ::getpwuid_r(user, &account, texts.data(), texts.size(), &found)) == ERANGE) {
    texts.resize(texts.size() * 2);
  }
  if (error != 0 || found == nullptr) return std::nullopt;
  int count = 64;
  std::vector<gid_t> groups(static_cast<std::size_t>(count));
  // Said to be too few, the count tells how many there are; it must not shrink in a loop.
  while (::getgrouplist(account.pw_name, account.pw_gid, groups.data(), &count) < 0) {
    count = std::max(count, static_cast<int>(groups.size()) * 2);
    groups.resize(static_cast<std::size_t>(count));
  }
  groups.resize(static_cast<std::size_t>(count));
  return groups;
}

}  // namespace

AccessList::AccessList(std::string_view attribute, const struct stat& file) {
  if (attribute.empty()) {
    entries_ = {{ACL_USER_OBJ, (file.st_mode >> 6) & kAllRights, 0},
                {ACL_GROUP_OBJ, (file.st_mode >> 3) & kAllRights, 0},
                {ACL_OTHER, file.st_mode & kAllRights, 0}};
    return;
  }
  posix_acl_xattr_entry entry{};
  for (std::size_t at = sizeof(posix_acl_xattr_header); at + sizeof(entry) <= attribute.size();
       at += sizeof(entry)) {
    std::memcpy(&entry, attribute.data() + at, sizeof(entry));
    entries_.push_back({le16toh(entry.e_tag), le16toh(entry.e_perm), le32toh(entry.e_id)});
  }
}

unsigned AccessList::RightsOf(unsigned tag, unsigned missing) const {
  const auto found = std::find_if(entries_.begin(), entries_.end(),
                                  [tag](const Entry& entry) { return entry.tag == tag; });
  return found == entries_.end() ? missing : found->rights;
}

// The order of the system's own check: a named user, then any of the groups, then all others.
bool AccessList::ServesFormerOwner(const struct stat& file) const {
  const unsigned wanted = RightsOf(ACL_USER_OBJ, 0) & (ACL_READ | ACL_WRITE);
  const unsigned mask = RightsOf(ACL_MASK, kAllRights);
  const auto serves = [wanted](unsigned rights) { return (rights & wanted) == wanted; };
  for (const Entry& entry : entries_) {
    if (entry.tag == ACL_USER && entry.id == file.st_uid) return serves(entry.rights & mask);
  }
  const auto groups = GroupsOf(file.st_uid);
  if (!groups) return true;
  bool isMember = false;
  for (const Entry& entry : entries_) {
    if (entry.tag != ACL_GROUP_OBJ && entry.tag != ACL_GROUP) continue;
    const gid_t group = entry.tag == ACL_GROUP ? entry.id : file.st_gid;
    if (std::find(groups->begin(), groups->end(), group) == groups->end()) continue;
    isMember = true;
    if (serves(entry.rights & mask)) return true;
  }
  return !isMember && serves(RightsOf(ACL_OTHER, 0));
}

}  // namespace zentab::platform
