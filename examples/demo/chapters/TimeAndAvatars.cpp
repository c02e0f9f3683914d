#include "Chapters.h"
#include "Loading.h"
#include "Printing.h"

#include <VanticRestKit/lumeno/Endpoints/Endpoint.h>
#include <VanticRestKit/lumeno/Image/Image.h>

#include <cstdio>

namespace demo {

using namespace VanticRestKit;

namespace {

void printAvatars(const std::vector<Image>& avatars) {
    for (const auto& avatar : avatars) {
        std::printf("  %s %s %3ux%-3u  %s\n", padded(avatar.id.value_or("-"), 10).c_str(),
                    padded(avatar.accessibilityText.value_or(""), 32).c_str(),
                    static_cast<unsigned>(avatar.width.value_or(0)),
                    static_cast<unsigned>(avatar.height.value_or(0)), avatar.url.value_or("").c_str());
    }
}

}  // namespace

bool showTimeAndAvatars(const Stage& stage) {
    printHeading("The time of the service");
    const auto time = fetched(Endpoint::Time(stage.context));
    if (time) std::printf("  %s\n", utcText(*time, "%Y-%m-%d %H:%M:%S UTC").c_str());

    printHeading("The avatars");
    const auto avatars = fetched(Endpoint::Avatars(stage.context));
    if (avatars) printAvatars(*avatars);
    return time && avatars && !avatars->empty();
}

}  // namespace demo
