// A host that loads what there is to load, prints it, and shows what it gets when something is wrong.
//   demo BASE-URL      the base URL that the sample service has printed; the service is stopped at the end

#include "Failures.h"
#include "HostContext.h"
#include "Loading.h"
#include "Printing.h"
#include "ServiceControl.h"

#include <VanticRestKit/lumeno/Endpoints/Endpoint.h>
#include <VanticRestKit/lumeno/Image/Image.h>
#include <VanticRestKit/lumeno/Video/VideoList.h>

#include <cstdio>
#include <optional>
#include <string>
#include <vector>

namespace {

using namespace VanticRestKit;

/// The value of a resource; empty, with a line on standard error, where there is none.
template <class T>
std::optional<T> fetched(const std::optional<Resource<T>>& resource) {
    if (!resource) {
        std::fprintf(stderr, "no request can be made\n");
        return std::nullopt;
    }
    auto outcome = demo::loaded(*resource);
    if (!outcome) {
        std::fprintf(stderr, "%s\n", outcome.error().localizedDescription().c_str());
        return std::nullopt;
    }
    return *std::move(outcome);
}

bool showTimeAndAvatars(const Context& context) {
    demo::printHeading("The time of the service");
    const auto time = fetched(Endpoint::Time(context));
    if (time) demo::printTime(*time);

    demo::printHeading("The avatars");
    const auto avatars = fetched(Endpoint::Avatars(context));
    if (avatars) demo::printAvatars(*avatars);
    return time && avatars && !avatars->empty();
}

bool showVideos(const Context& context) {
    demo::printHeading("A batch of videos");
    const std::vector<std::string> wanted{"HL0101", "QO0102", "CC0103", "SP0201", "NF0202",
                                          "KW0203", "SR0001", "PL0001", "SRT0001", "LIVE0001"};
    const auto list = fetched(Endpoint::Videos({.houseNumbers = wanted}, context));
    if (list) demo::printVideos(list->videos);
    return list && list->videos.size() == wanted.size();
}

bool showOneVideo(const Context& context) {
    demo::printHeading("A video by its house number");
    const auto video = fetched(Endpoint::Video({.houseNumber = "HL0102"}, context));
    if (!video) return false;
    demo::printVideo(*video);

    demo::printHeading("The next episode, by the href that came with it");
    if (!video->nextEpisodeHref) return false;
    const auto next = fetched(Endpoint::Video({.usingHref = *video->nextEpisodeHref}, context));
    if (next) demo::printVideo(*next);
    return next && next->title == video->nextEpisodeTitle;
}

}  // namespace

int main(int argc, char** argv) {
    const auto baseURL = argc == 2 ? URL::make(argv[1]) : std::nullopt;
    if (!baseURL) {
        std::fprintf(stderr, "usage: demo BASE-URL\n");
        return 2;
    }
    const demo::HostContext context(*baseURL);
    const demo::ServiceControl service(*baseURL);
    bool good = showTimeAndAvatars(context);
    good = showVideos(context) && good;
    good = showOneVideo(context) && good;
    good = demo::showFailures(context, service) && good;
    if (!good) std::fprintf(stderr, "demo: something was not as it has to be\n");
    return good ? 0 : 1;
}
