#pragma once

/// \file
/// `MixedCollectionType`: how a collection is to be laid out.

#include <VanticRestKit/platform/json/RawText.h>

namespace VanticRestKit {

/// How a collection is to be laid out.
enum class MixedCollectionType { standard, movie, featured };

template <>
struct RawTexts<MixedCollectionType> {
    static constexpr RawCase<MixedCollectionType> cases[] = {
        {MixedCollectionType::standard, "standard", "standard"},
        {MixedCollectionType::movie, "movie", "movie"},
        {MixedCollectionType::featured, "featured", "featured"},
    };
};

}  // namespace VanticRestKit
