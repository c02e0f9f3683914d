#include "catalogue/Addresses.h"
#include "catalogue/Tables.h"
#include "routes/Table.h"

namespace VanticRestKit::sample {

namespace {

JSON imageOf(const Avatar& avatar, std::size_t index) {
    JSON image;
    // Like the real service, sends some ids as numbers and others as strings.
    if (index % 3 == 2) {
        image["id"] = "av-" + avatar.id;
    } else {
        image["id"] = 100 + index;
    }
    image["url"] = pictureOf("avatar/" + avatar.id, "square");
    image["accessibilityText"] = avatar.description;
    image["type"] = "avatar";
    image["tags"] = {avatar.group};
    image["aspectRatio"] = "1:1";
    image["width"] = 480;
    image["height"] = 480;
    if (index % 2 == 0) image["altText"] = avatar.id;
    return image;
}

}  // namespace

std::vector<Route> avatarRoutes() {
    return {{"GET", "v3/image/avatar/", [](const Request&, const Captures&) {
                 JSON list = JSON::array();
                 for (const Avatar& avatar : avatars()) list.push_back(imageOf(avatar, list.size()));
                 return answered(std::move(list));
             }}};
}

}  // namespace VanticRestKit::sample
