#include <VanticRestKit/lumeno/Show/ShowSummary.h>

#include <VanticRestKit/platform/json/Table.h>
#include <VanticRestKit/platform/text/detail/Format.h>
#include <VanticRestKit/platform/text/detail/LetterCase.h>

#include <utility>

namespace VanticRestKit {

template <>
const TypePlan& planOf<ShowSummary>() {
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<ShowSummary>(
        computed<&ShowSummary::id>(),
        computed<&ShowSummary::title>(),
        computed<&ShowSummary::displayTitle>(),
        computed<&ShowSummary::updated, deviceDate>(),
        computed<&ShowSummary::href>(),
        computed<&ShowSummary::thumbnail>(),
        computed<&ShowSummary::portraitThumbnailHref>(),
        computed<&ShowSummary::characterThumbnaiHref>(),
        computed<&ShowSummary::derivedShowSlug>());
    // clang-format on
    return plan;
}

std::optional<ShowSummary> detail::summaryOf(const Show& show) {
    if (!show.showId || !show.updated || !show.thumbnail || !show.selfHref) return std::nullopt;
    ShowSummary summary = mapping::detail::fresh<ShowSummary>();
    summary.id = detail::zeroFractionFormat(*show.showId);
    summary.title = show.title.value_or("_");
    summary.displayTitle = show.displayTitle.value_or("_");
    summary.updated = *show.updated;
    summary.href = *show.selfHref;
    summary.thumbnail = *show.thumbnail;
    summary.portraitThumbnailHref = show.portraitThumbnail;
    summary.characterThumbnaiHref = show.character1Thumbnail;
    summary.derivedShowSlug = show.derivedShowSlug();
    return summary;
}

Result<ShowSummary, lumenoSDKError> ShowSummary::make(const Arguments& arguments) {
    std::optional<ShowSummary> summary = detail::summaryOf(arguments.fromShow);
    if (!summary) {
        return Failure(lumenoSDKError::initializationError("Missing itemID, href, updated or thumbnailHref"));
    }
    return *std::move(summary);
}

bool operator==(const ShowSummary& a, const ShowSummary& b) {
    return detail::sameIgnoringCase(a.href, b.href);
}

}  // namespace VanticRestKit
