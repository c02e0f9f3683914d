#pragma once

/// \file
/// `Recommendation`: one recommended piece of content.

#include <VanticRestKit/platform/json/PlanDeclaration.h>
#include <VanticRestKit/recs/RecsModuleContext.h>
#include <VanticRestKit/Visibility.h>

#include <optional>
#include <string>

namespace VanticRestKit {

/// One recommended piece of content.
struct VRK_EXPORT Recommendation {
    /// The URI of the content, as `RecsModuleContext::recContextURI` returns it.
    std::string rid{};
    /// The library does not interpret it.
    std::string recipeid{};

    /// The scheme of `rid`; empty if absent or unknown.
    std::optional<RecsContentSource> contentSource() const;
    /// The host of `rid`; empty if absent or unknown.
    std::optional<RecsContentType> contentType() const;
    /// The first non-empty path component of `rid`; empty if there is none.
    std::optional<std::string> contentId() const;

    friend bool operator==(const Recommendation&, const Recommendation&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<Recommendation>();

}  // namespace VanticRestKit
