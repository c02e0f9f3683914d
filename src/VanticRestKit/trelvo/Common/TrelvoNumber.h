#pragma once

/// \file
/// `TrelvoNumber`: a whole number as an argument of an operation of `Trelvo`.

#include <concepts>
#include <cstdint>
#include <limits>
#include <optional>

namespace VanticRestKit {

/// A whole number as an argument of an operation of `Trelvo`. The service takes signed numbers, while the ids and
/// durations of entities are unsigned: both convert, so that `.showId = *show->showId` needs no cast.
///
/// An operation completes with `TrelvoError::unknown` if the number is beyond the signed range. A number with a
/// fraction does not convert.
class TrelvoNumber {
public:
    /// A number within the signed range of 64 bits.
    template <std::integral T>
    requires(!std::same_as<T, bool> &&
             sizeof(T) <= sizeof(std::int64_t)) constexpr TrelvoNumber(T number) noexcept
        : value_(static_cast<std::int64_t>(number)),
          isInRange_(std::signed_integral<T> ||
                     static_cast<std::uint64_t>(number) <=
                         static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max())) {}

    /// The number; empty if it is beyond the signed range.
    constexpr std::optional<std::int64_t> value() const noexcept {
        return isInRange_ ? std::optional(value_) : std::nullopt;
    }

private:
    std::int64_t value_;
    bool isInRange_;
};

}  // namespace VanticRestKit
