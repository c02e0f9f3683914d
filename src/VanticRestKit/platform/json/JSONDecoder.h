#pragma once

/// \file
/// `JSONDecoder`: decodes the bytes of a JSON document into a value.

#include <VanticRestKit/platform/data/Data.h>
#include <VanticRestKit/platform/error/Error.h>
#include <VanticRestKit/platform/json/Fresh.h>
#include <VanticRestKit/platform/json/PlanOf.h>
#include <VanticRestKit/platform/result/Result.h>
#include <VanticRestKit/Visibility.h>

#include <cstdint>
#include <optional>
#include <utility>

namespace VanticRestKit {

/// Decodes JSON documents by the mapping tables of their types. Cheap to construct and copy. Thread-safe.
class VRK_EXPORT JSONDecoder {
public:
    /// 1 GiB. A normal document of 100 MB stays well below it, because decoded entities take a few times the size of
    /// their JSON. A document built to exhaust memory does not: an empty element takes three bytes of JSON, but
    /// thousands of bytes in memory if it is a `Show`.
    static constexpr std::uint64_t defaultMemoryBudget = std::uint64_t{1} << 30;

    /// Settings of a decoder.
    struct Settings {
        /// The maximum memory that a decoded value may hold, in bytes: the capacity of its lists, its strings of more
        /// than 15 bytes, and what it holds by pointer. A document that exceeds it fails as a whole. While a list
        /// grows, up to twice as much is used temporarily. Capped at what a process can address, which is 2 GB on
        /// 32-bit systems.
        std::uint64_t memoryBudget = defaultMemoryBudget;
    };

    JSONDecoder() = default;
    /// `JSONDecoder({.memoryBudget = 64 << 20})`.
    explicit JSONDecoder(Settings settings) : memoryBudget_(settings.memoryBudget) {}

    /// Decodes a T: an entity, a list of entities, a single string, number or boolean, or a `std::optional` of any of
    /// these, which is empty for the document `null`.
    ///
    /// Errors: a `DecodingError` with the path of the first fault in decode order, or the entity's own `DecodingError`
    /// if the object names a different entity. A document that is not JSON, or whose value exceeds the memory budget,
    /// gives `dataCorrupted` at the empty path; no lenient row ignores that. The whole document is validated. Arrays
    /// and objects may be nested 512 deep; no document overflows a small stack.
    template <class T>
    requires(!mapping::isOnlyShown<T>) Result<T, Error> decode(const Data& document)
    const {
        {
            T value = mapping::detail::fresh<T>();
            if (decode(document, planOf<T>(), &value)) return value;
        }
        T second = mapping::detail::fresh<T>();
        std::optional<Error> error = whyNot(document, planOf<T>(), &second);
        if (error) return Failure(*std::move(error));
        return second;
    }

    /// Decodes a type that is known only by its plan, for tools that choose the type at run time. `value` points to a
    /// newly made value of that type. Returns whether decoding succeeded; if it did not, `value` is unspecified and
    /// `diagnose` gives the reason.
    bool decode(const Data& document, const TypePlan& plan, void* value) const;

private:
    std::optional<Error> whyNot(const Data& document, const TypePlan& plan, void* value) const;

    std::uint64_t memoryBudget_ = defaultMemoryBudget;
};

}  // namespace VanticRestKit
