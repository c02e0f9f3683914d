#include <gtest/gtest.h>
#include <VanticRestKit/Testing/Builder.h>
#include <VanticRestKit/Testing/Documents.h>

namespace VanticRestKit::Testing {
namespace {

using Document = DocumentOf<double>;

TEST(BuilderTest, APointerEscapesSlashesAndTildes) {
    EXPECT_EQ(Document(R"({"a/b":1,"c~d":2})").with("/a~1b", 3).with("/c~0d", 4).document(),
              R"({"a/b":3,"c~d":4})");
}

TEST(BuilderTest, APlaceWithoutALeadingSlashIsAKey) {
    EXPECT_EQ(Document(R"({"a":{}})").with("a/b", 1).document(), R"({"a":{},"a/b":1})");
}

TEST(BuilderTest, MissingObjectsOnTheWayAreCreated) {
    EXPECT_EQ(Document("{}").with("/a/b/c", 1).document(), R"({"a":{"b":{"c":1}}})");
}

TEST(BuilderTest, BooleansAndNullCanBeSet) {
    EXPECT_EQ(Document("{}").with("a", true).with("b", false).with("c", nullptr).document(),
              R"({"a":true,"b":false,"c":null})");
}

TEST(BuilderTest, TheIndexAfterTheLastElementAppends) {
    EXPECT_EQ(Document("[1,2]").with("/2", 3).with("/-", 4).with("/0", 0).document(), "[0,2,3,4]");
}

TEST(BuilderTest, AnElementOfAListCanBeRemoved) {
    EXPECT_EQ(Document(R"({"list":[1,2,3]})").without("/list/1").document(), R"({"list":[1,3]})");
}

TEST(BuilderTest, RemovingAPlaceThatDoesNotExistChangesNothing) {
    const char* const json = R"({"list":[1,2],"text":"a"})";
    for (const char* place : {"/list/2", "/list/-", "/list/x", "/list/", "/none/a", "/text/a", "none"}) {
        EXPECT_EQ(Document(json).without(place).document(), json) << place;
    }
}

TEST(BuilderTest, ChangesOfACopyDoNotChangeTheOriginal) {
    const Document original("{}");
    Document copy = original;
    EXPECT_EQ(copy.with("a", 1).document(), R"({"a":1})");
    EXPECT_EQ(original.document(), "{}");
}

TEST(BuilderDeathTest, SettingAnImpossiblePlaceEndsTheProcess) {
    const char* const json = R"({"list":[1,2],"text":"a"})";
    EXPECT_DEATH(Document(json).with("/list/3", 1).document(),
                 "Testing: the document has no value at /list/3");
    EXPECT_DEATH(Document(json).with("/list/x", 1).document(), "the document has no value at /list/x");
    EXPECT_DEATH(Document(json).with("/list/3/a", 1).document(), "the document has no value at /list/3/a");
    EXPECT_DEATH(Document(json).with("/text/a", 1).document(), "the document has no value at /text/a");
}

TEST(BuilderDeathTest, TextThatIsNotJSONEndsTheProcess) {
    EXPECT_DEATH(Document("[1").with("a", 1).document(), "the document is not JSON: .1");
    EXPECT_DEATH(Document("{}").with("a", JSONText::raw("[2")).document(), "the value for a is not JSON: .2");
}

TEST(BuilderDeathTest, AValueThatCannotBeDecodedEndsTheProcess) {
    EXPECT_DEATH(static_cast<void>(Document(R"({"a":1})").value()),
                 "this document cannot be decoded: (.|\n)*\"a\":1");
}

TEST(BuilderDeathTest, APartThatDoesNotExistEndsTheProcess) {
    EXPECT_DEATH(Document(R"({"a":1})").part<double>("/b"), "the document has no value at /b");
}

TEST(BuilderDeathTest, ADocumentThatTheCatalogueDoesNotHaveEndsTheProcess) {
    EXPECT_DEATH(aCategory("none"), "there is no document at /v2/category/none: .*404");
}

}  // namespace
}  // namespace VanticRestKit::Testing
