#pragma once

/// \file
/// `Message`: a message of the service for the application.

#include <VanticRestKit/lumeno/Link/Link.h>
#include <VanticRestKit/platform/json/PlanDeclaration.h>
#include <VanticRestKit/Visibility.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace VanticRestKit {

/// A message of the service for the application. Any JSON object can be decoded.
struct Message {
    /// Key `id`; empty if absent or not a non-negative whole number.
    std::optional<std::uint64_t> messageId{};
    /// The title. Key `title`; empty if absent or not a string.
    std::optional<std::string> title{};
    /// Key `count`; empty if absent or not a non-negative whole number.
    std::optional<std::uint64_t> count{};
    /// Key `interval`; empty if absent or not a number.
    std::optional<double> interval{};
    /// The text of the message. Key `message`; empty if absent or not a string.
    std::optional<std::string> message{};
    /// An empty list if absent or if any element cannot be decoded.
    std::vector<Link> links{};

    friend bool operator==(const Message&, const Message&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<Message>();

}  // namespace VanticRestKit
