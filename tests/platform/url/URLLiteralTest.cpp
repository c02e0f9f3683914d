#include <gtest/gtest.h>
#include <VanticRestKit/platform/url/URL.h>

#include <random>
#include <string>
#include <type_traits>

namespace VanticRestKit {
namespace {

static_assert(!std::is_constructible_v<URL, std::string>,
              "an address known only at run time needs URL::make");
static_assert(!std::is_convertible_v<const char (&)[9], URL>);

TEST(URLLiteral, HasTheAddressAsWritten) {
    EXPECT_EQ(URL("https://service.example").absoluteString(), "https://service.example");
    const URL url("http://127.0.0.1:8080/api/v2%20a/?q=a%2Fb&c=?#top?");
    EXPECT_EQ(url.absoluteString(), "http://127.0.0.1:8080/api/v2%20a/?q=a%2Fb&c=?#top?");
    EXPECT_EQ(url.host(), "127.0.0.1");
    EXPECT_EQ(url.port(), 8080);
    EXPECT_EQ(url.query(), "q=a%2Fb&c=?");
    EXPECT_EQ(url.fragment(), "top?");
}

TEST(URLLiteral, AcceptsOnlyEncodedHTTPAddresses) {
    for (const char* text : {"",
                             "service.example",
                             "/path",
                             "ftp://a",
                             "https:/a",
                             "https://",
                             "https:///a",
                             "https://a b",
                             "https://a:",
                             "https://a:x",
                             "https://a:123456",
                             "https://u@a",
                             "https://[::1]/",
                             "https://a/b c",
                             "https://a/%",
                             "https://a/%2",
                             "https://a/%2g",
                             "https://a/\xC3\xA9",
                             "https://a/#x#y",
                             "https://a/[x]",
                             "HTTPS://a"}) {
        EXPECT_FALSE(detail::isURLLiteral(text)) << text;
    }
}

TEST(URLLiteral, EveryAcceptedLiteralIsUnchangedByMake) {
    constexpr std::string_view alphabet = "a0.-:/?#%2F@&=+~[] \xC3";
    std::mt19937 random(7);
    int accepted = 0;
    for (int i = 0; i < 200'000; ++i) {
        std::string text = random() % 2 == 0 ? "https://" : "http://";
        for (std::size_t left = random() % 9; left > 0; --left) text += alphabet[random() % alphabet.size()];
        if (!detail::isURLLiteral(text)) continue;
        ++accepted;
        const std::optional<URL> url = URL::make(text);
        ASSERT_TRUE(url) << text;
        ASSERT_EQ(url->absoluteString(), text);
    }
    EXPECT_GT(accepted, 1'000);
}

}  // namespace
}  // namespace VanticRestKit
