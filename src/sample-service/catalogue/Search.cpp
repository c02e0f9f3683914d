#include "catalogue/Search.h"

#include <algorithm>

namespace VanticRestKit::sample {

namespace {

std::string lowerCase(std::string text) {
    for (char& letter : text) {
        if (letter >= 'A' && letter <= 'Z') letter = static_cast<char>(letter - 'A' + 'a');
    }
    return text;
}

bool holds(const std::string& text, const std::string& lowered) {
    return lowerCase(text).find(lowered) != std::string::npos;
}

bool holdsElsewhere(const Show& show, const std::string& lowered) {
    if (holds(show.description, lowered) || holds(show.participants, lowered)) return true;
    if (std::find(show.tags.begin(), show.tags.end(), lowered) != show.tags.end()) return true;
    for (const auto& titles : show.series) {
        for (const auto& title : titles) {
            if (holds(title, lowered)) return true;
        }
    }
    return false;
}

std::ptrdiff_t inCommon(const Show& a, const Show& b) {
    const auto tags = std::count_if(a.tags.begin(), a.tags.end(), [&](const std::string& tag) {
        return std::find(b.tags.begin(), b.tags.end(), tag) != b.tags.end();
    });
    return tags + (a.category == b.category ? 1 : 0);
}

}  // namespace

std::vector<const Show*> showsFoundBy(const std::string& keyword) {
    const std::string lowered = lowerCase(keyword);
    std::vector<const Show*> inTitle, elsewhere;
    if (lowered.empty()) return {};
    for (const Show* show : catalogue().programmes()) {
        if (holds(show->title, lowered)) {
            inTitle.push_back(show);
        } else if (holdsElsewhere(*show, lowered)) {
            elsewhere.push_back(show);
        }
    }
    inTitle.insert(inTitle.end(), elsewhere.begin(), elsewhere.end());
    return inTitle;
}

std::vector<const Show*> showsRelatedTo(const Show& show) {
    auto shows = catalogue().programmes();
    std::erase_if(shows, [&](const Show* other) { return other == &show || inCommon(*other, show) == 0; });
    // Shows are elements of one list, so comparing addresses gives the catalogue's order.
    std::sort(shows.begin(), shows.end(), [&](const Show* a, const Show* b) {
        const auto ofA = inCommon(*a, show), ofB = inCommon(*b, show);
        return ofA != ofB ? ofA > ofB : a < b;
    });
    if (shows.size() > 6) shows.resize(6);
    return shows;
}

}  // namespace VanticRestKit::sample
