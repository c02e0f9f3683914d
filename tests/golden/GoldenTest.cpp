// Compares the decoded values of complete documents with the expected text.

#include <golden/Documents.h>
#include <platform/json/BothEngines.h>
#include <platform/json/Mutations.h>
#include <support/TemporaryZone.h>
#include <VanticRestKit/platform/json/JSONDecoder.h>
#include <VanticRestKit/platform/json/ValueText.h>

#include <set>

namespace VanticRestKit {
namespace {

/// The value as indented JSON, or the failure.
std::string shownBy(const test::GoldenDocument& document) {
    const test::Outcome outcome = test::outcomeOf(document.type.type, document.json);
    if (!outcome.failure.empty()) return "failure: " + outcome.failure + "\n";
    const TypePlan& plan = document.type.type.plan();
    const std::shared_ptr<void> value = document.type.type.make();
    EXPECT_TRUE(JSONDecoder().decode(Data(document.json), plan, value.get()));
    return valueText(plan, value.get(), ValueLayout::indented) + "\n";
}

TEST(GoldenDocuments, DecodeIntoTheExpectedValues) {
    const test::TemporaryZone utc("UTC0");
    for (const test::GoldenDocument& document : test::goldenDocuments()) {
        test::expectGolden(shownBy(document), document.name + ".expected");
    }
}

TEST(GoldenDocuments, DecodeTheSameWithoutWhitespace) {
    const test::TemporaryZone utc("UTC0");
    for (test::GoldenDocument document : test::goldenDocuments()) {
        if (document.expected.starts_with("failure: dataCorrupted []")) continue;
        document.json = test::ChangeableDocument(document.json).text();
        EXPECT_EQ(shownBy(document), document.expected) << document.name;
    }
}

TEST(GoldenDocuments, ExistForEveryType) {
    std::set<std::string_view> types;
    for (const test::GoldenDocument& document : test::goldenDocuments()) types.insert(document.type.name);
    for (const test::NamedType& type : test::rootEntities()) {
        EXPECT_TRUE(types.contains(type.name)) << type.name;
    }
}

}  // namespace
}  // namespace VanticRestKit
