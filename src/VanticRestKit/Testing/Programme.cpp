#include <VanticRestKit/Testing/Programme.h>

#include <catalogue/Catalogue.h>
#include <catalogue/ShowJSON.h>
#include <catalogue/Tables.h>
#include <catalogue/VideoJSON.h>
#include <server/Origin.h>

#include <algorithm>
#include <cctype>

namespace VanticRestKit::Testing {

std::string Programme::effectiveSlug() const {
    if (!slug.empty()) return slug;
    std::string derived;
    for (const char letter : title) {
        const auto byte = static_cast<unsigned char>(letter);
        if (std::isalnum(byte) != 0) {
            derived += static_cast<char>(std::tolower(byte));
        } else if (!derived.empty() && derived.back() != '-') {
            derived += '-';
        }
    }
    if (derived.ends_with('-')) derived.pop_back();
    return derived.empty() ? "untitled" : derived;
}

namespace detail {

namespace {

constexpr const char* origin = "https://service.test";

/// `id` if the table has such a row, otherwise the id of its first row, because the documents need an existing one.
template <class Row>
std::string known(const std::vector<Row>& table, const std::string& id) {
    return sample::rowOf(table, id) != nullptr ? id : table.front().id;
}

sample::Show showOf(const Programme& programme) {
    sample::Show show{};
    show.id = programme.id;
    show.code = programme.code;
    show.slug = programme.effectiveSlug();
    show.title = programme.title;
    show.type = programme.episodes.empty() ? "feature" : "episode";
    show.channel = known(sample::channels(), programme.channel);
    show.category = known(sample::categories(), programme.category);
    show.classification = programme.classification;
    show.description = programme.description;
    show.participantsTitle = "Starring";
    show.participants = "Odile Brannagh, Tam Weatherby, Ines Calloway";
    show.tags = programme.tags;
    for (const std::uint32_t count : programme.episodes) {
        auto& titles = show.series.emplace_back();
        for (std::uint32_t episode = 1; episode <= std::max(count, 1U); ++episode) {
            titles.push_back("Episode " + std::to_string(episode));
        }
    }
    return show;
}

/// The document as text, with the programme's own channel even if that is not in the table.
std::string written(sample::JSON json, const Programme& programme) {
    json["channel"] = programme.channel;
    sample::fillOrigin(json, origin);
    return json.dump(-1, ' ', false, sample::JSON::error_handler_t::replace);
}

/// The catalogue of one programme.
class OneProgramme {
public:
    explicit OneProgramme(const Programme& programme) : catalogue_({showOf(programme)}) {}

    const sample::Show& show() const { return catalogue_.shows().front(); }
    std::vector<const sample::Series*> series() const { return catalogue_.seriesOf(show()); }
    std::vector<const sample::Video*> videos() const { return catalogue_.videosOf(show()); }

private:
    sample::Catalogue catalogue_;
};

}  // namespace

std::string showDocument(const Programme& programme) {
    const OneProgramme catalogue(programme);
    sample::ShowExtras extras;
    extras.highlightVideo = catalogue.videos().front();
    if (!catalogue.series().empty()) {
        extras.selectedSeries = catalogue.series().front();
        extras.seriesList = true;
    }
    return written(sample::showJSON(catalogue.show(), extras), programme);
}

std::string seriesDocument(const Programme& programme, std::uint32_t series) {
    const OneProgramme catalogue(programme);
    const auto all = catalogue.series();
    if (all.empty()) return "null";
    const std::size_t place = std::clamp<std::size_t>(series, 1, all.size()) - 1;
    return written(sample::seriesJSON(*all[place], true), programme);
}

std::string videoDocument(const Programme& programme, std::uint32_t series, std::uint32_t episode) {
    const OneProgramme catalogue(programme);
    const auto videos = catalogue.videos();
    const auto isIt = [=](const sample::Video* video) {
        return video->series == series && video->episode == episode;
    };
    const auto place = std::find_if(videos.begin(), videos.end(), isIt);
    return written(sample::videoJSON(place == videos.end() ? *videos.front() : **place), programme);
}

}  // namespace detail
}  // namespace VanticRestKit::Testing
