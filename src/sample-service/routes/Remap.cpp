#include "catalogue/Addresses.h"
#include "catalogue/Screens.h"
#include "catalogue/Tables.h"
#include "routes/Table.h"

namespace VanticRestKit::sample {

namespace {

/// The page types of the web site, each with the type that replaced it.
struct Page {
    const char* kind;
    const char* today;
};
constexpr Page pages[] = {{"show", "show"},       {"programs", "show"},        {"series", "series"},
                          {"video", "video"},     {"watch", "video"},          {"category", "category"},
                          {"channel", "channel"}, {"collection", "collection"}};

bool exists(const std::string& kind, const std::string& name) {
    if (kind == "show") return catalogue().show(name) != nullptr;
    if (kind == "series") return catalogue().series(name) != nullptr;
    if (kind == "video") return catalogue().video(name) != nullptr;
    if (kind == "collection") return collectionOf(name) != nullptr;
    return screenAt("/" + kind + "/" + name) != nullptr;
}

JSON remapJSON(const std::string& status, const std::string& href) {
    JSON json{{"status", status}, {"_links", {{"api", JSON::object()}, {"deeplink", JSON::object()}}}};
    if (href.empty()) return json;
    json["_links"]["api"] = linkTo(href);
    json["_links"]["deeplink"] = linkTo("vantic:/" + href);
    return json;
}

// A show page with "?video=HL0102" leads to that video.
std::string hrefOf(const Page& page, const std::string& name, const Request& request) {
    const std::string video = request.queryValue("video");
    std::string href = std::string("/") + page.today + "/" + name;
    if (std::string_view(page.today) == "show" && exists("video", video)) href += "/video/" + video;
    return href;
}

Reply remap(const Request& request, const Captures& path) {
    if (path.size() == 1 && (path[0].empty() || path[0] == "home")) return answered(remapJSON("ok", "/home"));
    for (const Page& page : pages) {
        if (path.size() < 2 || path[0] != page.kind || !exists(page.today, path[1])) continue;
        const bool moved = std::string_view(page.kind) != page.today;
        return answered(remapJSON(moved ? "moved" : "ok", hrefOf(page, path[1], request)));
    }
    return answered(remapJSON("unknown", ""));
}

}  // namespace

std::vector<Route> remapRoutes() { return {{"GET", "v2/remap/{path...}", remap}}; }

}  // namespace VanticRestKit::sample
