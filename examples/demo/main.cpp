// A host that loads everything the service offers, prints it, and shows how failures look.
//   demo BASE-URL      the base URL of the sample service, which is stopped at the end

#include "Chapters.h"

#include <cstdio>
#include <optional>

namespace {

constexpr bool (*chapters[])(const demo::Stage&) = {
    demo::showTimeAndAvatars, demo::showHomeScreen,    demo::showCollection, demo::showShowAndSeries,
    demo::showSearch,         demo::showNowAndNext,    demo::showVideos,     demo::showUser,
    demo::showRefusedTokens,  demo::showOddHomeScreen,
    demo::showFailures,  // last, because it stops the service
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
