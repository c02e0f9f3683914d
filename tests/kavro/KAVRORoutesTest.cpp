#include <gtest/gtest.h>
#include <VanticRestKit/Core/ResourceURI.h>
#include <VanticRestKit/kavro/KAVRORoutes.h>

namespace VanticRestKit {
namespace {

std::string body(const std::string& id) {
    const std::optional<Data> data = KAVROSegmentsURI({.withSubprofileID = id}).postData();
    return data ? std::string(data->view()) : "no body";
}

TEST(KAVROSegmentsURI, PostsToTheSegmentsPathWithoutQueryItems) {
    const KAVROSegmentsURI uri({.withSubprofileID = "12"});
    EXPECT_EQ(uri.httpMethod, "POST");
    EXPECT_EQ(uri.subprofileid, "12");
    const ResourceURI route = uri;
    EXPECT_EQ(route.path(), "api/v1/gigya/segments");
    EXPECT_TRUE(route.queryItems().empty());
    EXPECT_EQ(route.httpMethod(), "POST");
}

TEST(KAVROSegmentsURI, HasABodyWithExactlyOneKey) {
    EXPECT_EQ(body("12"), R"({"sub_profile_id":"12"})");
    EXPECT_EQ(body(""), R"({"sub_profile_id":""})");
    EXPECT_EQ(body("a\"b/c\u00e9"), "{\"sub_profile_id\":\"a\\\"b\\/c\u00e9\"}");
}

TEST(KAVROSegmentsURI, HasNoBodyIfTheIdIsNotUTF8) { EXPECT_EQ(body("\xff"), "no body"); }

TEST(KAVROSegmentsURI, KeepsItsBodyWithAnotherMethod) {
    KAVROSegmentsURI uri({.withSubprofileID = "12"});
    uri.httpMethod = std::nullopt;
    const ResourceURI route = uri;
    EXPECT_EQ(route.httpMethod(), std::nullopt);
    EXPECT_EQ(route.postData()->view(), R"({"sub_profile_id":"12"})");
}

TEST(KAVROSegmentsURI, IsEncodedDifferentlyFromItsBody) {
    KAVROSegmentsURI uri({.withSubprofileID = "12"});
    const auto encoded = [&uri] { return std::string(JSONEncoder().encode(uri)->view()); };
    EXPECT_EQ(encoded(), R"({"httpMethod":"POST","subprofileid":"12"})");
    uri.httpMethod = std::nullopt;
    EXPECT_EQ(encoded(), R"({"subprofileid":"12"})");
}

}  // namespace
}  // namespace VanticRestKit
