#include "catalogue/Schedule.h"
#include "catalogue/Tables.h"
#include "catalogue/VideoJSON.h"
#include "routes/Table.h"
#include "server/Clock.h"

namespace VanticRestKit::sample {

namespace {

const char* eventTypeOf(const Slot& slot, bool playable) {
    if (slot.video == nullptr) return "OFFAIR";
    return playable ? "ONAIR" : "NOSTREAM";
}

/// `later`: how many seconds later the region broadcasts.
JSON slotJSON(const Slot& slot, const Channel& channel, const Video& live, long later) {
    const JSON video = slot.video != nullptr ? videoSummaryJSON(*slot.video) : JSON();
    const bool playable = slot.video != nullptr && video["playable"] == true;
    JSON json;
    json["_entity"] = "nownext";
    json["houseNumber"] = live.houseNumber;
    json["displayTitle"] = slot.video != nullptr ? slot.video->show->title : channel.title + " is closed";
    json["displaySubtitle"] = slot.video != nullptr ? video["displaySubtitle"] : JSON("Good night.");
    if (slot.video != nullptr) json["description"] = video["description"];
    json["start"] = slot.start + later;
    json["end"] = slot.end + later;
    json["duration"] = slot.end - slot.start;
    json["playable"] = playable;
    json["captions"] = slot.video != nullptr && video["captions"] == true;
    if (slot.video != nullptr) json["classification"] = slot.video->show->classification;
    json["eventType"] = eventTypeOf(slot, playable);
    return json;
}

Reply nowNext(const Request&, const Captures& captures) {
    const Video* live = catalogue().video(captures[0]);
    if (live == nullptr || live->show->type != "livestream") {
        return failure(404, "No live channel has the house number " + captures[0]);
    }
    const Channel& channel = *rowOf(channels(), live->show->channel);
    const long later = live->region != nullptr ? static_cast<long>(live->region->minutesLater) * 60 : 0;
    const Showing showing = scheduleOf(channel, static_cast<long>(serviceClock().now()) - later);
    return answered({{"now", slotJSON(showing.now, channel, *live, later)},
                     {"next", slotJSON(showing.next, channel, *live, later)}});
}

Reply livestreams(const Region* region) {
    JSON items = JSON::array();
    for (const Video* live : catalogue().livestreams(region)) items.push_back(videoJSON(*live));
    return answered({{"items", items}});
}

Reply livestreamsOfRegion(const Request&, const Captures& captures) {
    const Region* region = rowOf(regions(), captures[0]);
    return region != nullptr ? livestreams(region) : failure(404, "No region is called " + captures[0]);
}

}  // namespace

std::vector<Route> liveRoutes() {
    return {
        {"GET", "v2/nownext/{houseNumber}", nowNext},
        {"GET", "v2/livestreams", [](const Request&, const Captures&) { return livestreams(nullptr); }},
        {"GET", "v2/livestreams/{region}", livestreamsOfRegion},
    };
}

}  // namespace VanticRestKit::sample
