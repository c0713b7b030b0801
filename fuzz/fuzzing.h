#pragma once

#include <fcntl.h>
#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>

namespace zentab::fuzz {

/// The bytes of one run. What a target needs beside its text stands in lines before it, so that
/// inputs can be read and changed by hand.
inline std::string_view InputOf(const std::uint8_t* data, std::size_t size) {
  return size == 0 ? std::string_view()
                   : std::string_view(reinterpret_cast<const char*>(data), size);
}

/// Takes what stands before the next `separator`, and that with it, off the front of `input`.
inline std::string_view Take(std::string_view& input, char separator) {
  const std::size_t end = input.find(separator);
  const std::string_view part = input.substr(0, end);
  input = end == std::string_view::npos ? std::string_view() : input.substr(end + 1);
  return part;
}

inline std::string_view TakeLine(std::string_view& input) { return Take(input, '\n'); }

/// Ends the run as a fault unless a property holds.
inline void Require(bool holds, const char* property) {
  if (holds) return;
  std::fprintf(stderr, "Does not hold: %s\n", property);
  std::abort();
}

/// An empty folder for the files of this process; it goes when the process ends by itself.
class Folder {
 public:
  Folder() {
    std::string name = (std::filesystem::temp_directory_path() / "zentab-fuzz-XXXXXX").string();
    Require(::mkdtemp(name.data()) != nullptr, "a temporary folder can be made");
    path_ = name;
  }
  ~Folder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;

  [[nodiscard]] const std::filesystem::path& Path() const { return path_; }

  /// Writes a file of the folder; its full path.
  std::filesystem::path Write(std::string_view name, std::string_view bytes) const {
    std::filesystem::path file = path_ / name;
    const int descriptor = ::open(file.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    const auto written = ::write(descriptor, bytes.data(), bytes.size());
    Require(written == static_cast<ssize_t>(bytes.size()) && ::close(descriptor) == 0,
            "a temporary file is written");
    return file;
  }

 private:
  std::filesystem::path path_;
};

}  // namespace zentab::fuzz
