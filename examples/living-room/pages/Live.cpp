// Live: the channels of a region, with what they send now and next.

#include "Pages.h"

namespace living_room {

namespace {

/// The region of a name such as "tas"; empty, for the whole country, if there is none of that name.
std::optional<LivestreamRegion> regionOf(const std::string& name) {
    for (const LivestreamRegion region : LivestreamRegion::allCases) {
        if (rawValue(region) == name) return region;
    }
    return std::nullopt;
}

Task<Value> channel(const Visit& visit, const Video& live) {
    auto resource = Endpoint::NowNext({.houseNumber = live.houseNumber.value_or("")}, visit.catalogue());
    // A channel is shown without its programmes if these cannot be had.
    const auto schedule = co_await load(std::move(resource), visit.options());
    co_return channelOf(live, schedule ? *schedule : NowNext(), visit.service);
}

/// The channels of a region in that template; all schedules are loaded at once.
Task<Answer> channels(Visit visit, std::optional<LivestreamRegion> region, const char* name) {
    auto resource = Endpoint::Livestreams({.region = region}, visit.catalogue());
    const auto list = co_await load(std::move(resource), visit.options());
    if (!list) co_return failedPart(list.error());
    if (list->videos.empty()) co_return emptyPart("No channel is sending here.");
    std::vector<Task<Value>> loads;
    for (const Video& live : list->videos) loads.push_back(channel(visit, live));
    auto loaded = co_await whenAll(std::move(loads));
    const Value values = Value::Object{{"channels", std::move(loaded)}};
    co_return partAnswer(name, values);
}

Task<Answer> page(Visit visit) {
    const auto chosen = regionOf(visit.queried("region"));
    const auto choice = [&](std::optional<LivestreamRegion> region) {
        const std::string name(region ? rawValue(*region) : "");
        return Value::Object{{"name", name},
                             {"title", region ? caseName(*region) : "Everywhere"},
                             {"link", "/live?region=" + name},
                             {"isChosen", region == chosen}};
    };
    Value::List regions{choice(std::nullopt)};
    for (const LivestreamRegion region : LivestreamRegion::allCases) regions.emplace_back(choice(region));
    const std::string name(chosen ? rawValue(*chosen) : "");
    const Value::Object values{{"regions", regions}, {"address", "/live/now?region=" + name}};
    co_return screenAnswer(visit, "live", "Live", values);
}

Task<Answer> now(Visit visit) {
    const auto region = regionOf(visit.queried("region"));
    return channels(std::move(visit), region, "channel-grid");
}

Task<Answer> row(Visit visit) { return channels(std::move(visit), std::nullopt, "channel-row"); }

constexpr Route routes[] = {{"GET", "/live", page}, {"GET", "/live/now", now}, {"GET", "/live/row", row}};

}  // namespace

const std::span<const Route> liveRoutes(routes);

}  // namespace living_room
