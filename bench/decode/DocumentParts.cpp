#include "DocumentParts.h"

#include <algorithm>
#include <iterator>

// clang-format off: a document, laid out as it is written

namespace VanticRestKit::bench {

std::string words(Random& random, std::size_t atLeast) {
    static constexpr std::string_view lexicon[] = {"harbour", "lantern", "quiet",   "river", "of", "the",
                                                   "seven",   "winter",  "gardens", "under", "a",  "copper",
                                                   "sky",     "stories", "from",    "north"};
    std::string text;
    while (text.size() < atLeast) {
        if (!text.empty()) text += ' ';
        text += lexicon[random() % std::size(lexicon)];
    }
    return text;
}

std::string Object::json(Random* shuffle) {
    if (shuffle != nullptr) std::shuffle(members_.begin(), members_.end(), *shuffle);
    std::string text = "{";
    for (const std::string& member : members_) text += (text.size() > 1 ? "," : "") + member;
    return text + "}";
}

std::string href(const std::string& path, Random* shuffle) {
    return Object().text("href", path).json(shuffle);
}

std::string link(Random& random, Random* shuffle) {
    return Object()
        .text("id", std::to_string(random() % 1000))
        .text("title", words(random, 8))
        .text("href", "category/" + words(random, 4))
        .json(shuffle);
}

std::string status(Random* shuffle) {
    return Object().text("title", "NEW").text("theme", "live").json(shuffle);
}

}  // namespace VanticRestKit::bench
