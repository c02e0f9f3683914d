// Live: the channels of a region, with what they send now and next.

#include "Parts.h"

#include <VanticRestKit/lumeno/Endpoints/Endpoint.h>
#include <VanticRestKit/lumeno/NowNext/LivestreamRegion.h>
#include <VanticRestKit/platform/json/RawText.h>

#include <utility>

namespace living_room {

using namespace VanticRestKit;

namespace {

/// The region of a name such as "tas"; empty, for the whole country, if there is none of that name.
std::optional<LivestreamRegion> regionOf(const std::string& name) {
    for (const LivestreamRegion region : LivestreamRegion::allCases) {
        if (rawValue(region) == name) return region;
    }
    return std::nullopt;
}

Task<ViewChannel> channelOf(const Visit& visit, const Video& live) {
    ViewChannel channel{.tile = tileOf(live, visit.service)};
    auto resource = Endpoint::NowNext({.houseNumber = live.houseNumber.value_or("")}, visit.catalogue());
    // A channel is shown without its programmes if these cannot be had.
    if (auto schedule = co_await load(std::move(resource), visit.options())) {
        channel.now = std::move(schedule->now);
        channel.next = std::move(schedule->next);
    }
    co_return channel;
}

/// The channels of a region as markup, all schedules loaded at once.
Task<Loaded<std::vector<Html>>> channels(const Visit& visit, std::optional<LivestreamRegion> region) {
    auto resource = Endpoint::Livestreams({.region = region}, visit.catalogue());
    const auto list = co_await load(std::move(resource), visit.options());
    if (!list) co_return Failure(list.error());
    std::vector<Task<ViewChannel>> loads;
    for (const Video& live : list->videos) loads.push_back(channelOf(visit, live));
    std::vector<Html> parts;
    for (const ViewChannel& channel : co_await whenAll(std::move(loads)))
        parts.push_back(channelMarkup(channel));
    co_return parts;
}

}  // namespace

Task<Answer> livePage(Visit visit) {
    const std::string chosen = visit.request.queried("region");
    std::vector<Html> regions{html(R"(<a href="/live"{}>Everywhere</a>)",
                                   when(!regionOf(chosen), html(R"( aria-current="true")")))};
    for (const LivestreamRegion region : LivestreamRegion::allCases) {
        const std::string name(rawValue(region));
        regions.push_back(html(R"(<a href="/live?region={}" data-region="{}"{}>{}</a>)", name, name,
                               when(name == chosen, html(R"( aria-current="true")")), caseName(region)));
    }
    const Html content = html(
        R"(<div class="screen"><h1>Live now</h1><nav class="chips" aria-label="Regions">{}</nav></div>{})",
        regions, block("/live/now?region=" + percentEncoded(chosen), "channels"));
    co_return pageAnswer(pageAround(visit, "live", "Live", content));
}

Task<Answer> liveNow(Visit visit) {
    const auto parts = co_await channels(visit, regionOf(visit.request.queried("region")));
    if (!parts) co_return failedBlock(parts.error());
    if (parts->empty()) co_return blockAnswer(emptyMarkup("No channel is sending here."), "empty");
    co_return blockAnswer(html(R"(<div class="grid channels">{}</div>)", *parts));
}

Task<Answer> liveRow(Visit visit) {
    const auto parts = co_await channels(visit, std::nullopt);
    if (!parts) co_return failedBlock(parts.error());
    if (parts->empty()) co_return blockAnswer(emptyMarkup("No channel is sending."), "empty");
    co_return blockAnswer(html(R"(<div class="tiles">{}</div>)", *parts));
}

}  // namespace living_room
