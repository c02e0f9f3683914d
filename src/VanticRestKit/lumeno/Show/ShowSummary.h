#pragma once

/// \file
/// `ShowSummary`: the data of a show that a list needs.

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

/// The data of a show that a list needs. Created from a show with an id, a date, a link and a thumbnail; never decoded
/// from JSON.
///
/// Two summaries are equal if their `href` is equal ignoring case. The hash is case-sensitive, however: equal summaries
/// may have different hashes, and a hashed set may contain both.
struct VRK_EXPORT ShowSummary {
    /// The arguments of the constructor.
    struct Arguments {
        /// The show to summarise.
        Required<Show> fromShow;
    };
    /// `ShowSummary::make({.fromShow = show})`. Fails with `initializationError` if the show has no id, date, link or
    /// thumbnail; empty strings are accepted.
    static Result<ShowSummary, lumenoSDKError> make(const Arguments& arguments);

    /// Used only for decoding.
    explicit ShowSummary(mapping::Fresh) {}

    /// Not the id of the show, and the same for nearly every show; use `href` to distinguish summaries.
    std::string id{};
    /// "_" if the show has none.
    std::string title{};
    /// "_" if the show has none, even if it has a title.
    std::string displayTitle{};
    /// The show's `updated`.
    Date updated{};
    /// The path of the show, relative to the API's version prefix.
    std::string href{};
    /// The show's `thumbnail`.
    std::string thumbnail{};
    /// The show's `portraitThumbnail`; empty if it has none.
    std::optional<std::string> portraitThumbnailHref{};
    /// The show's `character1Thumbnail`; empty if it has none.
    std::optional<std::string> characterThumbnaiHref{};
    /// The show's `derivedShowSlug`; empty if it has none.
    std::optional<std::string> derivedShowSlug{};

    /// Whether both have the same `href`, ignoring case.
    friend VRK_EXPORT bool operator==(const ShowSummary& a, const ShowSummary& b);
};

/// A summary is only created from a show.
template <>
inline constexpr bool mapping::isOnlyShown<ShowSummary> = true;

namespace detail {

/// The summary of `show`, created without copying the show; empty if data is missing.
std::optional<ShowSummary> summaryOf(const Show& show);

}  // namespace detail

/// Only for printing summaries.
template <>
VRK_EXPORT const TypePlan& planOf<ShowSummary>();

}  // namespace VanticRestKit

/// The case-sensitive hash of the `href`.
template <>
struct std::hash<VanticRestKit::ShowSummary> {
    /// The hash.
    std::size_t operator()(const VanticRestKit::ShowSummary& summary) const noexcept {
        return std::hash<std::string>()(summary.href);
    }
};
