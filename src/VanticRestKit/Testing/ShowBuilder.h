#pragma once

/// \file
/// `aShow`, `aSeries`, `aVideo`: builders of programmes and their parts.

#include <VanticRestKit/lumeno/Series/Series.h>
#include <VanticRestKit/lumeno/Show/Show.h>
#include <VanticRestKit/lumeno/Video/Video.h>
#include <VanticRestKit/Testing/Builder.h>
#include <VanticRestKit/Testing/Programme.h>

#include <chrono>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace VanticRestKit::Testing {

/// The common base of the builders of shows, series and videos.
template <class Self, class T>
class ProgrammeBuilder : public Builder<Self, T> {
public:
    /// Sets the id of the show. The ids of series and videos are derived from it.
    Self& withId(std::uint32_t id) {
        return changed([&](Programme& it) { it.id = id; });
    }
    /// Sets the prefix of house numbers.
    Self& withCode(std::string code) {
        return changed([&](Programme& it) { it.code = std::move(code); });
    }
    /// Sets the slug.
    Self& withSlug(std::string slug) {
        return changed([&](Programme& it) { it.slug = std::move(slug); });
    }
    /// Sets the description.
    Self& describedAs(std::string text) {
        return changed([&](Programme& it) { it.description = std::move(text); });
    }
    /// Sets the channel.
    Self& onChannel(std::string id) {
        return changed([&](Programme& it) { it.channel = std::move(id); });
    }
    /// Sets the category.
    Self& inCategory(std::string id) {
        return changed([&](Programme& it) { it.category = std::move(id); });
    }
    /// Sets the age classification.
    Self& classified(std::string text) {
        return changed([&](Programme& it) { it.classification = std::move(text); });
    }
    /// Sets the tags.
    Self& tagged(std::vector<std::string> tags) {
        return changed([&](Programme& it) { it.tags = std::move(tags); });
    }

    /// The programme that the document is built from.
    const Programme& programme() const noexcept { return programme_; }

protected:
    /// Creates a builder for a programme.
    explicit ProgrammeBuilder(Programme programme) : programme_(std::move(programme)) {}

    /// Changes the programme and rebuilds the document.
    template <class Change>
    Self& changed(Change change) {
        change(programme_);
        return static_cast<Self&>(*this);
    }

private:
    Programme programme_;
};

/// A video; by default the first episode of a series.
class VideoBuilder : public ProgrammeBuilder<VideoBuilder, Video> {
public:
    /// An episode of a programme.
    explicit VideoBuilder(Programme programme = {}, std::uint32_t series = 1, std::uint32_t episode = 1);

    /// Sets the title of the video. `ofShow` sets that of its show.
    VideoBuilder& titled(std::string title) { return with("title", std::move(title)); }
    /// Sets the title of the show.
    VideoBuilder& ofShow(std::string title);
    /// Sets the house number.
    VideoBuilder& withHouseNumber(const std::string& houseNumber);
    /// Sets the duration.
    VideoBuilder& lasting(std::chrono::seconds duration);
    /// Marks the video as not playable, with a message that says why.
    VideoBuilder& notPlayable(std::string message = "Not available in your region");

private:
    friend class Builder<VideoBuilder, Video>;
    std::string original() const;

    std::uint32_t series_;
    std::uint32_t episode_;
};

/// A series with its episodes.
class SeriesBuilder : public ProgrammeBuilder<SeriesBuilder, Series> {
public:
    /// A series of a programme.
    explicit SeriesBuilder(Programme programme = {}, std::uint32_t number = 1);

    /// Sets the title.
    SeriesBuilder& titled(std::string title) { return with("title", std::move(title)); }
    /// Sets the title of the show.
    SeriesBuilder& ofShow(std::string title);
    /// Sets the number of episodes.
    SeriesBuilder& episodes(std::uint32_t count);
    /// The builder of one of its episodes; `number` starts at 1.
    VideoBuilder episode(std::uint32_t number) const { return VideoBuilder(programme(), number_, number); }

private:
    friend class Builder<SeriesBuilder, Series>;
    std::string original() const;

    std::uint32_t number_;
};

/// A show with its list of series, of which the first contains its episodes, and with a video to play. `aShow()` has
/// one series of six episodes.
class ShowBuilder : public ProgrammeBuilder<ShowBuilder, Show> {
public:
    /// A show.
    explicit ShowBuilder(Programme programme = {});

    /// Sets the title, and also the slug derived from it unless `withSlug` sets one.
    ShowBuilder& titled(std::string title);
    /// Sets the number of series, each with the episodes of the first one.
    ShowBuilder& withSeries(std::uint32_t count);
    /// Sets the number of episodes in each series.
    ShowBuilder& episodes(std::uint32_t count);
    /// Makes it a film, with one video and no series.
    ShowBuilder& asFilm();

    /// The builder of one of its series; `number` starts at 1.
    SeriesBuilder series(std::uint32_t number) const { return SeriesBuilder(programme(), number); }
    /// The builder of one of its episodes; both numbers start at 1.
    VideoBuilder episode(std::uint32_t seriesNumber, std::uint32_t number) const {
        return VideoBuilder(programme(), seriesNumber, number);
    }

private:
    friend class Builder<ShowBuilder, Show>;
    std::string original() const { return detail::showDocument(programme()); }
};

/// A builder of a show.
inline ShowBuilder aShow() { return ShowBuilder(); }
/// A builder of a series.
inline SeriesBuilder aSeries() { return SeriesBuilder(); }
/// A builder of a video.
inline VideoBuilder aVideo() { return VideoBuilder(); }

}  // namespace VanticRestKit::Testing
