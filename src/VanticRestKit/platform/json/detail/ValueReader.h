#pragma once

#include <VanticRestKit/platform/json/detail/TypePlan.h>
#include <VanticRestKit/platform/json/MemoryBudget.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace VanticRestKit::json {

using namespace mapping;  // the plans

/// What reading a value came to. An unfit value is still ahead; a broken document ends everything.
enum class Fit : std::uint8_t { fits, unfit, broken };

/// Reads values that hold no others, for both engines.
class ValueReader {
public:
    /// Strings that it stores are counted in `memory`.
    ValueReader(const char* at, const char* end, MemoryBudget& memory)
        : at_(at), end_(end), memory_(&memory) {}

    /// Reads the value ahead into its place. `optional` tells how to open a place that is a std::optional; null
    /// for any other. A place that does not get a value keeps the one it has, or none.
    Fit plain(const TypePlan& type, void* place, const FieldOps* optional);

    /// The text ahead; a view of the document or of a buffer that the next call reuses. `mayReadOn` tells that
    /// the bytes behind the view can be read.
    Fit readText(std::string_view& text, bool& mayReadOn);

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
