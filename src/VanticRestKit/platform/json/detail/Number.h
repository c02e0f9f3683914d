#pragma once

// What number tokens spell.

#include <cstdint>
#include <optional>

namespace VanticRestKit::json {

// Each takes a whole token, as `scanNumber` finds it, and is empty if the token is not a well-formed number, or
// not one that the type can hold. Whole numbers may be spelled with a fraction or an exponent: 1.0, 10e-1.

std::optional<std::uint64_t> readUnsigned(const char* from, const char* to) noexcept;
std::optional<std::int64_t> readInteger(const char* from, const char* to) noexcept;
std::optional<double> readNumber(const char* from, const char* to) noexcept;

}  // namespace VanticRestKit::json
