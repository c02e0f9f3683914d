#pragma once

#include <VanticRestKit/platform/json/detail/TypePlan.h>
#include <VanticRestKit/platform/json/MemoryBudget.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace VanticRestKit::json {

using namespace mapping;  // the plans

/// The result of reading a value. After `unfit` the position is still before the value; `broken` ends the decode.
enum class Fit : std::uint8_t { fits, unfit, broken };

/// Reads values that contain no others, for both engines.
class ValueReader {
public:
    /// Stored strings are counted in `memory`.
    ValueReader(const char* at, const char* end, MemoryBudget& memory)
        : at_(at), end_(end), memory_(&memory) {}

    /// Reads the next value into `place`. `optional` has the operations of a std::optional, and is null if `place` is
    /// not one. If the value does not fit, `place` is not changed, except by a host's conversion function.
    Fit plain(const TypePlan& type, void* place, const FieldOps* optional);

    /// Reads the next string; `text` is a view of the document or of a buffer that the next call reuses. `isPlain`: it
    /// is a plain token of the document, so the bytes after it are readable.
    Fit readText(std::string_view& text, bool& isPlain);

protected:
    Fit textInto(void* place, bool isOptional);
    Fit convertedInto(const TypePlan& type, void* place, const FieldOps* optional);
    Fit decimalOrTextInto(void* place, bool isOptional);

    const char* at_;
    const char* end_;
    MemoryBudget* memory_;
    std::string scratch_;
};

}  // namespace VanticRestKit::json
