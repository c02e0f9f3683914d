#include <array>

#include "routes/Table.h"

namespace sample {

namespace {

struct Avatar {
    const char* name;
    const char* description;
    const char* group;
};

constexpr std::array<Avatar, 9> avatars{{
    {"wombat", "A wombat with a scarf", "animals"},
    {"heron", "A heron on one leg", "animals"},
    {"gecko", "A gecko upside down", "animals"},
    {"lantern", "A paper lantern", "things"},
    {"kettle", "A whistling kettle", "things"},
    {"rocket", "A rocket with round windows", "things"},
    {"baker", "A baker with flour on the nose", "people"},
    {"pilot", "A pilot in goggles", "people"},
    {"diver", "A diver waving", "people"},
}};

JSON imageOf(std::size_t index) {
    const Avatar& avatar = avatars[index];
    JSON image;
    // Ids come as numbers from one shelf of the service and as texts from another.
    if (index % 3 == 2) {
        image["id"] = std::string("av-") + avatar.name;
    } else {
        image["id"] = 100 + index;
    }
    image["url"] = std::string("https://images.vantic.example/avatar/") + avatar.name + ".png";
    image["accessibilityText"] = avatar.description;
    image["type"] = "avatar";
    image["tags"] = {avatar.group};
    image["aspectRatio"] = "1:1";
    image["width"] = 480;
    image["height"] = 480;
    if (index % 2 == 0) image["altText"] = avatar.name;
    return image;
}

}  // namespace

std::vector<Route> avatarRoutes() {
    return {{"GET", "v3/image/avatar/", [](const Request&, const Captures&) {
                 Reply reply;
                 reply.body = JSON::array();
                 for (std::size_t i = 0; i < avatars.size(); ++i) reply.body->push_back(imageOf(i));
                 return reply;
             }}};
}

}  // namespace sample
