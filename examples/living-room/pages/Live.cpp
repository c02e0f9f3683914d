// Live: the channels of a region, with what they show now and next.

#include "Pages.h"

namespace living_room {
namespace {

using Region = std::optional<LivestreamRegion>;

/// The region in "?region=tas". Empty, for the whole country, if none has that name.
Region regionOf(const Visit& visit) { return fromRawValue<LivestreamRegion>(visit.field("region")); }

Task<Value> channel(const Visit& visit, const Video& live) {
    auto resource = Endpoint::NowNext({.houseNumber = live.houseNumber.value_or("")}, visit.catalogue());
    // A channel is shown without its programmes if they cannot be loaded.
    const auto schedule = co_await load(std::move(resource), visit.options());
    co_return channelOf(live, schedule.value_or(NowNext()), visit.service);
}

/// The channels of a region in that template. All schedules are loaded at once.
Task<Answer> channels(Visit visit, Region region, const char* name) {
    auto resource = Endpoint::Livestreams({.region = region}, visit.catalogue());
    const auto list = co_await load(std::move(resource), visit.options());
    if (!list) co_return failedPart(list.error());
    if (list->videos.empty()) co_return emptyPart("No channel is on air here.");
    std::vector<Task<Value>> loads;
    for (const Video& live : list->videos) loads.push_back(channel(visit, live));
    auto loaded = co_await whenAll(std::move(loads));
    co_return partAnswer(name, {{"channels", std::move(loaded)}});
}

}  // namespace

Task<Answer> livePage(Visit visit) {
    Value regions;
    const auto add = [&](Region region, std::string_view title) {
        const std::string name(region ? rawValue(*region) : "");
        regions.push_back({{"name", name}, {"title", title}, {"isChosen", region == regionOf(visit)}});
    };
    add(std::nullopt, "Everywhere");
    for (const LivestreamRegion region : LivestreamRegion::allCases) add(region, caseName(region));
    co_return screenAnswer(visit, {{"regions", regions}});
}

Task<Answer> channelsPart(Visit visit) {
    const Region region = regionOf(visit);
    return channels(std::move(visit), region, "channel-grid");
}

Task<Answer> channelRowPart(Visit visit) { return channels(std::move(visit), std::nullopt, "channel-row"); }

}  // namespace living_room
