#pragma once

// How a module's operations are exported: by the .def file on Windows, by visibility elsewhere.
#ifdef _WIN32
#define MODULE_EXPORT extern "C"
#define MODULE_CALL __stdcall
#else
#define MODULE_EXPORT extern "C" __attribute__((visibility("default")))
#define MODULE_CALL
#endif
