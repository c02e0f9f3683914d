#pragma once

/// \file
/// The types that documents of the services decode into, by name.

#include <platform/json/Decoding.h>
#include <string_view>
#include <vector>

namespace VanticRestKit::test {

struct NamedType {
    /// As golden documents are named after it: a list of images is an "ImageList".
    std::string_view name;
    DecodableType type;
    /// The same type as a `std::optional`, and the list of that.
    DecodableType optional;
    DecodableType optionals;
};

/// All of them. New ones go to the end: inputs of the fuzzer name a type by its place.
const std::vector<NamedType>& rootEntities();

/// The entities that occur only within those.
const std::vector<NamedType>& nestedEntities();

}  // namespace VanticRestKit::test
