#include <lumeno/Routes.h>
#include <VanticRestKit/lumeno/NowNext/NowNextRoutes.h>

namespace VanticRestKit {
namespace {

using test::expectAGet;

TEST(NowNextURI, AppendsTheHouseNumberToThePathUnchanged) {
    expectAGet(NowNextURI{.houseNumber = "N1"}, "v2/nownext/N1");
    expectAGet(NowNextURI{.houseNumber = ""}, "v2/nownext/");
    expectAGet(NowNextURI{.houseNumber = "a b/../c?d=%20"}, "v2/nownext/a b/../c?d=%20");
}

TEST(LivestreamsURI, HasNoTrailingSlashWithoutARegion) {
    expectAGet(LivestreamsURI{.region = std::nullopt}, "v2/livestreams");
}

TEST(LivestreamsURI, AppendsTheRawValueOfARegionToThePath) {
    for (const LivestreamRegion region : LivestreamRegion::allCases) {
        expectAGet(LivestreamsURI{.region = region}, "v2/livestreams/" + std::string(rawValue(region)));
    }
    expectAGet(LivestreamsURI{.region = LivestreamRegion::NSW}, "v2/livestreams/nsw");
}

}  // namespace
}  // namespace VanticRestKit
