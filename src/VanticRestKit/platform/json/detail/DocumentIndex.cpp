#include <VanticRestKit/platform/json/detail/DocumentIndex.h>

#include <VanticRestKit/platform/json/detail/Skipper.h>

namespace VanticRestKit::json {

/// Records the end of each bracket while `Skipper` walks the document.
struct DocumentIndex::Recorder {
    std::vector<Bracket>* brackets;
    std::vector<std::size_t>* open;

    void opened() const {
        open->push_back(brackets->size());
        brackets->emplace_back();
    }
    void closed(const char* end) const {
        (*brackets)[open->back()] = {end, brackets->size()};
        open->pop_back();
    }
};

DocumentIndex::DocumentIndex(const Data& document)
    : end_(document.data() + document.size()), root_(documentStart(document.data(), end_)) {
    std::vector<std::size_t> open;
    const char* const end = Skipper<Recorder>(root_, end_, 0, {&brackets_, &open}).run();
    isValid_ = end != nullptr && skipSpace(end) == end_;
}

Place DocumentIndex::after(Place place) const noexcept {
    if (*place.at == '{' || *place.at == '[') {
        const Bracket& bracket = brackets_[place.bracket];
        return {bracket.end, bracket.next};
    }
    return {skipValue(place.at, end_, 0), place.bracket};
}

bool DocumentIndex::memberAt(Place place, Member& member) const noexcept {
    if (*place.at != '"') return false;
    member.key = place.at;
    const char* const colon = skipSpace(scanString(place.at, end_).close + 1);
    member.value = {skipSpace(colon + 1), place.bracket};
    return true;
}

bool DocumentIndex::first(Place bracket, Member& member) const noexcept {
    return memberAt({skipSpace(bracket.at + 1), bracket.bracket + 1}, member);
}

bool DocumentIndex::next(Member& member) const noexcept {
    Place place = after(member.value);
    place.at = skipSpace(place.at);
    if (*place.at != ',') return false;
    place.at = skipSpace(place.at + 1);
    return memberAt(place, member);
}

bool DocumentIndex::first(Place bracket, Place& element) const noexcept {
    element = {skipSpace(bracket.at + 1), bracket.bracket + 1};
    return *element.at != ']';
}

bool DocumentIndex::next(Place& element) const noexcept {
    element = after(element);
    element.at = skipSpace(element.at);
    if (*element.at != ',') return false;
    element.at = skipSpace(element.at + 1);
    return *element.at != ']';
}

}  // namespace VanticRestKit::json
