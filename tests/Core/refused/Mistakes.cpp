// The mistakes of docs/mistakes.md, one per CASE. Case 0 has no mistake.
#include <VanticRestKit/Core/Context.h>
#include <VanticRestKit/Core/Resource.h>
#include <VanticRestKit/lumeno/Endpoints/Endpoint.h>
#include <VanticRestKit/lumeno/NowNext/LivestreamRegion.h>
#include <VanticRestKit/platform/json/Table.h>
#if CASE != 7
#include <VanticRestKit/lumeno/Search/SearchResults.h>
#include <VanticRestKit/lumeno/Show/Show.h>
#include <VanticRestKit/lumeno/Video/VideoList.h>
#endif

using namespace VanticRestKit;

namespace {

struct Song {
    std::string title{};
    Date released{};
};

}  // namespace

#if CASE == 10
template <>
const TypePlan& VanticRestKit::planOf<Song>() {
    using namespace mapping;
    static const TypePlan& plan = object<Song>(lenient<&Song::released>("released"));
    return plan;
}
#endif

void mistake(const Context& context, int number) {
    static_cast<void>(number);
    auto video = Endpoint::Video({.houseNumber = "ZW1"}, context);
#if CASE == 1
    Endpoint::Video({.houseNo = "ZW1"}, context);
#elif CASE == 3
    Endpoint::Livestreams({}, context);
#elif CASE == 4
    Endpoint::Search({.channel = "abc1", .keyword = "x"}, context);
#elif CASE == 5
    Endpoint::Show({.showSlugOrId = "x", .selectedSeries = -1}, context);
#elif CASE == 6
    Endpoint::Show({.showSlugOrId = "x", .selectedSeries = number}, context);
#elif CASE == 7
    video->load({.with = [](auto) {}});
#elif CASE == 8
    video.load({.with = [](auto) {}});
#elif CASE == 9
    video->load({.with = [](const Video&) {}});
#elif CASE == 11
    const URL url("service.example/api");
#elif CASE == 2
    Endpoint::Video(Endpoint::VideoArguments{.houseNo = "ZW1"}, context);
#endif
}
