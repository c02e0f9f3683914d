#pragma once

/// \file
/// `Presence`: the first word of each row of a mapping table.

#include <cstdint>

namespace VanticRestKit {

/// What happens if the value of a key is absent, null or has the wrong type.
enum class Presence : std::uint8_t {
    required,   ///< Each of these makes the entity fail.
    optional,   ///< Absent or null leaves the field empty; a wrong type fails the entity.
    lenient,    ///< None of these is an error; the field keeps its default.
    defaulted,  ///< Absent or null leaves the default; a wrong type fails the entity.
};

}  // namespace VanticRestKit
