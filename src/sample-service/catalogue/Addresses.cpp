#include "catalogue/Addresses.h"

#include "server/Origin.h"

namespace VanticRestKit::sample {

std::string hrefOf(const Show& show) { return "/show/" + show.slug; }
std::string hrefOf(const Series& series) { return "/series/" + std::to_string(series.id); }
std::string hrefOf(const Video& video) { return "/video/" + video.houseNumber; }

JSON linkTo(const std::string& href) { return JSON{{"href", href}}; }

std::string pictureOf(const std::string& name, const std::string& shape) {
    std::string address(ownOrigin);
    for (const auto& part : {"/pictures/" + name, "/" + shape, std::string(".svg")}) address += part;
    return address;
}

JSON thumbnailsOf(const std::string& name, const std::string& category) {
    JSON pictures{{"portrait", pictureOf(name, "portrait")},
                  {"portraitTitled", pictureOf(name, "portrait-titled")}};
    if (category == "children") {
        pictures["character1"] = pictureOf(name, "character-1");
        pictures["character2"] = pictureOf(name, "character-2");
    }
    return pictures;
}

std::string mediaAddress(const std::string& path) { return "https://media.vantic.example/" + path; }

}  // namespace VanticRestKit::sample
