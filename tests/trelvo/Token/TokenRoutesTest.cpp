#include <gtest/gtest.h>
#include <VanticRestKit/trelvo/Token/TokenRoutes.h>

#include <trelvo/Common/RouteText.h>

namespace VanticRestKit {
namespace {

using test::routeText;

TEST(TokenURI, RequestsTheTokensOfAUserWithoutAMethodOrABody) {
    EXPECT_EQ(routeText(TokenURI{.uid = "u-1", .source = SourceSystem::lumeno}),
              "- v2/token [UID=u-1, source=lumeno]");
}

TEST(TokenURI, SendsTheUserUnchanged) {
    EXPECT_EQ(routeText(TokenURI{.uid = "", .source = SourceSystem::lumeno}),
              "- v2/token [UID=, source=lumeno]");
    EXPECT_EQ(routeText(TokenURI{.uid = "a b&c", .source = SourceSystem::lumeno}),
              "- v2/token [UID=a b&c, source=lumeno]");
}

}  // namespace
}  // namespace VanticRestKit
