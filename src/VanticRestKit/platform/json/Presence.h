#pragma once

/// \file
/// `Presence`: how a row of a mapping table treats missing and wrong values.

#include <cstdint>

namespace VanticRestKit {

/// What happens if the value of a key is absent, null or has the wrong type.
enum class Presence : std::uint8_t {
    required,   ///< Each of these makes the entity fail.
    optional,   ///< Absent or null leaves the field empty; a wrong type makes the entity fail.
    lenient,    ///< None of these is an error; the field keeps its default.
    defaulted,  ///< Absent or null leaves the default; a wrong type makes the entity fail.
};

}  // namespace VanticRestKit
