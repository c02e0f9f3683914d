#pragma once

/// \file
/// `Message`: something that the service tells out of band.

#include <VanticRestKit/lumeno/Link/Link.h>
#include <VanticRestKit/platform/json/PlanDeclaration.h>
#include <VanticRestKit/Visibility.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace VanticRestKit {

/// Something that the service tells the application out of band. Any JSON object decodes into one.
struct Message {
    /// Key `id`; empty if absent or not a whole number that is not negative.
    std::optional<std::uint64_t> messageId{};
    /// The title. Key `title`; empty if absent or not a string.
    std::optional<std::string> title{};
    /// Key `count`; empty if absent or not a whole number that is not negative.
    std::optional<std::uint64_t> count{};
    /// Key `interval`; empty if absent or not a number.
    std::optional<double> interval{};
    /// The text of the message. Key `message`; empty if absent or not a string.
    std::optional<std::string> message{};
    /// One that does not decode empties the list.
    std::vector<Link> links{};

    friend bool operator==(const Message&, const Message&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<Message>();

}  // namespace VanticRestKit
