// What decoding costs, as ratios to the allocation floor: the cost of building the same structs from values
// that are known, which is copying a decoded list. Destruction is part of both sides.
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

/// The parsers that were there when this was built.
std::vector<Peer> peers() {
    std::vector<Peer> all;
    all.push_back(simdjsonPeer());
#if VRK_BENCH_RAPIDJSON
    all.push_back(rapidjsonPeer());
#endif
    all.push_back(nlohmannPeer());
    return all;
}

VideoList decoded(const Data& document) {
    Result<VideoList, Error> list = JSONDecoder().decode<VideoList>(document);
    if (!list) std::abort();
    return *std::move(list);
}

Case floorOf(const VideoList& list) {
    return {"allocation floor", [&list] { keep(VideoList(list)); }};
}

void ratios(const char* keys, bool shuffled, const char* budget, const char* goal, std::size_t rounds) {
    const Data document(videoListDocument(200, shuffled));
    const VideoList list = decoded(document);
    const std::vector<Peer> others = peers();

    std::vector<Case> cases = {floorOf(list),
                               {"VanticRestKit", [&] { keep(JSONDecoder().decode<VideoList>(document)); }}};
    for (const Peer& peer : others) {
        if (peer.decode(document) != list) {
            std::fprintf(stderr, "%s reads another list\n", peer.name.c_str());
            std::exit(1);
        }
        cases.push_back({peer.name, [&] { keep(peer.decode(document)); }, peer.every});
    }
    const std::vector<Times> times = interleaved(rounds, cases);
    for (std::size_t i = 1; i < cases.size(); ++i) {
        const bool isOurs = i == 1;
        report("decode, " + std::string(keys) + " keys, to the allocation floor: " + cases[i].name,
               figure(times[i].ratio()) + " (least to least " + figure(times[i].least() / times[0].least()) +
                   ")",
               isOurs ? budget : "", isOurs ? goal : "");
    }
}

/// The time for a byte, of lists of about 1, 10 and 100 MB; as much is decoded in each run.
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
    report("decode, time for a byte of 10 MB, to that of 1 MB", figure(times[1].ratio()), "linear", "");
    report("decode, time for a byte of 100 MB, to that of 1 MB", figure(times[2].ratio()), "linear", "");
}

/// Whether 100 MB still come close to what their structs cost.
void largeRatio(std::size_t rounds) {
    const Data document(videoListDocument(36'000, false));
    const VideoList list = decoded(document);
    const std::vector<Times> times =
        interleaved(rounds, {floorOf(list), {"", [&] { keep(JSONDecoder().decode<VideoList>(document)); }}});
    report("decode, 100 MB with ordered keys, to the allocation floor", figure(times[1].ratio()), "", "");
}

}  // namespace

}  // namespace VanticRestKit::bench

int main(int count, char** arguments) {
    using namespace VanticRestKit::bench;
    const bool isQuick = count > 1 && std::string_view(arguments[1]) == "--quick";
    ratios("ordered", false, "1.9", "1.5", isQuick ? 20 : 400);
    ratios("shuffled", true, "2.5", "2.0", isQuick ? 20 : 400);
    linearity(isQuick ? 1 : 5);
    largeRatio(isQuick ? 1 : 5);
}
