#include <gtest/gtest.h>
#include <VanticRestKit/Core/Version.h>

#include <algorithm>
#include <string_view>

namespace VanticRestKit {
namespace {

TEST(TheVersion, IsThatOfTheProject) { EXPECT_EQ(libraryVersion(), VRK_PROJECT_VERSION); }

TEST(TheVersion, HasThreeNumbers) {
    EXPECT_EQ(libraryVersion().find_first_not_of("0123456789."), std::string_view::npos);
    EXPECT_EQ(std::count(libraryVersion().begin(), libraryVersion().end(), '.'), 2);
}

}  // namespace
}  // namespace VanticRestKit
