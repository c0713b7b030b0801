#pragma once

#include <chrono>

// What a module may do to the process that it is loaded into.
namespace simulator {

/// Division by zero and invalid operations trap, numbers are rounded up, a flag is raised.
void ChangeArithmetic();

/// Another locale than the process has, where the system has another one.
void ChangeLocale();

/// The signals that end a program do nothing any more.
void IgnoreSignals();

/// A loop of the module's own in which the process's windows get their events, for so long.
void RunWindowEvents(std::chrono::milliseconds time);

}  // namespace simulator
