#include "Chapters.h"
#include "Loading.h"
#include "Printing.h"

#include <VanticRestKit/lumeno/Endpoints/Endpoint.h>
#include <VanticRestKit/lumeno/NowNext/LivestreamRegion.h>
#include <VanticRestKit/lumeno/NowNext/NowNext.h>
#include <VanticRestKit/lumeno/Video/VideoList.h>
#include <VanticRestKit/platform/json/RawText.h>

#include <cstdio>
#include <optional>

namespace demo {

using namespace VanticRestKit;

namespace {

void printSlot(const char* when, const std::optional<NowNextContainer>& slot) {
    if (!slot) return;
    // The service sends seconds since 1970.
    const auto start = static_cast<double>(slot->start);
    const auto end = static_cast<double>(slot->end);
    std::printf("    %-5s %s-%s  %s %s, %s\n", when, utcText(start, "%H:%M").c_str(),
                utcText(end, "%H:%M").c_str(), padded(caseName(slot->eventType), 8).c_str(),
                slot->displayTitle.c_str(), slot->displaySubtitle.c_str());
}

}  // namespace

bool showNowAndNext(const Stage& stage) {
    printHeading("The live channels of a region, with what they show now and next (UTC)");
    const auto list = fetched(Endpoint::Livestreams({.region = LivestreamRegion::TAS}, stage.context));
    if (!list) return false;
    bool good = !list->videos.empty();
    for (const auto& live : list->videos) {
        const std::string houseNumber = live.houseNumber.value_or("");
        printField(live.channelTitle.value_or("").c_str(), houseNumber);
        const auto schedule = fetched(Endpoint::NowNext({.houseNumber = houseNumber}, stage.context));
        good = good && schedule && schedule->now && schedule->next;
        if (!schedule) continue;
        printSlot("now", schedule->now);
        printSlot("next", schedule->next);
    }
    return good;
}

}  // namespace demo
