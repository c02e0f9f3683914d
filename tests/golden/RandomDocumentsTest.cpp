// Both engines agree on a hundred thousand randomly changed documents of each type.

#include <golden/Documents.h>
#include <platform/json/Mutations.h>
#include <platform/json/SampleDocument.h>
#include <support/Sanitized.h>
#include <support/TemporaryZone.h>

#include <string>
#include <vector>

namespace VanticRestKit {
namespace {

// A sanitizer or an emulator makes each document cost ten times as much.
#ifdef VRK_IS_SLOW
constexpr std::size_t documentsPerType = 2'000;
#else
constexpr std::size_t documentsPerType = 100'000;
#endif

/// The golden documents of a type, and one with every key.
std::vector<test::ChangeableDocument> originalsOf(const test::NamedType& type) {
    const std::string sample = test::sampleDocument(type.type.plan());
    EXPECT_EQ(test::decodeByBoth(type.type, Data(sample)).failure, "") << sample;
    std::vector<test::ChangeableDocument> originals = {test::ChangeableDocument(sample)};
    for (const test::GoldenDocument& document : test::wellFormedGoldenDocuments()) {
        if (document.type.name == type.name) originals.emplace_back(document.json);
    }
    return originals;
}

class RandomDocuments : public testing::TestWithParam<test::NamedType> {};

TEST_P(RandomDocuments, HaveTheSameOutcomeInBothEngines) {
    const test::TemporaryZone utc("UTC0");
    const test::NamedType& type = GetParam();
    const std::vector<test::ChangeableDocument> originals = originalsOf(type);
    test::Random random(20240229);
    std::size_t decoded = 0;
    for (std::size_t i = 0; i < documentsPerType; ++i) {
        const std::string json = originals[i % originals.size()].changed(random);
        const test::Outcome outcome = test::decodeByBoth(type.type, Data(json));
        ASSERT_EQ(outcome.difference, "") << json;
        if (outcome.failure.empty()) ++decoded;
        // A value that exceeds the budget by one byte fails as a whole, even if parts of it could be dropped.
        if (i % 10 != 0 || outcome.memory == 0) continue;
        const test::Outcome beyond = test::decodeByBoth(type.type, Data(json), outcome.memory - 1);
        ASSERT_EQ(beyond.difference, "") << json;
        ASSERT_EQ(beyond.failure, "dataCorrupted []") << json;
    }
    // The changes produce enough of both outcomes.
    EXPECT_GE(decoded, documentsPerType / 50);
    EXPECT_LE(decoded, documentsPerType - documentsPerType / 50);
}

INSTANTIATE_TEST_SUITE_P(OfEachType, RandomDocuments, testing::ValuesIn(test::rootEntities()),
                         [](const auto& instance) { return std::string(instance.param.name); });

}  // namespace
}  // namespace VanticRestKit
