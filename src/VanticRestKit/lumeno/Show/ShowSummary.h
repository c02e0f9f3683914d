#pragma once

/// \file
/// `ShowSummary`: the little that a list of shows needs of each.

#include <VanticRestKit/Core/lumenoSDKError.h>
#include <VanticRestKit/Core/Required.h>
#include <VanticRestKit/lumeno/Show/Show.h>
#include <VanticRestKit/platform/date/Date.h>
#include <VanticRestKit/platform/json/Fresh.h>
#include <VanticRestKit/platform/json/PlanDeclaration.h>
#include <VanticRestKit/platform/result/Result.h>
#include <VanticRestKit/Visibility.h>

#include <cstddef>
#include <optional>
#include <string>

namespace VanticRestKit {

/// The little that a list of shows needs of each. Made from a show that has an id, a date, a link and a
/// thumbnail; never read from JSON.
///
/// Two summaries are equal where their `href` is the same with case left out. Their hash takes the case in: equal
/// summaries may hash apart, and a hashed set may hold both.
struct VRK_EXPORT ShowSummary {
    /// The arguments, by label.
    struct Arguments {
        /// The show to summarise.
        Required<Show> fromShow;
    };
    /// `ShowSummary::make({.fromShow = show})`. Fails with `initializationError` where the show has no id, date,
    /// link or thumbnail. A text without characters is there.
    static Result<ShowSummary, lumenoSDKError> make(const Arguments& arguments);

    /// For decoders alone.
    explicit ShowSummary(mapping::Fresh) {}

    /// Not the show's id, and the same for nearly every show: `href` tells summaries apart.
    std::string id{};
    /// "_" where the show has none.
    std::string title{};
    /// "_" where the show has none, whatever its title.
    std::string displayTitle{};
    /// The show's `updated`.
    Date updated{};
    /// The path of the show, below the API's version prefix.
    std::string href{};
    /// The show's `thumbnail`.
    std::string thumbnail{};
    /// The show's `portraitThumbnail`; empty if it has none.
    std::optional<std::string> portraitThumbnailHref{};
    /// The show's `character1Thumbnail`; empty if it has none.
    std::optional<std::string> characterThumbnaiHref{};
    /// The show's `derivedShowSlug`; empty if it has none.
    std::optional<std::string> derivedShowSlug{};

    /// Whether both have the same `href`, with case left out.
    friend VRK_EXPORT bool operator==(const ShowSummary& a, const ShowSummary& b);
};

/// Nobody makes a summary but from a show.
template <>
inline constexpr bool mapping::isOnlyShown<ShowSummary> = true;

namespace detail {

/// The summary of `show`, made without a copy of it; empty where the show cannot give one.
std::optional<ShowSummary> summaryOf(const Show& show);

}  // namespace detail

/// For looking at summaries.
template <>
VRK_EXPORT const TypePlan& planOf<ShowSummary>();

}  // namespace VanticRestKit

/// The hash of the `href` as it stands, its case included.
template <>
struct std::hash<VanticRestKit::ShowSummary> {
    /// The hash.
    std::size_t operator()(const VanticRestKit::ShowSummary& summary) const noexcept {
        return std::hash<std::string>()(summary.href);
    }
};
