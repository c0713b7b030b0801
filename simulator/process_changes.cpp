#include "process_changes.h"

#include <cfenv>
#include <clocale>
#include <csignal>
#include <string>
#include <thread>

#ifdef _WIN32
#include <float.h>
#include <windows.h>
#else
#include <dlfcn.h>
#endif

namespace simulator {
namespace {

#ifdef _WIN32
void Unmask() {
  unsigned state = 0;
  _controlfp_s(&state, _EM_INEXACT | _EM_UNDERFLOW | _EM_DENORMAL | _EM_OVERFLOW, _MCW_EM);
}

void RunOneEvent() {
  MSG message;
  if (!PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) return;
  TranslateMessage(&message);
  DispatchMessageW(&message);
}
#else
void Unmask() {
#ifdef __GLIBC__
  ::feenableexcept(FE_DIVBYZERO | FE_INVALID);
#endif
}

// The loop of GLib, in which Qt takes part, as any other library of the process might run it.
void RunOneEvent() {
  using Iteration = int (*)(void* context, int mayBlock);
  static const auto iteration =
      reinterpret_cast<Iteration>(::dlsym(RTLD_DEFAULT, "g_main_context_iteration"));
  if (iteration != nullptr) iteration(nullptr, 0);
}
#endif

}  // namespace

void ChangeArithmetic() {
  std::fesetround(FE_UPWARD);
  std::feraiseexcept(FE_UNDERFLOW);
  Unmask();
}

void ChangeLocale() {
  const std::string before = std::setlocale(LC_ALL, nullptr);
  for (const char* const name : {"de_DE.UTF-8", "C.UTF-8", "C", ""}) {
    const char* const now = std::setlocale(LC_ALL, name);
    if (now != nullptr && before != now) return;
  }
}

void IgnoreSignals() {
  for (const int signal : {SIGTERM, SIGINT, SIGFPE}) std::signal(signal, SIG_IGN);
#ifndef _WIN32
  std::signal(SIGHUP, SIG_IGN);
#endif
}

void RunWindowEvents(std::chrono::milliseconds time) {
  const auto end = std::chrono::steady_clock::now() + time;
  while (std::chrono::steady_clock::now() < end) {
    RunOneEvent();
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
}

}  // namespace simulator
