#pragma once

/// \file
/// The types of the services' documents, by name.

#include <platform/json/Decoding.h>
#include <string_view>
#include <vector>

namespace VanticRestKit::test {

struct NamedType {
    /// The name in the file names of golden documents: a list of images is an "ImageList".
    std::string_view name;
    DecodableType type;
    /// The same type as a `std::optional`, and the list of such optionals.
    DecodableType optional;
    DecodableType optionals;
};

/// All root types. Add new ones at the end, since inputs of the fuzzer select a type by its index.
const std::vector<NamedType>& rootEntities();

/// The entities that occur only inside the root types.
const std::vector<NamedType>& nestedEntities();

}  // namespace VanticRestKit::test
