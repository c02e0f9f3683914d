// A null document and a null element decode to an empty optional of every type.

#include <golden/Documents.h>
#include <golden/Entities.h>
#include <VanticRestKit/lumeno/Navigation/BrowseList.h>
#include <VanticRestKit/lumeno/Remap/Remap.h>
#include <VanticRestKit/platform/json/JSONDecoder.h>

#include <gtest/gtest.h>

#include <optional>

namespace VanticRestKit {
namespace {

TEST(ANullDocument, IsAnEmptyValueOfEveryType) {
    for (const test::NamedType& type : test::rootEntities()) {
        const test::Outcome outcome = test::decodeByBoth(type.optional, Data("null"));
        EXPECT_EQ(outcome.difference, "") << type.name;
        EXPECT_EQ(outcome.failure, "") << type.name;
        EXPECT_EQ(outcome.value, "null") << type.name;
    }
}

TEST(ANullDocument, IsAnEmptyValueOfATypeOnlyDecodingConstructs) {
    const auto isAbsent = []<class T>(std::optional<T>) {
        const auto decoded = JSONDecoder().decode<std::optional<T>>(Data("null"));
        return decoded && !decoded->has_value();
    };
    EXPECT_TRUE(isAbsent(std::optional<Remap>()));
    EXPECT_TRUE(isAbsent(std::optional<BrowseItem>()));
    EXPECT_TRUE(isAbsent(std::optional<BrowseList>()));
    EXPECT_TRUE(isAbsent(std::optional<std::optional<Remap>>()));
}

TEST(ADocument, HasTheSameValueAsItsTypeAndAsAnOptional) {
    for (const test::GoldenDocument& document : test::wellFormedGoldenDocuments()) {
        const test::Outcome plain = test::decodeByBoth(document.type.type, Data(document.json));
        const test::Outcome optional = test::decodeByBoth(document.type.optional, Data(document.json));
        EXPECT_EQ(optional.difference, "") << document.name;
        EXPECT_EQ(optional.failure, plain.failure) << document.name;
        EXPECT_EQ(optional.value, plain.value) << document.name;
    }
}

}  // namespace
}  // namespace VanticRestKit
