#pragma once

/// Marks what a host may link against. Everything else stays hidden inside the shared library.
#if defined(VRK_BUILDING)
#define VRK_EXPORT __attribute__((visibility("default")))
#else
#define VRK_EXPORT
#endif
