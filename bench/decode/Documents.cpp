#include "Documents.h"

#include "DocumentParts.h"

// clang-format off: a document, laid out as it is written

namespace VanticRestKit::bench {

namespace {

/// An item of a collection: usually a video, sometimes a show, rarely a series.
std::string mixedItem(Random& random) {
    switch (random() % 8) {
        case 0: return series(random, nullptr);
        case 1:
        case 2:
        case 3: return show(random, nullptr);
        default: return video(random, nullptr);
    }
}

std::string collection(Random& random, std::size_t items) {
    const std::string id = std::to_string(random() % 10000);
    std::string list;
    for (std::size_t i = 0; i < items; ++i) list += (i == 0 ? "" : ",") + mixedItem(random);
    return Object()
        .text("id", id)
        .text("type", "standard")
        .text("title", words(random, 14))
        .text("description", words(random, 60))
        .text("thumbnail", "https://pictures.example.test/collection/" + id + ".jpg")
        .raw("collectionLink", link(random, nullptr))
        .raw("items", '[' + list + ']')
        .raw("_links", Object().raw("self", href("v2/collection/" + id, nullptr)).json(nullptr))
        .raw("_embedded", Object().raw("highlightItem", show(random, nullptr)).json(nullptr))
        .json(nullptr);
}

}  // namespace

std::string videoListDocument(std::size_t videos, bool shuffled) {
    Random random(20261);
    Random order(7);
    std::string document = "{\"items\":[";
    for (std::size_t i = 0; i < videos; ++i) {
        if (i != 0) document += ',';
        document += video(random, shuffled ? &order : nullptr);
    }
    return document + "]}";
}

std::string homeDocument() {
    constexpr std::size_t collections = 30;
    constexpr std::size_t itemsOfEach = 14;
    Random random(20262);
    std::string list;
    for (std::size_t i = 0; i < collections; ++i)
        list += (i == 0 ? "" : ",") + collection(random, itemsOfEach);
    const std::string embedded = Object()
                                     .raw("featuredCollection", collection(random, 6))
                                     .raw("collections", '[' + list + ']')
                                     .json(nullptr);
    const std::string banner = Object()
                                   .text("large", "https://pictures.example.test/l.jpg")
                                   .text("small", "https://pictures.example.test/s.jpg")
                                   .text("altText", "A boat")
                                   .text("link", "v2/show/boat")
                                   .json(nullptr);
    return Object()
        .text("id", "home")
        .text("title", "Home")
        .text("featuredImage", "https://pictures.example.test/home.jpg")
        .raw("banner", banner)
        .text("theme", "light")
        .raw("_embedded", embedded)
        .raw("_links", Object().raw("self", href("v2/home", nullptr)).json(nullptr))
        .json(nullptr);
}

std::string showsIndexDocument(std::size_t shows) {
    constexpr std::size_t groups = 27;
    Random random(20263);
    std::string list;
    for (std::size_t group = 0; group < groups; ++group) {
        std::string items;
        for (std::size_t i = group; i < shows; i += groups)
            items += (items.empty() ? "" : ",") + show(random, nullptr);
        list +=
            (group == 0 ? "" : ",") + Object()
                                          .text("name", std::string(1, static_cast<char>('A' + group % 26)))
                                          .raw("items", '[' + items + ']')
                                          .json(nullptr);
    }
    return Object().raw("items", '[' + list + ']').json(nullptr);
}

}  // namespace VanticRestKit::bench
