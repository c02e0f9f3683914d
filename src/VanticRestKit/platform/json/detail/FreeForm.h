#pragma once

#include <VanticRestKit/platform/error/AnyValue.h>
#include <VanticRestKit/platform/json/MemoryBudget.h>

#include <string>
#include <vector>

namespace VanticRestKit::json {

/// A string or number that cannot be read.
struct BrokenMember {
    std::string key;
    const char* at;
};

/// Reads the object at `at`, whose structure is valid, into a dictionary: strings, integers, booleans and numbers with
/// a fraction. Other values, and values that cannot be read, are left out. Returns false if a key cannot be read or if
/// `memory`, which counts the members, is exhausted. If not null, `broken` receives the values that could not be read,
/// in document order.
bool readDictionary(const char* at, const char* end, Dictionary& values, MemoryBudget& memory,
                    std::vector<BrokenMember>* broken = nullptr);

}  // namespace VanticRestKit::json
