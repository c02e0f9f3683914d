#include <gtest/gtest.h>
#include <VanticRestKit/Core/HrefURI.h>
#include <VanticRestKit/Core/ResourceURI.h>

namespace VanticRestKit {
namespace {

struct PathOnly {
    std::string path() const { return "v2/time"; }
};
struct AllAsFields {
    std::string path{};
    std::vector<URLQueryItem> queryItems{};
    std::optional<Data> postData{};
    std::optional<std::string> httpMethod{};
};
struct AllAsFunctions {
    const char* path() const { return "p"; }
    std::vector<URLQueryItem> queryItems() const { return {{"a", "1"}}; }
    Data postData() const { return Data("body"); }
    std::string httpMethod() const { return "POST"; }
};
struct StaticPath {
    static constexpr const char* path = "static";
    static std::string httpMethod() { return "DELETE"; }
};
struct Inherited : AllAsFunctions {};
struct FinalWithAll final : AllAsFunctions {};
struct FinalWithout final {
    std::string path() const { return "x"; }
};
class Private {
public:
    std::string path() const { return "x"; }

private:
    std::string httpMethod() const { return "POST"; }
};
struct PrivatelyInherited : private AllAsFunctions {
    std::string path() const { return "x"; }
};
struct NotConst {
    std::string path() const { return "x"; }
    std::string httpMethod() { return "POST"; }
};
struct WithArguments {
    std::string path() const { return "x"; }
    std::vector<URLQueryItem> queryItems(int) const { return {}; }
};
struct Overloaded {
    std::string path() const { return "x"; }
    std::string httpMethod() { return "POST"; }
    std::string httpMethod(int) const { return "POST"; }
};
struct OfAnotherType {
    std::string path() const { return "x"; }
    std::string postData() const { return "text is no Data"; }
};
struct NamesAType {
    std::string path() const { return "x"; }
    using queryItems = int;
};
struct NoPath {
    std::vector<URLQueryItem> queryItems{};
};
struct PathNotConst {
    std::string path() { return "x"; }
};

static_assert(RouteType<PathOnly>);
static_assert(RouteType<AllAsFields>);
static_assert(RouteType<AllAsFunctions>);
static_assert(RouteType<StaticPath>);
static_assert(RouteType<Inherited>);
static_assert(RouteType<FinalWithAll>);
static_assert(RouteType<HrefURI>);

static_assert(!RouteType<NoPath>);
static_assert(!RouteType<PathNotConst>);
static_assert(!RouteType<Private>, "a private member does not count as an absent one");
static_assert(!RouteType<PrivatelyInherited>);
static_assert(!RouteType<NotConst>);
static_assert(!RouteType<WithArguments>);
static_assert(!RouteType<Overloaded>);
static_assert(!RouteType<OfAnotherType>);
static_assert(!RouteType<NamesAType>);
static_assert(!RouteType<FinalWithout>, "hidden members of a final class cannot be detected");
static_assert(!RouteType<std::string> && !RouteType<int>);

static_assert(std::is_convertible_v<PathOnly, ResourceURI>);
static_assert(!std::is_constructible_v<ResourceURI, NoPath>);
static_assert(!std::is_constructible_v<ResourceURI, std::string>);

TEST(ResourceURI, ARouteWithOnlyAPathHasTheDefaults) {
    const ResourceURI route = PathOnly{};
    EXPECT_EQ(route.path(), "v2/time");
    EXPECT_TRUE(route.queryItems().empty());
    EXPECT_EQ(route.postData(), std::nullopt);
    EXPECT_EQ(route.httpMethod(), std::nullopt);
}

TEST(ResourceURI, FieldsSatisfyTheRequirementsOfARoute) {
    const ResourceURI route =
        AllAsFields{.path = "p", .queryItems = {{"a", "1"}}, .postData = Data("body"), .httpMethod = "PATCH"};
    EXPECT_EQ(route.path(), "p");
    EXPECT_EQ(route.queryItems(), (std::vector<URLQueryItem>{{"a", "1"}}));
    EXPECT_EQ(route.postData(), Data("body"));
    EXPECT_EQ(route.httpMethod(), "PATCH");
}

TEST(ResourceURI, FunctionsSatisfyTheRequirementsOfARoute) {
    const ResourceURI route = AllAsFunctions{};
    EXPECT_EQ(route.path(), "p");
    EXPECT_EQ(route.queryItems(), (std::vector<URLQueryItem>{{"a", "1"}}));
    EXPECT_EQ(route.postData(), Data("body"));
    EXPECT_EQ(route.httpMethod(), "POST");
}

TEST(ResourceURI, InheritedAndStaticMembersCount) {
    EXPECT_EQ(ResourceURI(Inherited{}).httpMethod(), "POST");
    EXPECT_EQ(ResourceURI(StaticPath{}).path(), "static");
    EXPECT_EQ(ResourceURI(StaticPath{}).httpMethod(), "DELETE");
}

TEST(ResourceURI, ACopyIsIndependentOfTheOriginal) {
    ResourceURI first = PathOnly{};
    const ResourceURI second = first;
    first = AllAsFunctions{};
    EXPECT_EQ(second.path(), "v2/time");
    EXPECT_EQ(first.path(), "p");
}

TEST(HrefURI, ThePathIsTheHrefUnchanged) {
    const HrefURI uri({.withHref = "/video/1?a=b", .andQueryItems = {{"q", "x"}, {"flag", std::nullopt}}});
    EXPECT_EQ(uri.href, "/video/1?a=b");
    EXPECT_EQ(uri.path(), "/video/1?a=b");
    const ResourceURI route = uri;
    EXPECT_EQ(route.path(), "/video/1?a=b");
    EXPECT_EQ(route.queryItems(), (std::vector<URLQueryItem>{{"q", "x"}, {"flag", std::nullopt}}));
    EXPECT_EQ(route.postData(), std::nullopt);
    EXPECT_EQ(route.httpMethod(), std::nullopt);
}

}  // namespace
}  // namespace VanticRestKit
