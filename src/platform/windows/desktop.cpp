#include "platform/desktop.h"

#include <windows.h>

namespace zentab::platform {

bool WantsDarkWindows() {
  DWORD light = 1;
  DWORD size = sizeof light;
  const LSTATUS status = RegGetValueW(
      HKEY_CURRENT_USER, L"Software\\Microsoft\\Windows\\CurrentVersion\\Themes\\Personalize",
      L"AppsUseLightTheme", RRF_RT_REG_DWORD, nullptr, &light, &size);
  return status == ERROR_SUCCESS && light == 0;
}

// With the frames that the apps mode asks for.
const char* DisplayForWindows() { return "windows:darkmode=1"; }

const char* DisplayWithoutWindows() { return "windows"; }

}  // namespace zentab::platform
