#include <gtest/gtest.h>
#include <VanticRestKit/lumeno/NowNext/LivestreamRegion.h>

#include <algorithm>
#include <compare>
#include <functional>
#include <set>
#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

namespace VanticRestKit {
namespace {

const auto [ACT, SA, NSW, VIC, WA, NT, QLD, TAS] =
    std::tuple(LivestreamRegion::ACT, LivestreamRegion::SA, LivestreamRegion::NSW, LivestreamRegion::VIC,
               LivestreamRegion::WA, LivestreamRegion::NT, LivestreamRegion::QLD, LivestreamRegion::TAS);
using Regions = std::vector<LivestreamRegion>;

const std::vector<std::pair<LivestreamRegion, std::string>> cases = {
    {ACT, "act"}, {SA, "sa"}, {NSW, "nsw"}, {VIC, "vic"}, {WA, "wa"}, {NT, "nt"}, {QLD, "qld"}, {TAS, "tas"}};

Regions all() { return {LivestreamRegion::allCases.begin(), LivestreamRegion::allCases.end()}; }

TEST(LivestreamRegion, ListsAllCasesInOrder) {
    EXPECT_EQ(all(), (Regions{ACT, SA, NSW, VIC, WA, NT, QLD, TAS}));
    EXPECT_EQ(all().front(), ACT);
}

TEST(LivestreamRegion, IsReadOnlyFromItsRawValue) {
    ASSERT_EQ(std::size(RawTexts<LivestreamRegion>::cases), cases.size());
    for (std::size_t i = 0; i < cases.size(); ++i) {
        const auto& [region, raw] = cases[i];
        EXPECT_EQ(RawTexts<LivestreamRegion>::cases[i].value, region);
        EXPECT_EQ(rawValue(region), raw);
        EXPECT_EQ(fromRawValue<LivestreamRegion>(raw), region);
    }
    EXPECT_EQ(caseName(NSW), "NSW");
    for (const char* const unknown : {"", "NSW", "Nsw", "nsw ", "vi", "nz"}) {
        EXPECT_EQ(fromRawValue<LivestreamRegion>(unknown), std::nullopt) << unknown;
    }
}

TEST(LivestreamRegion, ComparesByRawValueNotByCaseOrder) {
    for (const auto& [a, rawA] : cases) {
        for (const auto& [b, rawB] : cases) {
            EXPECT_EQ(a < b, rawA < rawB) << rawA << " " << rawB;
            EXPECT_EQ(a > b, rawA > rawB) << rawA << " " << rawB;
            EXPECT_EQ(a <= b, rawA <= rawB) << rawA << " " << rawB;
            EXPECT_EQ(a >= b, rawA >= rawB) << rawA << " " << rawB;
            EXPECT_EQ(a == b, rawA == rawB) << rawA << " " << rawB;
            EXPECT_EQ(a <=> b, rawA <=> rawB) << rawA << " " << rawB;
            EXPECT_EQ(std::make_pair(a, 0) < std::make_pair(b, 0), rawA < rawB) << rawA << " " << rawB;
        }
    }
}

TEST(LivestreamRegion, IsSortedByRawValue) {
    Regions regions = all();
    std::sort(regions.begin(), regions.end());
    EXPECT_EQ(regions, (Regions{ACT, NSW, NT, QLD, SA, TAS, VIC, WA}));
    const std::set<LivestreamRegion> kept = {WA, SA, NSW};
    EXPECT_EQ(Regions(kept.begin(), kept.end()), (Regions{NSW, SA, WA}));
}

TEST(LivestreamRegion, CanBeUsedInASwitch) {
    for (const auto& [region, raw] : cases) {
        switch (region) {
            case LivestreamRegion::ACT: EXPECT_EQ(raw, "act"); break;
            case LivestreamRegion::SA: EXPECT_EQ(raw, "sa"); break;
            case LivestreamRegion::NSW: EXPECT_EQ(raw, "nsw"); break;
            case LivestreamRegion::VIC: EXPECT_EQ(raw, "vic"); break;
            case LivestreamRegion::WA: EXPECT_EQ(raw, "wa"); break;
            case LivestreamRegion::NT: EXPECT_EQ(raw, "nt"); break;
            case LivestreamRegion::QLD: EXPECT_EQ(raw, "qld"); break;
            case LivestreamRegion::TAS: EXPECT_EQ(raw, "tas"); break;
        }
    }
    EXPECT_EQ(LivestreamRegion(), ACT);
}

TEST(LivestreamRegion, CanBeUsedInHashedSets) {
    std::unordered_set<LivestreamRegion> regions;
    for (const LivestreamRegion region : all()) EXPECT_TRUE(regions.insert(region).second);
    for (const LivestreamRegion region : all()) EXPECT_FALSE(regions.insert(region).second);
    EXPECT_EQ(regions.size(), 8U);
    EXPECT_EQ(std::hash<LivestreamRegion>()(NSW),
              std::hash<LivestreamRegion>()(*fromRawValue<LivestreamRegion>("nsw")));
}

}  // namespace
}  // namespace VanticRestKit
