// Both engines agree on truncated and damaged golden documents.

#include <golden/Documents.h>
#include <support/Sanitized.h>
#include <support/TemporaryZone.h>

#include <string>
#include <string_view>
#include <vector>

namespace VanticRestKit {
namespace {

// A sanitizer or an emulator makes each document cost ten times as much.
#ifdef VRK_IS_SLOW
constexpr std::size_t placesPerDocument = 40;
#else
constexpr std::size_t placesPerDocument = 600;
#endif

/// The step between positions in a document: one byte, or more for a long document.
std::size_t stepIn(const test::GoldenDocument& document) {
    return 1 + document.json.size() / placesPerDocument;
}

TEST(BothEngines, AgreeThatATruncatedDocumentIsMalformed) {
    for (const test::GoldenDocument& document : test::wellFormedGoldenDocuments()) {
        const std::size_t end = document.json.find_last_not_of(" \n");
        for (std::size_t size = 0; size <= end; size += stepIn(document)) {
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
    for (const test::GoldenDocument& document : test::wellFormedGoldenDocuments()) {
        for (std::size_t at = 0; at < document.json.size(); at += stepIn(document)) {
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
