#pragma once

/// \file
/// `ContextualPhrases`: words that describe a programme, grouped by kind.

#include <VanticRestKit/platform/json/PlanOf.h>
#include <VanticRestKit/Visibility.h>

#include <optional>
#include <string>
#include <vector>

namespace VanticRestKit {

/// Words that describe a programme, grouped by kind. A group that the service does not send is empty, which is
/// not the same as a group without words. A group of another type fails the decoding.
struct ContextualPhrases {
    std::optional<std::vector<std::string>> channel{};
    std::optional<std::vector<std::string>> genre{};
    std::optional<std::vector<std::string>> subGenre{};
    std::optional<std::vector<std::string>> theme{};
    std::optional<std::vector<std::string>> mood{};
    std::optional<std::vector<std::string>> audience{};
    std::optional<std::vector<std::string>> need{};
    std::optional<std::vector<std::string>> other{};

    friend bool operator==(const ContextualPhrases&, const ContextualPhrases&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<ContextualPhrases>();

}  // namespace VanticRestKit
