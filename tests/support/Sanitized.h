#pragma once

/// \file
/// VRK_IS_SANITIZED: whether this is built with a sanitizer that makes everything many times slower.

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define VRK_IS_SANITIZED 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
#define VRK_IS_SANITIZED 1
#endif
#endif
