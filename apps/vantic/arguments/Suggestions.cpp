#include "arguments/Suggestions.h"

#include <algorithm>

namespace vantic {

namespace {

char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

}  // namespace

std::size_t editDistance(std::string_view a, std::string_view b) {
    // Distances to the prefixes of `b`, for the current prefix of `a` and the two shorter ones.
    std::vector<std::size_t> previous(b.size() + 1);
    std::vector<std::size_t> current(b.size() + 1);
    std::vector<std::size_t> beforePrevious(b.size() + 1);
    for (std::size_t j = 0; j <= b.size(); ++j) current[j] = j;
    for (std::size_t i = 1; i <= a.size(); ++i) {
        std::swap(beforePrevious, previous);
        std::swap(previous, current);
        current[0] = i;
        for (std::size_t j = 1; j <= b.size(); ++j) {
            const bool isEqual = lower(a[i - 1]) == lower(b[j - 1]);
            current[j] =
                std::min({previous[j] + 1, current[j - 1] + 1, previous[j - 1] + (isEqual ? 0u : 1u)});
            const bool isSwap =
                i > 1 && j > 1 && lower(a[i - 1]) == lower(b[j - 2]) && lower(a[i - 2]) == lower(b[j - 1]);
            if (isSwap) current[j] = std::min(current[j], beforePrevious[j - 2] + 1);
        }
    }
    return current[b.size()];
}

std::string suggestion(std::string_view word, std::span<const std::string_view> names,
                       std::string_view prefix) {
    // A word with an error rate of a third or more is probably not a misspelling. Neither is a very long word, which
    // would be slow to compare.
    constexpr std::size_t maxLength = 64;
    if (word.empty() || word.size() > maxLength) return {};
    std::size_t smallest = word.size() / 3 + 1;
    std::string_view closest;
    for (const std::string_view name : names) {
        const std::size_t distance = editDistance(word, name);
        if (distance >= smallest) continue;
        smallest = distance;
        closest = name;
    }
    const auto startsWithWord = [&](std::string_view name) {
        return name.size() > word.size() && editDistance(word, name.substr(0, word.size())) == 0;
    };
    constexpr std::size_t minPrefixLength = 3;
    if (closest.empty() && word.size() >= minPrefixLength) {
        const auto found = std::find_if(names.begin(), names.end(), startsWithWord);
        if (found != names.end()) closest = *found;
    }
    if (closest.empty()) return {};
    return "; did you mean " + std::string(prefix) + std::string(closest) + "?";
}

std::string alternatives(std::span<const std::string_view> names) {
    std::string text;
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (i > 0) text += i + 1 < names.size() ? ", " : " or ";
        text += names[i];
    }
    return text;
}

}  // namespace vantic
