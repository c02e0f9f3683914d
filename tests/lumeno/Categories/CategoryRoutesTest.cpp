#include <lumeno/Routes.h>
#include <VanticRestKit/lumeno/Categories/CategoryRoutes.h>

namespace VanticRestKit {
namespace {

using test::expectAGet;

TEST(CategoryURI, AppendsTheCategoryToThePathUnchanged) {
    expectAGet(CategoryURI({.for_ = "x"}), "v2/category/x");
    expectAGet(CategoryURI({.for_ = ""}), "v2/category/");
    expectAGet(CategoryURI({.for_ = "a b/../c?d=%20"}), "v2/category/a b/../c?d=%20");
    EXPECT_EQ(CategoryURI({.for_ = "x"}).category, "x");
}

TEST(ChannelURI, AppendsTheChannelToItsPathUnchanged) {
    expectAGet(ChannelURI({.for_ = "x"}), "v2/channel/x");
    expectAGet(ChannelURI({.for_ = ""}), "v2/channel/");
    expectAGet(ChannelURI({.for_ = "a b/../c?d=%20"}), "v2/channel/a b/../c?d=%20");
    EXPECT_EQ(ChannelURI({.for_ = "x"}).channel, "x");
}

TEST(HomeURI, HasOnlyAPath) { expectAGet(HomeURI(), "v2/home"); }

}  // namespace
}  // namespace VanticRestKit
