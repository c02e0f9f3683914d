#pragma once

#include <VanticRestKit/platform/error/AnyValue.h>
#include <VanticRestKit/platform/json/MemoryBudget.h>

#include <string>
#include <vector>

namespace VanticRestKit::json {

/// A text or a number whose inside is broken.
struct BrokenMember {
    std::string key;
    const char* at;
};

/// Reads the object at `at`, whose structure is sound, into a dictionary: texts, whole numbers, truth values and
/// numbers with a fraction. Values of other kinds, and such as cannot be read, are left out. False where a key
/// cannot be read, and where `memory`, in which its members are counted, is not enough. `broken`, if not null, is
/// told what could not be read, in the order of the document.
bool readDictionary(const char* at, const char* end, Dictionary& values, MemoryBudget& memory,
                    std::vector<BrokenMember>* broken = nullptr);

}  // namespace VanticRestKit::json
