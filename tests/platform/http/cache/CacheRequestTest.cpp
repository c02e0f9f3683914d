#include <VanticRestKit/platform/http/cache/detail/CacheRequest.h>

#include <gtest/gtest.h>

namespace VanticRestKit::detail {

namespace {

URLRequest requestWith(const char* name, const char* value, const char* method = "GET") {
    URLRequest request(*URL::make("http://host.test/"));
    request.setHTTPMethod(method);
    request.setValue(value, name);
    return request;
}

TEST(CacheRequest, IsSafeByItsMethod) {
    for (const char* method : {"GET", "HEAD", "OPTIONS", "TRACE"}) {
        EXPECT_TRUE(CacheRequest(requestWith("X-A", "1", method)).isSafe) << method;
    }
    for (const char* method : {"POST", "PUT", "PATCH", "DELETE", "get"}) {
        EXPECT_FALSE(CacheRequest(requestWith("X-A", "1", method)).isSafe) << method;
    }
}

TEST(CacheRequest, IsForTheServerOnlyWithABodyOrAConditionThatACacheCannotEvaluate) {
    for (const char* name : {"If-Match", "if-unmodified-since", "If-Range"}) {
        const URLRequest request = requestWith(name, "\"a\"");
        EXPECT_TRUE(CacheRequest(request).isForServerOnly) << name;
        EXPECT_FALSE(CacheRequest(request).isAnswerable()) << name;
        EXPECT_FALSE(CacheRequest(request).isStorable()) << name;
    }
    for (const char* name : {"If-None-Match", "If-Modified-Since", "Range", "If-Other", "Accept"}) {
        EXPECT_FALSE(CacheRequest(requestWith(name, "\"a\"")).isForServerOnly) << name;
    }
    URLRequest request = requestWith("X-A", "1");
    EXPECT_TRUE(CacheRequest(request).isAnswerable());
    request.setHTTPBody(Data(std::string("body")));
    EXPECT_FALSE(CacheRequest(request).isAnswerable());
}

}  // namespace

}  // namespace VanticRestKit::detail
