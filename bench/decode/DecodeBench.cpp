// The cost of decoding, relative to the allocation floor: the cost of building the same structs from known values,
// which is measured by copying a decoded one. Both sides include destruction.
//   decode_bench            the table
//   decode_bench --quick    few rounds, to see whether it runs

#include "../support/Measure.h"
#include "Documents.h"
#include "Parsers.h"

#include <VanticRestKit/platform/json/JSONDecoder.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

namespace VanticRestKit::bench {

namespace {

/// The parsers that were found when this was built.
std::vector<Peer> peers() {
    std::vector<Peer> all;
    all.push_back(simdjsonPeer());
#if VRK_BENCH_RAPIDJSON
    all.push_back(rapidjsonPeer());
#endif
    all.push_back(nlohmannPeer());
    return all;
}

template <class T>
T decoded(const Data& document) {
    Result<T, Error> value = JSONDecoder().decode<T>(document);
    if (!value) std::abort();
    return *std::move(value);
}

VideoList built(const VideoList& list) { return list; }
ShowsIndex built(const ShowsIndex& index) { return index; }

/// Copies of an item share its entity, so this copies the entity.
CollectionItem built(const CollectionItem& item) {
    if (const Show* show = item.as<Show>()) return *show;
    if (const Video* video = item.as<Video>()) return *video;
    if (const Series* series = item.as<Series>()) return *series;
    std::abort();
}

MixedCollection built(const MixedCollection& collection) {
    MixedCollection copy = collection;
    for (MixedItem& item : copy.mixedItems) item = built(item.item().value());
    if (copy.highlightItem) copy.highlightItem = built(*copy.highlightItem);
    return copy;
}

Category built(const Category& home) {
    Category copy{.id = home.id,
                  .title = home.title,
                  .featuredImageHref = home.featuredImageHref,
                  .logoHref = home.logoHref,
                  .banner = home.banner,
                  .theme = home.theme,
                  .selfHref = home.selfHref,
                  .alertId = home.alertId,
                  .featuredCollection = built(home.featuredCollection)};
    copy.collections.reserve(home.collections.size());
    for (const MixedCollection& collection : home.collections) copy.collections.push_back(built(collection));
    return copy;
}

/// Measures one document with this library and with the other parsers.
template <class T>
void ratios(const std::string& what, const std::string& text, std::function<T(const Data&)> Peer::*decode,
            const char* budget, const char* goal, std::size_t rounds) {
    const Data document(text);
    const T value = decoded<T>(document);
    const std::vector<Peer> others = peers();

    std::vector<Case> cases = {{"allocation floor", [&value] { keep(built(value)); }},
                               {"VanticRestKit", [&] { keep(JSONDecoder().decode<T>(document)); }}};
    for (const Peer& peer : others) {
        if ((peer.*decode)(document) != value) {
            std::fprintf(stderr, "%s reads another value: %s\n", peer.name.c_str(), what.c_str());
            std::exit(1);
        }
        cases.push_back({peer.name, [&, decode] { keep((peer.*decode)(document)); }, peer.every});
    }
    const std::vector<Times> times = interleaved(rounds, cases);
    for (std::size_t i = 1; i < cases.size(); ++i) {
        const bool isOurs = i == 1;
        report("decode " + what + ", to the allocation floor: " + cases[i].name,
               figure(times[i].least() / times[0].least()), isOurs ? budget : "", isOurs ? goal : "",
               "median " + figure(times[i].ratio()));
    }
}

/// The time per byte for lists of about 1, 10 and 100 MB; each run decodes the same total amount.
void linearity(std::size_t rounds) {
    constexpr std::size_t videosOfAMegabyte = 360;
    std::vector<Data> documents;
    for (const std::size_t megabytes : {1U, 10U, 100U}) {
        documents.emplace_back(videoListDocument(videosOfAMegabyte * megabytes, false));
    }
    std::vector<Case> cases;
    for (const Data& document : documents) {
        const std::size_t times = documents.back().size() / document.size();
        cases.push_back({"", [&document, times] {
                             for (std::size_t i = 0; i < times; ++i)
                                 keep(JSONDecoder().decode<VideoList>(document));
                         }});
    }
    const std::vector<Times> times = interleaved(rounds, cases);
    const auto perByte = [&times](std::size_t i) { return figure(times[i].least() / times[0].least()); };
    report("decode, time for a byte of 10 MB, to that of 1 MB", perByte(1), "2", "", "");
    report("decode, time for a byte of 100 MB, to that of 1 MB", perByte(2), "2", "",
           "ten times as much may cost more memory traffic, not more work");
}

/// The ratio for 100 MB.
void largeRatio(std::size_t rounds) {
    const Data document(videoListDocument(36'000, false));
    const VideoList list = decoded<VideoList>(document);
    const std::vector<Times> times =
        interleaved(rounds, {{"", [&list] { keep(built(list)); }},
                             {"", [&] { keep(JSONDecoder().decode<VideoList>(document)); }}});
    report("decode 100 MB of videos, to the allocation floor: VanticRestKit",
           figure(times[1].least() / times[0].least()), "", "", "");
}

}  // namespace

}  // namespace VanticRestKit::bench

int main(int count, char** arguments) {
    using namespace VanticRestKit::bench;
    const bool isQuick = count > 1 && std::string_view(arguments[1]) == "--quick";
    const std::size_t rounds = isQuick ? 20 : 400;
    ratios("200 videos, keys in order", videoListDocument(200, false), &Peer::videos, "1.9", "1.5", rounds);
    ratios("200 videos, keys shuffled", videoListDocument(200, true), &Peer::videos, "2.7", "2.0", rounds);
    ratios("a home screen of 1 MB", homeDocument(), &Peer::home, "1.5", "1.2", rounds / 2);
    ratios("an index of 2,000 shows", showsIndexDocument(2000), &Peer::shows, "2.4", "1.8", rounds / 8);
    linearity(isQuick ? 1 : 5);
    largeRatio(isQuick ? 1 : 5);
}
