#pragma once

/// \file
/// `JSONDecoder`: from the bytes of a JSON document to a value.

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

/// Decodes JSON documents by the mapping tables of their types. It is small and costs nothing to make or to copy; any
/// number of threads may use one.
class VRK_EXPORT JSONDecoder {
public:
    /// 1 GiB: a document of 100 MB stays well within it, since entities take a few times their JSON, and one that is
    /// made to fill memory does not: an empty element is three bytes of JSON and, as a `Show`, thousands in memory.
    static constexpr std::uint64_t defaultMemoryBudget = std::uint64_t{1} << 30;

    /// How a decoder decodes.
    struct Settings {
        /// How much memory a decoded value may hold, in bytes: what its lists reserve, its strings of more than 15
        /// bytes, and what it holds by pointer. A document beyond it fails as a whole. Growing a list takes up to as
        /// much again for a moment.
        std::uint64_t memoryBudget = defaultMemoryBudget;
    };

    JSONDecoder() = default;
    /// `JSONDecoder({.memoryBudget = 64 << 20})`.
    explicit JSONDecoder(Settings settings) : memoryBudget_(settings.memoryBudget) {}

    /// Decodes a T: an entity, a list of one, a bare text, number or truth value, or a `std::optional` of any of
    /// them, for which a null document is an empty value.
    ///
    /// Errors: a `DecodingError` with the path of the fault that comes first in decode order, or the entity's own
    /// `DecodingError` where it is of another kind. A document that is no JSON, or whose value exceeds the memory
    /// budget, is `dataCorrupted` at the empty path, which no lenient row swallows. The whole document is validated.
    /// Arrays and objects may lie 512 deep; a document of any depth is safe on a small stack.
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

    /// Decodes a type that is known by its plan alone, for tools that are told it at run time. `value` points to
    /// a fresh value of that type; where the document does not decode it may hold anything, and `diagnose` says
    /// why.
    bool decode(const Data& document, const TypePlan& plan, void* value) const;

private:
    std::optional<Error> whyNot(const Data& document, const TypePlan& plan, void* value) const;

    std::uint64_t memoryBudget_ = defaultMemoryBudget;
};

}  // namespace VanticRestKit
