#pragma once

/// \file
/// What the scanner asks of a block of bytes, with the instructions of the processor at hand: SSE2, NEON, or none. With
/// `VRK_FORCE_SCALAR` defined, none.
///
/// Each form has the same functions. `Data::padding` bytes after the document are readable.
///   stops           a bit for each byte of the block that is a quote, a backslash, a control character or not ASCII
///   stopsOfHalf     the same for half a block, as bits that only `firstOfHalf` can read
///   firstOfHalf     the index of the first of those bytes; there is one
///   quotes          a bit for each quote of the block
///   startsWith      whether the bytes at `at` are those of a `Prefix`

#if defined(VRK_FORCE_SCALAR)
#include <VanticRestKit/platform/json/detail/ScanBlockScalar.h>
#elif defined(__SSE2__)
#include <VanticRestKit/platform/json/detail/ScanBlockSSE2.h>
#define VRK_SCAN_FORM sse2
#elif defined(__ARM_NEON) && !defined(__ARM_BIG_ENDIAN)
#include <VanticRestKit/platform/json/detail/ScanBlockNEON.h>
#define VRK_SCAN_FORM neon
#else
#include <VanticRestKit/platform/json/detail/ScanBlockScalar.h>
#endif
#if !defined(VRK_SCAN_FORM)
#define VRK_SCAN_FORM scalar
#endif

namespace VanticRestKit::json::scan {

using VRK_SCAN_FORM::firstOfHalf;
using VRK_SCAN_FORM::quotes;
using VRK_SCAN_FORM::startsWith;
using VRK_SCAN_FORM::stops;
using VRK_SCAN_FORM::stopsOfHalf;

}  // namespace VanticRestKit::json::scan

#undef VRK_SCAN_FORM
