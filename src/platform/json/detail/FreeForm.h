#pragma once

#include <VanticRestKit/platform/error/AnyValue.h>

namespace VanticRestKit::json {

/// Reads the object at `at`, whose structure is sound, into a dictionary: texts, whole numbers, truth values and
/// numbers with a fraction. Values of other kinds, and such as cannot be read, are left out. False where a key
/// cannot be read.
bool readDictionary(const char* at, const char* end, Dictionary& values);

}  // namespace VanticRestKit::json
