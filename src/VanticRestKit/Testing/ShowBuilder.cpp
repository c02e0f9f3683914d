#include <VanticRestKit/Testing/ShowBuilder.h>

#include <algorithm>

namespace VanticRestKit::Testing {

namespace {

/// A duration as text: "24m" to display, or "24 minutes" for a screen reader.
std::string minutesText(std::chrono::seconds duration, const char* unit) {
    const auto minutes = (duration.count() + 30) / 60;
    return std::to_string(minutes) + unit;
}

}  // namespace

VideoBuilder::VideoBuilder(Programme programme, std::uint32_t series, std::uint32_t episode)
    : ProgrammeBuilder(std::move(programme)), series_(series), episode_(episode) {}

std::string VideoBuilder::original() const { return detail::videoDocument(programme(), series_, episode_); }

VideoBuilder& VideoBuilder::ofShow(std::string title) {
    return changed([&](Programme& it) { it.title = std::move(title); });
}

VideoBuilder& VideoBuilder::withHouseNumber(const std::string& houseNumber) {
    return with("houseNumber", houseNumber).with("/_links/self/href", "/video/" + houseNumber);
}

VideoBuilder& VideoBuilder::lasting(std::chrono::seconds duration) {
    return with("duration", duration.count())
        .with("displayDuration", minutesText(duration, "m"))
        .with("displayDurationAccessible", minutesText(duration, " minutes"));
}

VideoBuilder& VideoBuilder::notPlayable(std::string message) {
    return with("playable", false)
        .with("playableMessage", std::move(message))
        .without("/_links/highlightVideo")
        .without("/_embedded/playlist");
}

SeriesBuilder::SeriesBuilder(Programme programme, std::uint32_t number)
    : ProgrammeBuilder(std::move(programme)), number_(std::max(number, 1U)) {}

std::string SeriesBuilder::original() const { return detail::seriesDocument(programme(), number_); }

SeriesBuilder& SeriesBuilder::ofShow(std::string title) {
    return changed([&](Programme& it) { it.title = std::move(title); });
}

SeriesBuilder& SeriesBuilder::episodes(std::uint32_t count) {
    return changed([&](Programme& it) {
        it.episodes.resize(std::max<std::size_t>(it.episodes.size(), number_), count);
        it.episodes[number_ - 1] = count;
    });
}

ShowBuilder::ShowBuilder(Programme programme) : ProgrammeBuilder(std::move(programme)) {}

ShowBuilder& ShowBuilder::titled(std::string title) {
    return changed([&](Programme& it) { it.title = std::move(title); });
}

ShowBuilder& ShowBuilder::withSeries(std::uint32_t count) {
    return changed([&](Programme& it) {
        const std::uint32_t each = it.episodes.empty() ? 6 : it.episodes.front();
        it.episodes.assign(count, each);
    });
}

ShowBuilder& ShowBuilder::episodes(std::uint32_t count) {
    return changed([&](Programme& it) { std::fill(it.episodes.begin(), it.episodes.end(), count); });
}

ShowBuilder& ShowBuilder::asFilm() {
    return changed([](Programme& it) { it.episodes.clear(); });
}

}  // namespace VanticRestKit::Testing
