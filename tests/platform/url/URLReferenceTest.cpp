#include <VanticRestKit/platform/url/URL.h>

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace VanticRestKit {
namespace {

std::string resolved(std::string_view reference, std::string_view base = "http://a/b/c/d;p?q") {
    const auto from = URL::make(base);
    const auto url = from ? URL::make(reference, *from) : std::nullopt;
    return url ? url->absoluteString() : "none";
}

using Cases = std::vector<std::pair<const char*, const char*>>;

// The two tables are those of RFC 3986, section 5.4.
TEST(URLReference, NormalReferencesFollowTheStandard) {
    const Cases cases = {{"g:h", "g:h"},
                         {"g", "http://a/b/c/g"},
                         {"./g", "http://a/b/c/g"},
                         {"g/", "http://a/b/c/g/"},
                         {"/g", "http://a/g"},
                         {"//g", "http://g"},
                         {"?y", "http://a/b/c/d;p?y"},
                         {"g?y", "http://a/b/c/g?y"},
                         {"#s", "http://a/b/c/d;p?q#s"},
                         {"g#s", "http://a/b/c/g#s"},
                         {"g?y#s", "http://a/b/c/g?y#s"},
                         {";x", "http://a/b/c/;x"},
                         {"g;x", "http://a/b/c/g;x"},
                         {"g;x?y#s", "http://a/b/c/g;x?y#s"},
                         {"", "http://a/b/c/d;p?q"},
                         {".", "http://a/b/c/"},
                         {"./", "http://a/b/c/"},
                         {"..", "http://a/b/"},
                         {"../", "http://a/b/"},
                         {"../g", "http://a/b/g"},
                         {"../..", "http://a/"},
                         {"../../", "http://a/"},
                         {"../../g", "http://a/g"}};
    for (const auto& [reference, wanted] : cases) EXPECT_EQ(resolved(reference), wanted) << reference;
}

TEST(URLReference, AbnormalReferencesFollowTheStandard) {
    const Cases cases = {{"../../../g", "http://a/g"},
                         {"../../../../g", "http://a/g"},
                         {"/./g", "http://a/g"},
                         {"/../g", "http://a/g"},
                         {"g.", "http://a/b/c/g."},
                         {".g", "http://a/b/c/.g"},
                         {"g..", "http://a/b/c/g.."},
                         {"..g", "http://a/b/c/..g"},
                         {"./../g", "http://a/b/g"},
                         {"./g/.", "http://a/b/c/g/"},
                         {"g/./h", "http://a/b/c/g/h"},
                         {"g/../h", "http://a/b/c/h"},
                         {"g;x=1/./y", "http://a/b/c/g;x=1/y"},
                         {"g;x=1/../y", "http://a/b/c/y"},
                         {"g?y/./x", "http://a/b/c/g?y/./x"},
                         {"g?y/../x", "http://a/b/c/g?y/../x"},
                         {"g#s/./x", "http://a/b/c/g#s/./x"},
                         {"g#s/../x", "http://a/b/c/g#s/../x"},
                         {"http:g", "http:g"}};
    for (const auto& [reference, wanted] : cases) EXPECT_EQ(resolved(reference), wanted) << reference;
}

TEST(URLReference, AnAbsoluteReferenceLosesItsDotSegments) {
    EXPECT_EQ(resolved("https://h:8443/a/../b?x/../y"), "https://h:8443/b?x/../y");
    EXPECT_EQ(resolved("//h/a/../b"), "http://h/b");
}

TEST(URLReference, AReferenceToABaseWithoutAPathStartsAtTheRoot) {
    EXPECT_EQ(resolved("g", "http://a"), "http://a/g");
    EXPECT_EQ(resolved("?y", "http://a"), "http://a?y");
    EXPECT_EQ(resolved("g", "http://a?q#f"), "http://a/g");
}

TEST(URLReference, TheFragmentOfTheBaseIsDropped) {
    EXPECT_EQ(resolved("", "http://a/b?q#f"), "http://a/b?q");
}

TEST(URLReference, OnlyARelativeReferenceKeepsUserHostAndPortOfTheBase) {
    EXPECT_EQ(resolved("/g", "http://u:p@a:81/b"), "http://u:p@a:81/g");
    EXPECT_EQ(resolved("//h/g", "http://u:p@a:81/b"), "http://h/g");
}

TEST(URLReference, InvalidCharactersAreEncoded) {
    EXPECT_EQ(resolved("/a b\xC3\xA9?c d"), "http://a/a%20b%C3%A9?c%20d");
    EXPECT_EQ(resolved("/a\r\nX: y"), "http://a/a%0D%0AX:%20y");
    EXPECT_EQ(resolved("\\\\evil.example\\x"), "http://a/b/c/%5C%5Cevil.example%5Cx");
}

TEST(URLReference, APathNeverBecomesAHost) {
    EXPECT_EQ(resolved("/..//h/x"), "http://a//h/x");
    EXPECT_EQ(resolved("/..//h/x", "lumeno:a"), "lumeno:/.//h/x");
    EXPECT_EQ(resolved("./a:b", "x/y"), "x/a:b");
    EXPECT_EQ(resolved("./a:b", "y"), "a%3Ab");
}

TEST(URLReference, AColonAtTheBeginningBelongsToThePath) { EXPECT_EQ(resolved(":g"), "http://a/b/c/:g"); }

TEST(URLReference, AnInvalidReferenceGivesNoURL) {
    EXPECT_EQ(resolved("http://a b/"), "none");
    EXPECT_EQ(resolved("//h:x/"), "none");
    EXPECT_EQ(resolved(" http://h/"), "none");
    EXPECT_EQ(resolved("", "#f"), "none");
}

}  // namespace
}  // namespace VanticRestKit
