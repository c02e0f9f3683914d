#include <VanticRestKit/platform/http/detail/RedirectRule.h>

#include <gtest/gtest.h>

using namespace VanticRestKit;
using namespace VanticRestKit::detail;

namespace {

URLRequest request(const char* method) {
    URLRequest made(*URL::make("https://host/from"));
    made.setHTTPMethod(method);
    made.setHTTPBody(Data("body"));
    made.addValue("secret", "AUTHORIZATION");
    made.addValue("text/plain", "Content-type");
    made.addValue("kept", "X");
    made.setTimeoutInterval(std::chrono::seconds(7));
    return made;
}

std::string methodAfter(int status, const char* method) {
    return *redirected(request(method), status, *URL::make("https://host/to")).httpMethod();
}

}  // namespace

TEST(RedirectRule, FiveStatusesRedirect) {
    for (int status = 100; status < 600; ++status) {
        const bool expected =
            status == 301 || status == 302 || status == 303 || status == 307 || status == 308;
        EXPECT_EQ(isRedirect(status), expected) << status;
    }
}

TEST(RedirectRule, TheStatusDecidesTheMethod) {
    for (const int status : {301, 302}) {
        EXPECT_EQ(methodAfter(status, "POST"), "GET");
        for (const char* kept : {"GET", "HEAD", "PUT", "PATCH", "DELETE", "post"}) {
            EXPECT_EQ(methodAfter(status, kept), kept);
        }
    }
    EXPECT_EQ(methodAfter(303, "HEAD"), "HEAD");
    for (const char* method : {"GET", "POST", "PUT", "DELETE"}) EXPECT_EQ(methodAfter(303, method), "GET");
    for (const int status : {307, 308}) EXPECT_EQ(methodAfter(status, "POST"), "POST");
}

TEST(RedirectRule, AChangedMethodDropsOnlyTheBody) {
    const URLRequest next = redirected(request("POST"), 303, *URL::make("https://host/to"));
    EXPECT_EQ(next.url()->absoluteString(), "https://host/to");
    EXPECT_EQ(next.httpBody(), std::nullopt);
    EXPECT_EQ(next.value("content-type"), std::nullopt);
    EXPECT_EQ(next.value("authorization"), "secret");
    EXPECT_EQ(next.value("x"), "kept");
    EXPECT_EQ(next.timeoutInterval(), std::chrono::seconds(7));
}

TEST(RedirectRule, HeadersThatDescribeTheBodyAreDroppedWithIt) {
    for (const char* name : {"Content-Type", "Content-Length", "Content-Encoding", "Content-Language",
                             "Content-Location", "Content-MD5"}) {
        URLRequest from = request("POST");
        from.setValue("of the body", name);
        EXPECT_EQ(redirected(from, 302, *URL::make("https://host/to")).value(name), std::nullopt) << name;
        EXPECT_EQ(redirected(from, 307, *URL::make("https://host/to")).value(name), "of the body") << name;
    }
}

TEST(RedirectRule, CredentialsAreSentOnlyToTheSameOrigin) {
    for (const char* name :
         {"Authorization", "Proxy-Authorization", "Cookie", "Cookie2", "X-Api-Key", "X-Auth-Token", "Host"}) {
        URLRequest from = request("GET");
        from.setValue("mine", name);
        EXPECT_EQ(redirected(from, 302, *URL::make("https://other/to")).value(name), std::nullopt) << name;
        EXPECT_EQ(redirected(from, 302, *URL::make("https://host/to")).value(name), "mine") << name;
    }
}

TEST(RedirectRule, AnotherOriginGetsNoCredentials) {
    for (const char* target : {"https://other/to", "http://host/to", "https://host:444/to"}) {
        const URLRequest next = redirected(request("PUT"), 307, *URL::make(target));
        EXPECT_EQ(next.value("authorization"), std::nullopt) << target;
        EXPECT_EQ(next.value("x"), std::nullopt) << target;
        EXPECT_EQ(next.value("content-type"), "text/plain") << target;
        EXPECT_TRUE(next.httpBody().has_value()) << target;
    }
    EXPECT_EQ(redirected(request("PUT"), 307, *URL::make("HTTPS://HOST:443/to")).value("authorization"),
              "secret");
}

TEST(RedirectRule, OtherHeadersAreSentToAnotherOriginUnlessWithheld) {
    URLRequest from = request("GET");
    for (const char* name : {"Accept", "Accept-Language", "Range", "If-None-Match", "User-Agent"}) {
        from.setValue("v", name);
    }
    const URLRequest next =
        redirected(from, 302, *URL::make("https://other/to"), {"user-agent", "CONTENT-TYPE"});
    for (const char* name : {"Accept", "Accept-Language", "Range", "If-None-Match"}) {
        EXPECT_EQ(next.value(name), "v") << name;
    }
    EXPECT_EQ(next.value("User-Agent"), std::nullopt);
    EXPECT_EQ(next.value("Content-Type"), std::nullopt);
    const URLRequest within = redirected(from, 302, *URL::make("https://host/to"), {"user-agent"});
    EXPECT_EQ(within.value("User-Agent"), "v") << "the origin is the same";
}

TEST(RedirectRule, ThePolicyDecidesWhichRedirectsAreFollowed) {
    using Follow = URLSessionRedirectPolicy::Follow;
    const auto actionOf = [](Follow follow, bool allowsInsecure, const char* target) {
        const URLSessionRedirectPolicy policy{.follow = follow, .allowsInsecureTarget = allowsInsecure};
        return redirectAction(policy, *URL::make("https://host/from"), *URL::make(target));
    };
    EXPECT_EQ(actionOf(Follow::always, false, "https://host/to"), RedirectAction::follow);
    EXPECT_EQ(actionOf(Follow::always, false, "https://other/to"), RedirectAction::follow);
    EXPECT_EQ(actionOf(Follow::always, false, "http://host/to"), RedirectAction::refuse);
    EXPECT_EQ(actionOf(Follow::always, true, "http://host/to"), RedirectAction::follow);
    EXPECT_EQ(actionOf(Follow::sameOriginOnly, true, "https://host:443/to"), RedirectAction::follow);
    EXPECT_EQ(actionOf(Follow::sameOriginOnly, true, "https://other/to"), RedirectAction::deliver);
    EXPECT_EQ(actionOf(Follow::sameOriginOnly, true, "http://host/to"), RedirectAction::deliver);
    EXPECT_EQ(actionOf(Follow::never, true, "https://host/to"), RedirectAction::deliver);
}
