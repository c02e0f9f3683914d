#include "Chapters.h"
#include "Loading.h"
#include "Printing.h"
#include "VideoPrinting.h"

#include <VanticRestKit/lumeno/Endpoints/Endpoint.h>
#include <VanticRestKit/lumeno/Video/VideoList.h>

#include <string>
#include <vector>

namespace demo {

using namespace VanticRestKit;

namespace {

bool showBatch(const Context& context) {
    printHeading("A batch of videos");
    const std::vector<std::string> wanted{"HL0101", "QO0102", "CC0103", "SP0201",  "NF0202",
                                          "KW0203", "SR0001", "PL0001", "SRT0001", "LIVE0001"};
    const auto list = fetched(Endpoint::Videos({.houseNumbers = wanted}, context));
    if (list) printVideos(list->videos);
    return list && list->videos.size() == wanted.size();
}

bool showOneVideo(const Context& context) {
    printHeading("A video by its house number");
    const auto video = fetched(Endpoint::Video({.houseNumber = "HL0102"}, context));
    if (!video) return false;
    printVideo(*video);

    printHeading("The next episode, by the href that came with it");
    if (!video->nextEpisodeHref) return false;
    const auto next = fetched(Endpoint::Video({.usingHref = *video->nextEpisodeHref}, context));
    if (next) printVideo(*next);
    return next && next->title == video->nextEpisodeTitle;
}

}  // namespace

bool showVideos(const Stage& stage) {
    const bool batch = showBatch(stage.context);
    return showOneVideo(stage.context) && batch;
}

}  // namespace demo
