#pragma once

/// \file
/// VRK_IS_SANITIZED: whether this is built with a sanitizer that makes everything many times slower.
/// VRK_IS_SLOW: the same, or run in an emulator (VRK_IS_EMULATED), which is as slow.

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define VRK_IS_SANITIZED 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
#define VRK_IS_SANITIZED 1
#endif
#endif

#if defined(VRK_IS_SANITIZED) || defined(VRK_IS_EMULATED)
#define VRK_IS_SLOW 1
#endif
