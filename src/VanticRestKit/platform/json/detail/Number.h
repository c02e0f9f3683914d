#pragma once

// Parses number tokens.

#include <cstdint>
#include <optional>

namespace VanticRestKit::json {

// Each parses a complete token, as `scanNumber` finds it, and returns no value if it is malformed or out of the type's
// range. Integers may be written with a fraction or an exponent: 1.0, 10e-1.

std::optional<std::uint64_t> readUnsigned(const char* from, const char* to) noexcept;
std::optional<std::int64_t> readInteger(const char* from, const char* to) noexcept;
std::optional<double> readNumber(const char* from, const char* to) noexcept;

}  // namespace VanticRestKit::json
