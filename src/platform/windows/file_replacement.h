#pragma once

#include <filesystem>
#include <system_error>

namespace zentab::platform {

/// Whether something stands under the name. What is about to be removed lets nobody ask for its
/// attributes, but its folder still lists it.
[[nodiscard]] bool IsNamed(const std::filesystem::path& path);

/// Gives a new file the access list of another one where that is more than what its folder hands
/// down; FileError::AccessListNotKept when it cannot. A missing model has none.
[[nodiscard]] std::error_code CopyAccessList(const std::filesystem::path& model,
                                             const std::filesystem::path& file);

/// Gives the file `from` the name `to`. One that is there passes on its access list, attributes and
/// further streams; it may be open to readers who share deletion. Fails with
/// FileError::OpenElsewhere while others have opened it in another way. Meanwhile the former file
/// is `to`.replaced, or `to`.replaced2 and so on where somebody still reads one of those before it,
/// and when the system stops in between, it is found there.
[[nodiscard]] std::error_code TakeName(const std::filesystem::path& from,
                                       const std::filesystem::path& to);

}  // namespace zentab::platform
