#include <VanticRestKit/Core/detail/Redaction.h>

#include <gtest/gtest.h>
#include <VanticRestKit/platform/error/NSError.h>
#include <VanticRestKit/platform/http/detail/URLErrors.h>

namespace VanticRestKit {
namespace {

using detail::redactedAddress;
using detail::withoutDetails;

TEST(Redaction, LeavesAURLWithoutSecretsUnchanged) {
    EXPECT_EQ(redactedAddress("https://api.example.test:8443/v2/video/A%20B"),
              "https://api.example.test:8443/v2/video/A%20B");
    EXPECT_EQ(redactedAddress("https://api.example.test/a@b"), "https://api.example.test/a@b");
    EXPECT_EQ(redactedAddress(""), "");
}

TEST(Redaction, ReplacesQueryValuesAndKeepsTheirNames) {
    EXPECT_EQ(redactedAddress("https://h/p?apikey=s3cret&page=2"),
              "https://h/p?apikey=redacted&page=redacted");
    EXPECT_EQ(redactedAddress("https://h/p?a=b=c"), "https://h/p?a=redacted");
    EXPECT_EQ(redactedAddress("https://h?a=/x@y"), "https://h?a=redacted");
    EXPECT_EQ(redactedAddress("https://h/p?a="), "https://h/p?a=redacted");
}

TEST(Redaction, ReplacesAQueryItemThatHasNoName) {
    EXPECT_EQ(redactedAddress("https://h/p?s3cret"), "https://h/p?redacted");
    EXPECT_EQ(redactedAddress("https://h/p?a=1&&s3cret&"), "https://h/p?a=redacted&&redacted&");
    EXPECT_EQ(redactedAddress("https://h/p?"), "https://h/p?");
}

TEST(Redaction, ReplacesUserPasswordAndFragment) {
    EXPECT_EQ(redactedAddress("https://ann:pw@h:1/p#token=s3cret"), "https://redacted@h:1/p#redacted");
    EXPECT_EQ(redactedAddress("https://a@b@h/p?x=1#"), "https://redacted@h/p?x=redacted#redacted");
    EXPECT_EQ(redactedAddress("https://ann@h"), "https://redacted@h");
    EXPECT_EQ(redactedAddress("p/q?a=1"), "p/q?a=redacted");
}

TEST(Redaction, ASignBeforeTheAuthorityIsNotThatOfAUser) {
    EXPECT_EQ(redactedAddress("a@b://h/p"), "a@b://h/p");
}

TEST(Redaction, KeepsDomainAndCodeOfAnError) {
    const Error transport = detail::makeURLError({.code = URLErrorCode::timedOut, .reason = "s3cret"},
                                                 URL::make("https://h/p?apikey=s3cret"));
    const Error shown = withoutDetails(transport);
    EXPECT_EQ(shown.domain(), NSURLErrorDomain);
    EXPECT_EQ(shown.code(), -1001);
    EXPECT_EQ(shown.localizedDescription(), "The request timed out.");
    EXPECT_EQ(shown.userInfo().size(), 1U);

    // A code that only a host's own transport reports.
    EXPECT_EQ(withoutDetails(NSError(std::string(NSURLErrorDomain), -1009)).code(), -1009);

    const Error other = withoutDetails(NSError("D", 7, {{"NSLocalizedDescription", "s3cret"}}));
    EXPECT_EQ(other.domain(), "D");
    EXPECT_EQ(other.code(), 7);
    EXPECT_TRUE(other.userInfo().empty());
    EXPECT_EQ(other.localizedDescription().find("s3cret"), std::string::npos);
}

}  // namespace
}  // namespace VanticRestKit
