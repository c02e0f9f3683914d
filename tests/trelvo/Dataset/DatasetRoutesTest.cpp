#include <gtest/gtest.h>
#include <VanticRestKit/trelvo/Dataset/DatasetRoutes.h>

#include <trelvo/Common/RouteText.h>
#include <VanticRestKit/platform/json/JSONEncoder.h>

namespace VanticRestKit {
namespace {

using test::routeText;

constexpr SourceSystem source = SourceSystem::lumeno;

std::string got(bool includePrivateData, bool includeFamilyData) {
    return routeText(GetDatasetURI{.uid = "u",
                                   .source = source,
                                   .namespace_ = "profile",
                                   .includePrivateData = includePrivateData,
                                   .includeFamilyData = includeFamilyData});
}

TEST(GetDatasetURI, IncludesWhatItsFlagsSelectAndNoQueryItemOtherwise) {
    EXPECT_EQ(got(false, false), "- v2/dataset/profile [UID=u, source=lumeno]");
    EXPECT_EQ(got(true, false), "- v2/dataset/profile [UID=u, source=lumeno, include=private]");
    EXPECT_EQ(got(false, true), "- v2/dataset/profile [UID=u, source=lumeno, include=family]");
    EXPECT_EQ(got(true, true), "- v2/dataset/profile [UID=u, source=lumeno, include=private,family]");
}

TEST(GetDatasetURI, IncludesNothingByDefault) {
    const GetDatasetURI route{.uid = "u", .source = source, .namespace_ = "n"};
    EXPECT_FALSE(route.includePrivateData);
    EXPECT_FALSE(route.includeFamilyData);
    EXPECT_EQ(routeText(route), "- v2/dataset/n [UID=u, source=lumeno]");
}

TEST(CreateDatasetURI, PostsTheDatasetAndAlwaysIncludesPrivateData) {
    const CreateDatasetURI route{
        .uid = "u", .source = source, .namespace_ = "profile", .dataset = {{"a", AnyValue(1)}}};
    EXPECT_EQ(routeText(route),
              "POST v2/dataset/profile [UID=u, source=lumeno, include=private] dataset=%7B%22a%22%3A1%7D");
}

TEST(UpdateDatasetURI, PatchesTheDatasetAndAlwaysIncludesPrivateData) {
    const UpdateDatasetURI route{
        .uid = "u", .source = source, .namespace_ = "profile", .dataset = {{"a", AnyValue(1)}}};
    EXPECT_EQ(routeText(route),
              "PATCH v2/dataset/profile [UID=u, source=lumeno, include=private] dataset=%7B%22a%22%3A1%7D");
}

TEST(DeleteDatasetURI, DeletesTheNamespaceWithoutABody) {
    EXPECT_EQ(routeText(DeleteDatasetURI{.uid = "u", .source = source, .namespace_ = "profile"}),
              "DELETE v2/dataset/profile [UID=u, source=lumeno]");
}

TEST(DatasetRoutes, PutTheNamespaceIntoThePathUnchanged) {
    for (const std::string name : {"", "a b", "a/../b", "%41?x#y", "\u00e9"}) {
        const std::string path = "v2/dataset/" + name;
        EXPECT_EQ(ResourceURI(GetDatasetURI{.namespace_ = name}).path(), path);
        EXPECT_EQ(ResourceURI(CreateDatasetURI{.namespace_ = name}).path(), path);
        EXPECT_EQ(ResourceURI(UpdateDatasetURI{.namespace_ = name}).path(), path);
        EXPECT_EQ(ResourceURI(DeleteDatasetURI{.namespace_ = name}).path(), path);
    }
}

TEST(DatasetRoutes, HaveNoBodyIfTheDatasetCannotBeEncoded) {
    const Dictionary unfit{{"ratio", AnyValue(std::numeric_limits<double>::quiet_NaN())},
                           {"name", AnyValue("x")}};
    EXPECT_EQ(routeText(CreateDatasetURI{.uid = "u", .source = source, .namespace_ = "n", .dataset = unfit}),
              "POST v2/dataset/n [UID=u, source=lumeno, include=private]");
    EXPECT_EQ(routeText(UpdateDatasetURI{.uid = "u", .source = source, .namespace_ = "n", .dataset = unfit}),
              "PATCH v2/dataset/n [UID=u, source=lumeno, include=private]");
}

TEST(DatasetRoutes, AreEncodedAsAFlatObjectOfTheDatasetsKeys) {
    const Dictionary dataset{{"uid", AnyValue("mine")}, {"isChild", AnyValue(false)}};
    const std::string flat = R"({"isChild":false,"uid":"mine"})";
    const auto encoded = [](const auto& route) { return std::string(JSONEncoder().encode(route)->view()); };
    EXPECT_EQ(encoded(CreateDatasetURI{.uid = "u", .source = source, .namespace_ = "n", .dataset = dataset}),
              flat);
    EXPECT_EQ(encoded(UpdateDatasetURI{.uid = "u", .source = source, .namespace_ = "n", .dataset = dataset}),
              flat);
}

}  // namespace
}  // namespace VanticRestKit
