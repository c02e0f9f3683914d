#include "catalogue/Screens.h"
#include "catalogue/ScreenJSON.h"
#include "routes/Table.h"

namespace VanticRestKit::sample {

namespace {

Reply screen(const std::string& href) {
    const Screen* found = screenAt(href);
    if (found == nullptr) return failure(404, "No screen is at " + href);
    return answered(screenJSON(*found));
}

Reply collection(const Request& request, const Captures& captures) {
    const Collection* found = collectionOf(captures[0]);
    if (found == nullptr) return failure(404, "No collection has the id " + captures[0]);
    return answered(collectionJSON(*found, request.queryValue("embed") == "highlightItem"));
}

}  // namespace

std::vector<Route> screenRoutes() {
    return {
        {"GET", "v2/home", [](const Request&, const Captures&) { return screen("/home"); }},
        {"GET", "v2/category/{id}",
         [](const Request&, const Captures& captures) { return screen("/category/" + captures[0]); }},
        {"GET", "v2/channel/{id}",
         [](const Request&, const Captures& captures) { return screen("/channel/" + captures[0]); }},
        {"GET", "v2/collection/{id}", collection},
    };
}

}  // namespace VanticRestKit::sample
