#pragma once

// gkBaseCore knows no Qt, so it carries its own export macro.
#if defined(_WIN32)
#if defined(gkBaseCore_EXPORTS)
#define GKBASECORE_EXPORT __declspec(dllexport)
#else
#define GKBASECORE_EXPORT __declspec(dllimport)
#endif
#else
#define GKBASECORE_EXPORT __attribute__((visibility("default")))
#endif
