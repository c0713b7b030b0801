#pragma once

#ifdef _WIN32
#include <windows.h>
// Behind the header that it needs.
#include <psapi.h>
#else
#include <sys/resource.h>
#endif

#include <cstdint>

namespace zentab::test {

/// The most memory that this process has had, in bytes.
inline std::int64_t MostMemory() {
#ifdef _WIN32
  PROCESS_MEMORY_COUNTERS counters{};
  K32GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
  return static_cast<std::int64_t>(counters.PeakWorkingSetSize);
#else
  rusage used{};
  getrusage(RUSAGE_SELF, &used);
  return std::int64_t{1024} * used.ru_maxrss;
#endif
}

}  // namespace zentab::test
