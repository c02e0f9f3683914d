#pragma once

/// \file
/// The operations that the scanner needs on a block of bytes, with SSE2, NEON or scalar code, chosen by the target
/// processor. `VRK_FORCE_SCALAR` forces scalar code.
///
/// Each variant has the same functions. `Data::padding` bytes after the document are readable.
///   stops           a bit for each byte of the block that is a quote, a backslash, a control character or not ASCII
///   stopsOfHalf     the same for half a block, in a format that only `firstOfHalf` understands
///   firstOfHalf     the index of the first of those bytes; there must be one
///   quotes          a bit for each quote of the block
///   startsWith      whether the bytes at `at` are those of a `Prefix`

#if defined(VRK_FORCE_SCALAR)
#include <VanticRestKit/platform/json/detail/ScanBlockScalar.h>
#elif defined(__SSE2__)
#include <VanticRestKit/platform/json/detail/ScanBlockSSE2.h>
#define VRK_SCAN_VARIANT sse2
#elif defined(__ARM_NEON) && !defined(__ARM_BIG_ENDIAN)
#include <VanticRestKit/platform/json/detail/ScanBlockNEON.h>
#define VRK_SCAN_VARIANT neon
#else
#include <VanticRestKit/platform/json/detail/ScanBlockScalar.h>
#endif
#if !defined(VRK_SCAN_VARIANT)
#define VRK_SCAN_VARIANT scalar
#endif

namespace VanticRestKit::json::scan {

using VRK_SCAN_VARIANT::firstOfHalf;
using VRK_SCAN_VARIANT::quotes;
using VRK_SCAN_VARIANT::startsWith;
using VRK_SCAN_VARIANT::stops;
using VRK_SCAN_VARIANT::stopsOfHalf;

}  // namespace VanticRestKit::json::scan

#undef VRK_SCAN_VARIANT
