// Both engines come to the same, whatever the document: golden ones cut off, damaged and changed at random.

#include <golden/Documents.h>
#include <platform/json/Mutations.h>
#include <platform/json/Sanitized.h>
#include <support/TemporaryZone.h>

#include <map>

namespace VanticRestKit {
namespace {

// A sanitizer makes each document cost ten times as much.
#ifdef VRK_IS_SANITIZED
constexpr std::size_t documentsPerType = 2'000;
constexpr std::size_t stepOfDamages = 11;
#else
constexpr std::size_t documentsPerType = 20'000;
constexpr std::size_t stepOfDamages = 1;
#endif

/// The documents whose structure is sound, by type.
std::map<std::string, std::vector<test::GoldenDocument>> soundDocuments() {
    std::map<std::string, std::vector<test::GoldenDocument>> documents;
    for (test::GoldenDocument& document : test::goldenDocuments()) {
        if (document.expected.starts_with("failure: dataCorrupted []")) continue;
        documents[std::string(document.type.name)].push_back(std::move(document));
    }
    return documents;
}

TEST(BothEngines, AgreeOnDocumentsChangedAtRandom) {
    const test::TemporaryZone utc("UTC0");
    for (const auto& [name, documents] : soundDocuments()) {
        test::Random random(20240229);
        std::vector<test::JSONTree> trees;
        for (const test::GoldenDocument& document : documents) trees.push_back(test::JSONTree::parse(document.json));
        std::size_t decoded = 0;
        for (std::size_t i = 0; i < documentsPerType; ++i) {
            const std::string json = test::mutated(trees[i % trees.size()], random);
            const test::Outcome outcome = test::decodeByBoth(documents.front().type.type, Data(json));
            ASSERT_EQ(outcome.difference, "") << name << " " << json;
            if (outcome.failure.empty()) ++decoded;
        }
        // The changes are such that much of both is seen.
        EXPECT_GE(decoded, documentsPerType / 20) << name;
        EXPECT_LE(decoded, documentsPerType - documentsPerType / 20) << name;
    }
}

TEST(BothEngines, AgreeThatADocumentThatIsCutOffIsBroken) {
    for (const auto& [name, documents] : soundDocuments()) {
        for (const test::GoldenDocument& document : documents) {
            const std::size_t end = document.json.find_last_not_of(" \n");
            for (std::size_t size = 0; size <= end; ++size) {
                const test::Outcome outcome =
                    test::decodeByBoth(document.type.type, Data(std::string_view(document.json).substr(0, size)));
                ASSERT_EQ(outcome.difference, "") << document.name << " cut off at " << size;
                ASSERT_EQ(outcome.failure, "dataCorrupted []") << document.name << " cut off at " << size;
            }
        }
    }
}

TEST(BothEngines, AgreeOnADocumentWithADamagedByte) {
    const test::TemporaryZone utc("UTC0");
    constexpr std::string_view bytes("\"\\{]:,0- \xff\0t", 12);
    for (const auto& [name, documents] : soundDocuments()) {
        for (const test::GoldenDocument& document : documents) {
            for (std::size_t at = 0; at < document.json.size(); at += stepOfDamages) {
                std::string damaged = document.json;
                for (const char byte : bytes) {
                    damaged[at] = byte;
                    const test::Outcome outcome = test::decodeByBoth(document.type.type, Data(damaged));
                    ASSERT_EQ(outcome.difference, "") << document.name << " at " << at << ": " << damaged;
                }
            }
        }
    }
}

}  // namespace
}  // namespace VanticRestKit
