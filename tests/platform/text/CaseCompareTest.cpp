#include <VanticRestKit/platform/text/CaseCompare.h>

#include <support/Vectors.h>

#include <gtest/gtest.h>

namespace VanticRestKit {
namespace {

TEST(SameIgnoringCase, ComparesAsThePlatformDoes) {
    for (const nlohmann::json& line : test::vectors("case_compare.jsonl")) {
        const bool same =
            sameIgnoringCase(line["in"]["a"].get<std::string>(), line["in"]["b"].get<std::string>());
        if (test::isFree(line)) continue;
        EXPECT_EQ(same, line["out"].get<bool>()) << line["in"];
    }
}

TEST(SameIgnoringCase, TakesBytesThatAreNotUTF8AsTheyAre) {
    EXPECT_TRUE(sameIgnoringCase("\xFF", "\xFF"));
    EXPECT_FALSE(sameIgnoringCase("\xFF", "\xFE"));
    EXPECT_FALSE(sameIgnoringCase("a\xFF", "A\xFF"));
}

}  // namespace
}  // namespace VanticRestKit
