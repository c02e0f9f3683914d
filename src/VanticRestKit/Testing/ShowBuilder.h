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

/// What the builders of a show, a series and a video say of their programme.
template <class Self, class T>
class ProgrammeBuilder : public Builder<Self, T> {
public:
    /// Ids of series and videos follow from it.
    Self& withId(std::uint32_t id) {
        return changed([&](Programme& it) { it.id = id; });
    }
    /// House numbers begin with it.
    Self& withCode(std::string code) {
        return changed([&](Programme& it) { it.code = std::move(code); });
    }
    Self& withSlug(std::string slug) {
        return changed([&](Programme& it) { it.slug = std::move(slug); });
    }
    Self& describedAs(std::string text) {
        return changed([&](Programme& it) { it.description = std::move(text); });
    }
    Self& onChannel(std::string id) {
        return changed([&](Programme& it) { it.channel = std::move(id); });
    }
    Self& inCategory(std::string id) {
        return changed([&](Programme& it) { it.category = std::move(id); });
    }
    Self& classified(std::string text) {
        return changed([&](Programme& it) { it.classification = std::move(text); });
    }
    Self& tagged(std::vector<std::string> tags) {
        return changed([&](Programme& it) { it.tags = std::move(tags); });
    }

    const Programme& programme() const noexcept { return programme_; }

protected:
    explicit ProgrammeBuilder(Programme programme) : programme_(std::move(programme)) {}

    template <class Change>
    Self& changed(Change change) {
        change(programme_);
        return static_cast<Self&>(*this);
    }

private:
    Programme programme_;
};

/// A video: the first episode of a series, unless it is told otherwise.
class VideoBuilder : public ProgrammeBuilder<VideoBuilder, Video> {
public:
    explicit VideoBuilder(Programme programme = {}, std::uint32_t series = 1, std::uint32_t episode = 1);

    /// The title of the video; that of its show is `ofShow`.
    VideoBuilder& titled(std::string title) { return with("title", std::move(title)); }
    VideoBuilder& ofShow(std::string title);
    VideoBuilder& withHouseNumber(const std::string& houseNumber);
    VideoBuilder& lasting(std::chrono::seconds duration);
    /// Not to be played, with the sentence that says why.
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
    explicit SeriesBuilder(Programme programme = {}, std::uint32_t number = 1);

    SeriesBuilder& titled(std::string title) { return with("title", std::move(title)); }
    SeriesBuilder& ofShow(std::string title);
    SeriesBuilder& episodes(std::uint32_t count);
    /// The builder of one of its episodes, from 1.
    VideoBuilder episode(std::uint32_t number) const { return VideoBuilder(programme(), number_, number); }

private:
    friend class Builder<SeriesBuilder, Series>;
    std::string original() const;

    std::uint32_t number_;
};

/// A show with its list of series, the first of them with its episodes, and a video to play. `aShow()` has one series of
/// six episodes.
class ShowBuilder : public ProgrammeBuilder<ShowBuilder, Show> {
public:
    explicit ShowBuilder(Programme programme = {});

    /// Also gives it the slug that follows from the title, unless `withSlug` sets one.
    ShowBuilder& titled(std::string title);
    /// That many series, each with the episodes of the first one.
    ShowBuilder& withSeries(std::uint32_t count);
    /// That many episodes in each series.
    ShowBuilder& episodes(std::uint32_t count);
    /// A film: one video, no series.
    ShowBuilder& asFilm();

    /// The builders of its parts, which count from 1.
    SeriesBuilder series(std::uint32_t number) const { return SeriesBuilder(programme(), number); }
    VideoBuilder episode(std::uint32_t seriesNumber, std::uint32_t number) const {
        return VideoBuilder(programme(), seriesNumber, number);
    }

private:
    friend class Builder<ShowBuilder, Show>;
    std::string original() const { return detail::showDocument(programme()); }
};

inline ShowBuilder aShow() { return ShowBuilder(); }
inline SeriesBuilder aSeries() { return SeriesBuilder(); }
inline VideoBuilder aVideo() { return VideoBuilder(); }

}  // namespace VanticRestKit::Testing
