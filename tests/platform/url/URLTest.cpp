#include <VanticRestKit/platform/url/URL.h>

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace VanticRestKit {
namespace {

URL urlOf(std::string_view text) {
    const auto url = URL::make(text);
    EXPECT_TRUE(url) << text;
    return url ? *url : *URL::make("unreadable");
}

std::string absolute(std::string_view text) { return urlOf(text).absoluteString(); }

std::string appended(std::string_view text, std::string_view component) {
    return urlOf(text).appendingPathComponent(component).absoluteString();
}

TEST(URL, HasThePartsOfItsString) {
    const URL url = urlOf("https://us%65r:p:w@h.example:8443/a/b%20c?x=%20y#z%20");
    EXPECT_EQ(url.absoluteString(), "https://us%65r:p:w@h.example:8443/a/b%20c?x=%20y#z%20");
    EXPECT_EQ(url.scheme(), "https");
    EXPECT_EQ(url.user(), "user");
    EXPECT_EQ(url.password(), "p:w");
    EXPECT_EQ(url.host(), "h.example");
    EXPECT_EQ(url.port(), 8443);
    EXPECT_EQ(url.path(), "/a/b c");
    EXPECT_EQ(url.percentEncodedPath(), "/a/b%20c");
    EXPECT_EQ(url.query(), "x=%20y");
    EXPECT_EQ(url.fragment(), "z%20");
}

TEST(URL, AbsentPartsAreEmpty) {
    const URL url = urlOf("x");
    EXPECT_EQ(url.scheme(), std::nullopt);
    EXPECT_EQ(url.user(), std::nullopt);
    EXPECT_EQ(url.password(), std::nullopt);
    EXPECT_EQ(url.host(), std::nullopt);
    EXPECT_EQ(url.port(), std::nullopt);
    EXPECT_EQ(url.query(), std::nullopt);
    EXPECT_EQ(url.fragment(), std::nullopt);
    EXPECT_EQ(urlOf("#y").path(), "");
}

TEST(URL, AnEmptyQueryAndAnEmptyFragmentArePresent) {
    const URL url = urlOf("http://h/?#");
    EXPECT_EQ(url.query(), "");
    EXPECT_EQ(url.fragment(), "");
    EXPECT_EQ(url.absoluteString(), "http://h/?#");
}

TEST(URL, ASchemeAndAHostKeepTheirCase) {
    EXPECT_EQ(urlOf("LUMENO://Program/1").scheme(), "LUMENO");
    EXPECT_EQ(urlOf("LUMENO://Program/1").host(), "Program");
}

TEST(URL, AnEmptyUserAndAnEmptyPasswordArePresent) {
    EXPECT_EQ(urlOf("http://@h/").user(), "");
    EXPECT_EQ(urlOf("http://@h/").password(), std::nullopt);
    EXPECT_EQ(urlOf("http://:@h/").password(), "");
}

TEST(URL, TheLastAtSignEndsTheUser) {
    EXPECT_EQ(urlOf("http://u@x@h/").user(), "u@x");
    EXPECT_EQ(urlOf("http://u@x@h/").host(), "h");
    EXPECT_EQ(absolute("http://u@x@h/"), "http://u%40x@h/");
}

TEST(URL, APortIsTheWrittenNumber) {
    EXPECT_EQ(urlOf("http://h:0/").port(), 0);
    EXPECT_EQ(urlOf("http://h:99999/").port(), 99999);
    EXPECT_EQ(urlOf("http://h:007/").port(), 7);
    EXPECT_EQ(urlOf("http://[::1]:90/").port(), 90);
    EXPECT_EQ(urlOf("http://h:/").port(), std::nullopt);
    EXPECT_EQ(urlOf("http://h:99999999999999999999/").port(), std::nullopt);
}

TEST(URL, AnIPv6HostHasNoBrackets) {
    EXPECT_EQ(urlOf("http://[2001:db8::1]/").host(), "2001:db8::1");
    EXPECT_EQ(urlOf("http://[fe80::1%25eth0]/").host(), "fe80::1%eth0");
    EXPECT_EQ(urlOf("http://[v1.x:y]/").host(), "v1.x:y");
    EXPECT_EQ(urlOf("http://[V1.x]/").host(), "V1.x");
}

TEST(URL, AnInvalidHostIsRejected) {
    for (const char* text :
         {"http://a b/", "http://a\\b/", "http://a%zz/", "http://a%2", "http://a<b/", "http://[/",
          "http://]/", "http://[]/", "http://[::1/", "http://[::1]x/", "http://[g::1]/", "http://[::1%eth0]/",
          "http://[::1%25]/", "http://[%251]/", "http://[v1]/", "http://[v1.<]/", "http://[::1%25<]/",
          "http://a[b]/", "http://a\nb/"}) {
        EXPECT_FALSE(URL::make(text)) << text;
    }
}

TEST(URL, AnInvalidPortIsRejected) {
    for (const char* text :
         {"http://h:x/", "http://h:-1/", "http://h:80:90/", "http://h: 80/", "http://[::1]:x/"}) {
        EXPECT_FALSE(URL::make(text)) << text;
    }
}

TEST(URL, AnInvalidSchemeIsRejected) {
    for (const char* text : {"1a:b", "a_b://x", "a b:c", " http://h/", "%61:b", "-a:b"}) {
        EXPECT_FALSE(URL::make(text)) << text;
    }
}

TEST(URL, AnEmptyStringIsRejected) { EXPECT_FALSE(URL::make("")); }

TEST(URL, APathCanContainAColonAfterAnotherDelimiter) {
    EXPECT_EQ(urlOf("a/b:c").path(), "a/b:c");
    EXPECT_EQ(urlOf("a@b:c").path(), "a@b:c");
    EXPECT_EQ(urlOf("a@b:c").scheme(), std::nullopt);
}

TEST(URL, AColonAtTheBeginningEndsAnEmptyScheme) {
    const URL url = urlOf("://a/b");
    EXPECT_EQ(url.scheme(), std::nullopt);
    EXPECT_EQ(url.host(), "a");
    EXPECT_EQ(url.path(), "/b");
    EXPECT_EQ(url.absoluteString(), "://a/b");
}

TEST(URL, OnlyPartsWithAnInvalidCharacterAreEncoded) {
    EXPECT_EQ(absolute("http://h/a%20b c?d%20e#f%20g"), "http://h/a%2520b%20c?d%20e#f%20g");
    EXPECT_EQ(absolute("http://h/a%20b?d%20e f#f%20g"), "http://h/a%20b?d%2520e%20f#f%20g");
    EXPECT_EQ(absolute("http://h/a%20b?d%20e#f%20g#"), "http://h/a%20b?d%20e#f%2520g%23");
    EXPECT_EQ(absolute("http://a b:c%20d@h/"), "http://a%20b:c%20d@h/");
}

TEST(URL, APercentSignWithoutAnEscapeIsEncoded) {
    EXPECT_EQ(absolute("x/%"), "x/%25");
    EXPECT_EQ(absolute("x/%4"), "x/%254");
    EXPECT_EQ(absolute("x/%4g"), "x/%254g");
    EXPECT_EQ(absolute("x/%4G%41"), "x/%254G%2541");
}

TEST(URL, AnEscapeKeepsTheCaseOfItsDigits) { EXPECT_EQ(absolute("x/%c3%A9"), "x/%c3%A9"); }

TEST(URL, BracketsOutsideAHostAreEncoded) {
    EXPECT_EQ(absolute("http://h/[x]?[y]#[z]"), "http://h/%5Bx%5D?%5By%5D#%5Bz%5D");
}

TEST(URL, AnEncodedBracketDoesNotTurnAPathIntoAScheme) {
    const URL url = urlOf("[x]:80");
    EXPECT_EQ(url.absoluteString(), "%5Bx%5D%3A80");
    EXPECT_EQ(url.path(), "[x]:80");
}

TEST(URL, LineBreaksAreEncoded) {
    EXPECT_EQ(absolute("http://h/a\r\nX: y"), "http://h/a%0D%0AX:%20y");
    EXPECT_EQ(absolute("http://h/?a\r\nX: y"), "http://h/?a%0D%0AX:%20y");
    EXPECT_EQ(appended("http://h", "a\r\nX: y"), "http://h/a%0D%0AX:%20y");
}

TEST(URL, ANulByteIsEncodedAndDoesNotEndTheURL) {
    EXPECT_EQ(absolute(std::string_view("http://h/a\0b", 12)), "http://h/a%00b");
    EXPECT_EQ(urlOf("http://h/a%00b").path(), "/a%00b");
}

TEST(URL, NonASCIILettersInAHostAreEncoded) {
    EXPECT_EQ(absolute("http://h\xC3\xA9/"), "http://h%C3%A9/");
    EXPECT_EQ(urlOf("http://h\xC3\xA9/").host(), "h\xC3\xA9");
}

TEST(URL, ADecodedPathHasNoTrailingSlash) {
    EXPECT_EQ(urlOf("http://h/a%20b/").path(), "/a b");
    EXPECT_EQ(urlOf("http://h/a//").path(), "/a/");
    EXPECT_EQ(urlOf("a/").path(), "a");
    EXPECT_EQ(urlOf("http://h/").path(), "/");
    EXPECT_EQ(urlOf("http://h").path(), "");
    EXPECT_EQ(urlOf("http://h/a%20b/").percentEncodedPath(), "/a%20b/");
}

TEST(URL, AnEscapedSlashInAPathIsNotASeparator) { EXPECT_EQ(urlOf("http://h/a%2Fb%41").path(), "/a%2FbA"); }

TEST(URL, APathThatDecodesToInvalidUTF8StaysEncoded) {
    EXPECT_EQ(urlOf("http://h/%FF%41").path(), "/%FF%41");
    EXPECT_EQ(urlOf("http://h/\xFF").path(), "/%FF");
}

TEST(URL, ARequestTargetIsTheEncodedPathAndQuery) {
    EXPECT_EQ(urlOf("http://h").requestTarget(), "/");
    EXPECT_EQ(urlOf("http://h?x").requestTarget(), "/?x");
    EXPECT_EQ(urlOf("http://h/a%20b/?x=%20#f").requestTarget(), "/a%20b/?x=%20");
    EXPECT_EQ(urlOf("http://h/v2/../x?").requestTarget(), "/v2/../x?");
}

TEST(URL, AnAppendedComponentIsSeparatedByOneSlash) {
    EXPECT_EQ(appended("http://h", "a"), "http://h/a");
    EXPECT_EQ(appended("http://h/", "a"), "http://h/a");
    EXPECT_EQ(appended("http://h/b", "/a"), "http://h/b/a");
    EXPECT_EQ(appended("http://h/b/", "/a"), "http://h/b/a");
    EXPECT_EQ(appended("http://h/b/", "//a"), "http://h/b//a");
    EXPECT_EQ(appended("http://h/b", "/"), "http://h/b/");
}

TEST(URL, AnAppendedComponentKeepsItsSlashesAndDots) {
    EXPECT_EQ(appended("http://h/b", "v2//show/../x/"), "http://h/b/v2//show/../x/");
}

TEST(URL, AnAppendedComponentIsEncodedEvenIfItLooksEncoded) {
    EXPECT_EQ(appended("http://h/%20", "a%20?b#c d"), "http://h/%20/a%2520%3Fb%23c%20d");
}

TEST(URL, AnAppendedComponentKeepsTheQueryAndTheFragment) {
    EXPECT_EQ(appended("http://h/b?x=1#f", "a"), "http://h/b/a?x=1#f");
    EXPECT_EQ(appended("http://h?", "a"), "http://h/a?");
}

TEST(URL, AColonInAnAppendedComponentIsEscapedIfItWouldEndAScheme) {
    EXPECT_EQ(appended("#y", "a:b/c:d"), "a%3Ab/c:d#y");
    EXPECT_EQ(appended("x:", "a:b/c:d"), "x:a:b/c:d");
}

TEST(URL, AnEmptyComponentChangesNothing) { EXPECT_EQ(appended("http://h/b?x", ""), "http://h/b?x"); }

TEST(URL, AComponentOfARelativeURLNeverBecomesAHostOrAScheme) {
    EXPECT_EQ(appended("x", "a:b"), "x/a:b");
    EXPECT_EQ(appended("#y", "a:b/c:d"), "a%3Ab/c:d#y");
    EXPECT_EQ(appended("#y", "//a"), "/.//a#y");
    EXPECT_EQ(appended("lumeno:", "v2/x"), "lumeno:v2/x");
    EXPECT_EQ(appended("lumeno:", "//a"), "lumeno:/.//a");
}

TEST(URL, URLsAreEqualIfTheirStringsAreEqual) {
    EXPECT_EQ(urlOf("http://h/a b"), urlOf("http://h/a%20b"));
    EXPECT_FALSE(urlOf("http://h") == urlOf("http://h/"));
    EXPECT_FALSE(urlOf("http://h/") == urlOf("HTTP://h/"));
}

TEST(URL, ACopySharesItsString) {
    const URL url = urlOf("http://h/");
    const URL copy = url;
    EXPECT_EQ(&copy.absoluteString(), &url.absoluteString());
}

TEST(URL, AMovedFromURLKeepsItsAddress) {
    URL url = urlOf("http://h/");
    const URL taken = std::move(url);
    EXPECT_EQ(taken.absoluteString(), "http://h/");
    EXPECT_EQ(url.absoluteString(), "http://h/");  // NOLINT: reading it after a move is guaranteed
}

}  // namespace
}  // namespace VanticRestKit
