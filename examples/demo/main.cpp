// A host that loads what there is to load, prints it, and shows what it gets when something is wrong.
//   demo BASE-URL      the base URL that the sample service has printed; the service is stopped at the end

#include "Chapters.h"

#include <cstdio>
#include <optional>

namespace {

constexpr bool (*chapters[])(const demo::Stage&) = {
    demo::showTimeAndAvatars, demo::showHomeScreen,    demo::showCollection, demo::showShowAndSeries,
    demo::showSearch,         demo::showNowAndNext,    demo::showVideos,     demo::showUser,
    demo::showRefusedTokens,  demo::showOddHomeScreen,
    demo::showFailures,  // the last one: it stops the service
};

}  // namespace

int main(int argc, char** argv) {
    const auto baseURL = argc == 2 ? VanticRestKit::URL::make(argv[1]) : std::nullopt;
    if (!baseURL) {
        std::fprintf(stderr, "usage: demo BASE-URL\n");
        return 2;
    }
    const demo::Stage stage{demo::HostContext(*baseURL), demo::ServiceControl(*baseURL)};
    bool good = true;
    for (const auto chapter : chapters) good = chapter(stage) && good;
    if (!good) std::fprintf(stderr, "demo: something was not as it has to be\n");
    return good ? 0 : 1;
}
