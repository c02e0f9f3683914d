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
    /// The content, in the form of `RecsModuleContext::recContextURI`.
    std::string rid{};
    /// Not interpreted by the library.
    std::string recipeid{};

    /// The scheme of `rid`; empty where it has none that is known.
    std::optional<RecsContentSource> contentSource() const;
    /// The host of `rid`; empty where it has none that is known.
    std::optional<RecsContentType> contentType() const;
    /// The first part of the path of `rid` that has characters; empty where there is none.
    std::optional<std::string> contentId() const;

    friend bool operator==(const Recommendation&, const Recommendation&) = default;
};

template <>
VRK_EXPORT const TypePlan& planOf<Recommendation>();

}  // namespace VanticRestKit
