#pragma once

#include <filesystem>
#include <span>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "platform/file_layer.h"

namespace zentab::texts {

// A text catalogue is a text file whose lines hold a key, in any place, and its text between the
// first "{" and the first "}". A key is found in the first line that contains it as a part,
// letters compared without case: a shorter key also finds the line of a longer one that it is a
// part of. Which line comes first decides, so catalogues list the shorter key first.

/// The catalogue that lies beside an executable and has its name.
[[nodiscard]] std::filesystem::path DefaultCatalogue(const std::filesystem::path& executable);

/// The text of a key (ASCII) in a catalogue; empty when no line has the key, or its line has no
/// "}" or has it before the "{". A line without "{" gives all that stands before its "}". The file
/// is opened and searched anew at each call; an empty path means the default catalogue of the
/// running program. Fails, with an empty text, when the file is missing or cannot be read.
[[nodiscard]] std::error_code LookupText(platform::FileLayer& files, std::string_view key,
                                         const std::filesystem::path& file, std::string& text);

/// What LookupText gives for each of the keys (of two characters or more), in their order, from
/// one reading of the file.
[[nodiscard]] std::error_code LookupTexts(platform::FileLayer& files,
                                          std::span<const std::string> keys,
                                          const std::filesystem::path& file,
                                          std::vector<std::string>& texts);

/// The text without its access-key markers. A marker behind the first character drops what the
/// result held so far: A&B&C gives BC. Catalogues rely on it.
[[nodiscard]] std::string StripAmpersands(std::string_view text);

}  // namespace zentab::texts
