// Both engines come to the same, whatever the document: golden ones cut off, damaged and changed at random.

#include <golden/Documents.h>
#include <platform/json/Mutations.h>
#include <platform/json/SampleDocument.h>
#include <platform/json/Sanitized.h>
#include <support/TemporaryZone.h>


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

/// The golden documents whose structure is sound.
std::vector<test::GoldenDocument> soundDocuments() {
    std::vector<test::GoldenDocument> documents = test::goldenDocuments();
    std::erase_if(documents, [](const test::GoldenDocument& document) {
        return document.expected.starts_with("failure: dataCorrupted []");
    });
    return documents;
}

/// How many of `count` documents decode: the originals in turn, changed at random.
std::size_t decodedOf(std::size_t count, const test::NamedType& type, const std::vector<test::ChangeableDocument>& originals) {
    test::Random random(20240229);
    std::size_t decoded = 0;
    for (std::size_t i = 0; i < count; ++i) {
        const std::string json = originals[i % originals.size()].changed(random);
        const test::Outcome outcome = test::decodeByBoth(type.type, Data(json));
        EXPECT_EQ(outcome.difference, "") << type.name << " " << json;
        if (!outcome.difference.empty()) break;
        if (outcome.failure.empty()) ++decoded;
    }
    return decoded;
}

TEST(BothEngines, AgreeOnDocumentsChangedAtRandom) {
    const test::TemporaryZone utc("UTC0");
    const std::vector<test::GoldenDocument> documents = soundDocuments();
    for (const test::NamedType& type : test::rootEntities()) {
        // The golden ones, and one that leaves out no key.
        const std::string sample = test::sampleDocument(type.type.plan());
        EXPECT_EQ(test::decodeByBoth(type.type, Data(sample)).failure, "") << type.name << " " << sample;
        std::vector<test::ChangeableDocument> originals = {test::ChangeableDocument(sample)};
        for (const test::GoldenDocument& document : documents) {
            if (document.type.name == type.name) originals.emplace_back(document.json);
        }
        const std::size_t decoded = decodedOf(documentsPerType, type, originals);
        // The changes are such that much of both is seen.
        EXPECT_GE(decoded, documentsPerType / 50) << type.name;
        EXPECT_LE(decoded, documentsPerType - documentsPerType / 50) << type.name;
    }
}

TEST(BothEngines, AgreeThatADocumentThatIsCutOffIsBroken) {
    for (const test::GoldenDocument& document : soundDocuments()) {
        const std::size_t end = document.json.find_last_not_of(" \n");
        for (std::size_t size = 0; size <= end; ++size) {
            const test::Outcome outcome =
                test::decodeByBoth(document.type.type, Data(std::string_view(document.json).substr(0, size)));
            ASSERT_EQ(outcome.difference, "") << document.name << " cut off at " << size;
            ASSERT_EQ(outcome.failure, "dataCorrupted []") << document.name << " cut off at " << size;
        }
    }
}

TEST(BothEngines, AgreeOnADocumentWithADamagedByte) {
    const test::TemporaryZone utc("UTC0");
    constexpr std::string_view bytes("\"\\{]:,0- \xff\0t", 12);
    for (const test::GoldenDocument& document : soundDocuments()) {
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

}  // namespace
}  // namespace VanticRestKit
