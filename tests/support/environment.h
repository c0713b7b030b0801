#pragma once

#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string>

namespace zentab::test {

/// Gives this process an environment variable, or takes it away, and puts it back at the end.
class Variable {
 public:
  Variable(const char* name, const std::optional<std::string>& value) : name_(name) {
    if (const char* const former = std::getenv(name)) former_ = former;
    Set(value);
  }
  ~Variable() { Set(former_); }
  Variable(const Variable&) = delete;
  Variable& operator=(const Variable&) = delete;

  void Set(const std::optional<std::string>& value) const {
#ifdef _WIN32
    _putenv_s(name_, value.value_or("").c_str());
#else
    value ? ::setenv(name_, value->c_str(), 1) : ::unsetenv(name_);
#endif
  }

 private:
  const char* name_;
  std::optional<std::string> former_;
};

}  // namespace zentab::test
