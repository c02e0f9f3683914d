#include <VanticRestKit/lumeno/Show/ShowsIndex.h>

#include <VanticRestKit/platform/json/Table.h>

#include <optional>
#include <utility>

namespace VanticRestKit {

namespace {

void summarise(ShowsGrouped& group) {
    group.showSummaries.clear();
    group.showSummaries.reserve(group.shows.size());
    for (const Show& show : group.shows) {
        std::optional<ShowSummary> summary = detail::summaryOf(show);
        if (summary) group.showSummaries.push_back(*std::move(summary));
    }
}

}  // namespace

template <>
const TypePlan& planOf<ShowsGrouped>() {
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<ShowsGrouped>(
        required<&ShowsGrouped::groupingName>("name"),
        required<&ShowsGrouped::shows>("items"),
        derived<&ShowsGrouped::showSummaries, summarise>());
    // clang-format on
    return plan;
}

template <>
const TypePlan& planOf<ShowsIndex>() {
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<ShowsIndex>(
        required<&ShowsIndex::groups>("items"),
        lenientObject("_links",
            lenientObject("alert",
                lenient<&ShowsIndex::alertId>("id"))));
    // clang-format on
    return plan;
}

}  // namespace VanticRestKit
