#include "platform/posix/file_access.h"

#include <sys/xattr.h>
#include <unistd.h>

#include <cerrno>
#include <string>
#include <string_view>

#include "platform/file_errors.h"
#include "platform/posix/access_list.h"
#include "platform/posix/last_error.h"

namespace zentab::platform {
namespace {

namespace fs = std::filesystem;

// Access lists of NFS version 4, which every file there has.
constexpr const char* kNfsAccessList = "system.nfs4_acl";

// What a call that fills a buffer gives; asked with none, it tells the size.
template <class Call>
std::error_code Fill(std::string& bytes, Call call) {
  for (;;) {
    const ssize_t size = call(nullptr, 0);
    if (size < 0) return LastError();
    bytes.resize(static_cast<std::size_t>(size));
    const ssize_t filled = size == 0 ? 0 : call(bytes.data(), bytes.size());
    if (filled >= 0) {
      bytes.resize(static_cast<std::size_t>(filled));
      return {};
    }
    if (errno != ERANGE) return LastError();
  }
}

bool IsMissing(std::error_code error) {
  return error == std::errc::no_message_available || error == std::errc::not_supported ||
         error == std::errc::operation_not_supported || error == std::errc::function_not_supported;
}

// No attribute of that name, or no attributes at all, are no bytes.
std::error_code ReadAttribute(const fs::path& file, const char* name, std::string& value) {
  const std::error_code error = Fill(
      value, [&](char* to, std::size_t size) { return ::getxattr(file.c_str(), name, to, size); });
  if (!IsMissing(error)) return error;
  value.clear();
  return {};
}

bool GroupMatters(const struct stat& status, bool hasList) {
  constexpr mode_t kGroupToOthers = 3;
  const mode_t group = (status.st_mode & S_IRWXG) >> kGroupToOthers;
  return hasList || group != (status.st_mode & S_IRWXO);
}

// Only root may give a file away. For everyone else it becomes their own, but the group stays
// where they belong to it. It is set first: whoever is no longer the owner cannot.
std::error_code CopyOwner(const std::string& list, const struct stat& status, int descriptor) {
  struct stat own {};
  if (::fstat(descriptor, &own) != 0) return LastError();
  constexpr auto kSameOwner = static_cast<uid_t>(-1);
  constexpr auto kSameGroup = static_cast<gid_t>(-1);
  if (own.st_gid != status.st_gid && ::fchown(descriptor, kSameOwner, status.st_gid) != 0 &&
      GroupMatters(status, !list.empty())) {
    return FileError::GroupNotKept;
  }
  if (own.st_uid == status.st_uid || ::fchown(descriptor, status.st_uid, kSameGroup) == 0) {
    return {};
  }
  const bool serves = status.st_uid == 0 || AccessList(list, status).ServesFormerOwner(status);
  return serves ? std::error_code() : FileError::OwnerNotKept;
}

std::error_code DropAccessList(int descriptor) {
  if (::fremovexattr(descriptor, kAccessList) == 0) return {};
  const std::error_code error = LastError();
  return IsMissing(error) ? std::error_code() : error;
}

// A folder may have given the new file a list of its own.
std::error_code CopyAccessList(const std::string& list, int descriptor) {
  const bool isKept = list.empty()
                          ? !DropAccessList(descriptor)
                          : ::fsetxattr(descriptor, kAccessList, list.data(), list.size(), 0) == 0;
  return isKept ? std::error_code() : FileError::AccessListNotKept;
}

std::error_code CopyNfsAccessList(const fs::path& model, int descriptor) {
  std::string list, own;
  if (const auto error = ReadAttribute(model, kNfsAccessList, list)) return error;
  if (list.empty()) return {};
  const std::error_code error = Fill(own, [descriptor](char* to, std::size_t size) {
    return ::fgetxattr(descriptor, kNfsAccessList, to, size);
  });
  const bool isKept = (!error && own == list) ||
                      ::fsetxattr(descriptor, kNfsAccessList, list.data(), list.size(), 0) == 0;
  return isKept ? std::error_code() : FileError::AccessListNotKept;
}

std::error_code CopyAttributes(const fs::path& model, int descriptor) {
  std::string names, value;
  const std::error_code listing =
      Fill(names, [&](char* to, std::size_t size) { return ::listxattr(model.c_str(), to, size); });
  if (listing) return IsMissing(listing) ? std::error_code() : listing;
  for (std::size_t at = 0; at < names.size();) {
    const std::string name = names.c_str() + at;
    at += name.size() + 1;
    if (!name.starts_with("user.")) continue;
    const std::error_code reading = Fill(value, [&](char* to, std::size_t size) {
      return ::getxattr(model.c_str(), name.c_str(), to, size);
    });
    if (IsMissing(reading)) continue;
    if (reading) return reading;
    if (::fsetxattr(descriptor, name.c_str(), value.data(), value.size(), 0) != 0) {
      return LastError();
    }
  }
  return {};
}

}  // namespace

std::error_code CopyAccess(const fs::path& model, const struct stat& status, int descriptor) {
  std::string list;
  if (const auto error = ReadAttribute(model, kAccessList, list)) return error;
  // Before the rights are: a file that its owner may not write takes no attributes.
  if (const auto error = CopyAttributes(model, descriptor)) return error;
  if (const auto error = CopyOwner(list, status, descriptor)) return error;
  if (const auto error = CopyAccessList(list, descriptor)) return error;
  // Behind the owner, whose change clears some of the rights.
  if (::fchmod(descriptor, status.st_mode & 07777u) != 0 && errno != EPERM) return LastError();
  return CopyNfsAccessList(model, descriptor);
}

std::error_code GiveToEveryone(int descriptor) {
  constexpr mode_t kEveryone = 0666;
  if (const std::error_code error = DropAccessList(descriptor)) return error;
  return ::fchmod(descriptor, kEveryone) == 0 ? std::error_code() : LastError();
}

}  // namespace zentab::platform
