#include <VanticRestKit/lumeno/Show/ShowsGrouped.h>

#include <VanticRestKit/platform/json/Table.h>

namespace VanticRestKit {

namespace {

void summarise(ShowsGrouped& group) {
    group.showSummaries.clear();
    for (const Show& show : group.shows) {
        Result<ShowSummary, lumenoSDKError> summary = ShowSummary::make({.fromShow = show});
        if (summary) group.showSummaries.push_back(std::move(summary).value());
    }
}

}  // namespace

template <>
const TypePlan& planOf<ShowsGrouped>() {
    using namespace mapping;
    static const TypePlan& plan = object<ShowsGrouped>(
        required<&ShowsGrouped::groupingName>("name"),
        required<&ShowsGrouped::shows>("items"),
        derived<&ShowsGrouped::showSummaries, summarise>());
    return plan;
}

}  // namespace VanticRestKit
