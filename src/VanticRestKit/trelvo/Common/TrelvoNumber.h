#pragma once

/// \file
/// `TrelvoNumber`: a whole number as an argument of an operation of `Trelvo`.

#include <concepts>
#include <cstdint>
#include <limits>
#include <optional>

namespace VanticRestKit {

/// A whole number as an argument of an operation of `Trelvo`. The service expects signed numbers, but the ids and
/// durations of entities are unsigned. Both convert to this type, so that `.showId = *show->showId` needs no cast.
///
/// If the number is out of the signed range, the operation completes with `TrelvoError::unknown`. Floating-point
/// numbers do not convert.
class TrelvoNumber {
public:
    /// Stores any integer; `value` is empty if it is out of the range of `std::int64_t`.
    template <std::integral T>
    requires(!std::same_as<T, bool> &&
             sizeof(T) <= sizeof(std::int64_t)) constexpr TrelvoNumber(T number) noexcept
        : value_(static_cast<std::int64_t>(number)),
          isInRange_(std::signed_integral<T> ||
                     static_cast<std::uint64_t>(number) <=
                         static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max())) {}

    /// The number; empty if it is out of the signed range.
    constexpr std::optional<std::int64_t> value() const noexcept {
        return isInRange_ ? std::optional(value_) : std::nullopt;
    }

private:
    std::int64_t value_;
    bool isInRange_;
};

}  // namespace VanticRestKit
