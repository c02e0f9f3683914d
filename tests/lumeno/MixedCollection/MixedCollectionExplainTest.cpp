// What is told of the elements that a mixed list drops.

#include <gtest/gtest.h>
#include <VanticRestKit/lumeno/MixedCollection/MixedCollection.h>

#include <platform/json/FaultText.h>

namespace VanticRestKit {
namespace {

using test::faultText;

TEST(ExplainingAMixedCollection, KeepsQuietAboutWhatIsKept) {
    EXPECT_EQ(
        faultText<MixedCollection>(
            R"({"title":"t","items":[{"_entity":"show"},{"_entity":"video","_links":{}},)"
            R"({"_entity":"series","id":"1","_links":{}},{}],"_embedded":{"highlightItem":{"_entity":"show"}}})"),
        "");
}

TEST(ExplainingAMixedCollection, TellsOfEachElementThatIsDropped) {
    const std::string text =
        faultText<MixedCollection>(R"({"title":"t","items":[{},7,{"_entity":"video"},null]})");
    for (const char* const path : {"/items/1 ", "/items/2", "/items/3 "}) {
        EXPECT_NE(text.find(path), std::string::npos) << path << " in\n" << text;
    }
    EXPECT_EQ(text.find("/items/0"), std::string::npos) << text;
    EXPECT_NE(text.find(", dropped\n"), std::string::npos) << text;
}

TEST(ExplainingAMixedCollection, EndsWithWhatFailsIt) {
    EXPECT_EQ(faultText<MixedCollection>(R"({"id":-1,"title":"t","_links":{},"_embedded":7})"),
              "/id lenient: String, number, empty\n"
              "/_links/self required: Object, nothing, failure\n");
}

}  // namespace
}  // namespace VanticRestKit
