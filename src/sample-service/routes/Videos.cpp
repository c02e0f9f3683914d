#include <string_view>

#include "catalogue/Catalogue.h"
#include "catalogue/VideoJSON.h"
#include "routes/Table.h"

namespace VanticRestKit::sample {

namespace {

Reply oneVideo(const Request&, const Captures& captures) {
    const Video* video = catalogue().video(captures[0]);
    if (video == nullptr) return failure(404, "No video has the house number " + captures[0]);
    Reply reply;
    reply.body = videoJSON(*video);
    return reply;
}

// Unknown house numbers are omitted if at least one is known.
Reply severalVideos(const Request&, const Captures& captures) {
    JSON items = JSON::array();
    std::string_view left = captures.empty() ? std::string_view() : captures[0];
    while (!left.empty()) {
        const auto comma = left.find(',');
        if (const Video* video = catalogue().video(std::string(left.substr(0, comma)))) {
            items.push_back(videoJSON(*video));
        }
        left.remove_prefix(comma == std::string_view::npos ? left.size() : comma + 1);
    }
    Reply reply;
    reply.body = JSON{{"items", std::move(items)}};
    return reply;
}

}  // namespace

std::vector<Route> videoRoutes() {
    return {
        {"GET", "v2/video/{houseNumber}", oneVideo},
        {"GET", "v2/videos/{houseNumbers}", severalVideos},
        {"GET", "v2/videos/", severalVideos},
    };
}

}  // namespace VanticRestKit::sample
