#include "StoredResponses.h"

#include <VanticRestKit/platform/http/cache/detail/CacheRules.h>

#include <gtest/gtest.h>

namespace VanticRestKit::test {

namespace {

using detail::CacheRequest;
using detail::Reuse;
using namespace std::chrono_literals;

URLRequest requestWith(const char* name = nullptr, const char* value = nullptr, const char* method = "GET") {
    URLRequest request(*URL::make("http://host.test/"));
    request.setHTTPMethod(method);
    if (name != nullptr) request.setValue(value, name);
    return request;
}

Reuse reuseAfter(std::chrono::milliseconds time, const char* control, const char* requestControl = nullptr) {
    const auto stored = storedOf({{"Cache-Control", control}});
    const URLRequest request =
        requestWith(requestControl == nullptr ? nullptr : "Cache-Control", requestControl);
    return detail::reuseOf(*stored, CacheRequest(request), after(time));
}

bool isStored(const char* control, std::int64_t status = 200, const URLRequest& request = requestWith()) {
    return detail::mayStore(CacheRequest(request), *storedOf({{"Cache-Control", control}}, "", status));
}

TEST(CacheRules, UseFreshResponsesAndRevalidateOthers) {
    EXPECT_EQ(reuseAfter(9s, "max-age=10"), Reuse::fresh);
    EXPECT_EQ(reuseAfter(10s, "max-age=10"), Reuse::validate);
    EXPECT_EQ(reuseAfter(0s, "max-age=10, no-cache"), Reuse::validate);
    EXPECT_EQ(reuseAfter(0s, "max-age=10, no-cache=\"a\""), Reuse::fresh);
}

TEST(CacheRules, ObeyTheCacheControlOfTheRequest) {
    EXPECT_EQ(reuseAfter(5s, "max-age=10", "max-age=4"), Reuse::validate);
    EXPECT_EQ(reuseAfter(0s, "max-age=10", "max-age=0"), Reuse::validate);
    EXPECT_EQ(reuseAfter(5s, "max-age=10", "min-fresh=6"), Reuse::validate);
    EXPECT_EQ(reuseAfter(5s, "max-age=10", "min-fresh=5"), Reuse::fresh);
    EXPECT_EQ(reuseAfter(5s, "max-age=10", "no-cache"), Reuse::validate);
    EXPECT_EQ(reuseAfter(15s, "max-age=10", "max-stale=5"), Reuse::stale);
    EXPECT_EQ(reuseAfter(16s, "max-age=10", "max-stale=5"), Reuse::validate);
    EXPECT_EQ(reuseAfter(1000h, "max-age=10", "max-stale"), Reuse::stale);
    EXPECT_EQ(reuseAfter(15s, "max-age=10, must-revalidate", "max-stale"), Reuse::validate);
}

TEST(CacheRules, TreatPragmaAsNoCacheOnlyWithoutCacheControl) {
    EXPECT_TRUE(CacheRequest(requestWith("Pragma", "no-cache")).control.noCache);
    URLRequest both = requestWith("Pragma", "no-cache");
    both.setValue("max-age=5", "Cache-Control");
    EXPECT_FALSE(CacheRequest(both).control.noCache);
}

TEST(CacheRules, UseAStaleResponseDuringRevalidation) {
    EXPECT_EQ(reuseAfter(12s, "max-age=10, stale-while-revalidate=5"), Reuse::staleWhileRevalidate);
    EXPECT_EQ(reuseAfter(16s, "max-age=10, stale-while-revalidate=5"), Reuse::validate);
    EXPECT_EQ(reuseAfter(12s, "max-age=10, stale-while-revalidate=5, must-revalidate"), Reuse::validate);
}

TEST(CacheRules, UseAStaleResponseInsteadOfAnErrorIfAllowed) {
    const URLRequest plain = requestWith();
    const auto allowed = storedOf({{"Cache-Control", "max-age=10, stale-if-error=20"}});
    EXPECT_TRUE(detail::isUsableOnError(*allowed, CacheRequest(plain), after(30s)));
    EXPECT_FALSE(detail::isUsableOnError(*allowed, CacheRequest(plain), after(31s)));
    const auto silent = storedOf({{"Cache-Control", "max-age=10"}});
    EXPECT_FALSE(detail::isUsableOnError(*silent, CacheRequest(plain), after(11s)));
    const URLRequest asking = requestWith("Cache-Control", "stale-if-error=5");
    EXPECT_TRUE(detail::isUsableOnError(*silent, CacheRequest(asking), after(11s)));
    const auto strict = storedOf({{"Cache-Control", "max-age=10, stale-if-error=20, must-revalidate"}});
    EXPECT_FALSE(detail::isUsableOnError(*strict, CacheRequest(plain), after(11s)));
}

TEST(CacheRules, AllowOfflineUseForAsLongAgainAsTheResponseWasFresh) {
    const URLRequest plain = requestWith();
    const auto declared = storedOf({{"Cache-Control", "max-age=10"}});
    EXPECT_TRUE(detail::isUsableOffline(*declared, CacheRequest(plain), after(20s)));
    EXPECT_FALSE(detail::isUsableOffline(*declared, CacheRequest(plain), after(21s)));
    for (const char* control : {"max-age=10, no-cache", "max-age=10, must-revalidate"}) {
        const auto strict = storedOf({{"Cache-Control", control}});
        EXPECT_FALSE(detail::isUsableOffline(*strict, CacheRequest(plain), after(11s)));
    }
    const URLRequest limited = requestWith("Cache-Control", "max-age=5");
    EXPECT_FALSE(detail::isUsableOffline(*declared, CacheRequest(limited), after(11s)));
}

TEST(CacheRules, ObeyTheRequestOffline) {
    const auto usable = [](const detail::StoredPointer& stored, const char* control) {
        const URLRequest request = requestWith("Cache-Control", control);
        return detail::isUsableOffline(*stored, CacheRequest(request), after(11s));
    };
    const auto declared = storedOf({{"Cache-Control", "max-age=10"}});
    EXPECT_TRUE(usable(declared, "max-stale=0"));
    EXPECT_FALSE(usable(declared, "no-cache"));
    EXPECT_FALSE(usable(declared, "min-fresh=0"));
    EXPECT_TRUE(usable(declared, "min-fresh=0, stale-if-error=1"));
}

TEST(CacheRules, AllowOfflineUseOfAnEstimatedLifetimeOnlyWithPermission) {
    const URLRequest plain = requestWith();
    const auto estimated = storedOf({{"Last-Modified", dateAfter(-100)}});
    EXPECT_FALSE(detail::isUsableOffline(*estimated, CacheRequest(plain), after(11s)));
    const auto permitted =
        storedOf({{"Last-Modified", dateAfter(-100)}, {"Cache-Control", "stale-if-error=1"}});
    EXPECT_TRUE(detail::isUsableOffline(*permitted, CacheRequest(plain), after(11s)));
    EXPECT_FALSE(detail::isUsableOffline(*permitted, CacheRequest(plain), after(12s)));
}

TEST(CacheRules, DoNotUseAResponseOnErrorThatRequiresValidation) {
    const URLRequest plain = requestWith();
    const auto unchecked = storedOf({{"Cache-Control", "no-cache, stale-if-error=20"}});
    EXPECT_FALSE(detail::isUsableOnError(*unchecked, CacheRequest(plain), after(1s)));
}

TEST(CacheRules, StoreCacheableResponses) {
    EXPECT_TRUE(isStored("max-age=1"));
    EXPECT_TRUE(isStored("private, max-age=1", 599));
    EXPECT_TRUE(isStored("", 200));
    EXPECT_FALSE(isStored("", 201));
    EXPECT_FALSE(isStored("no-store, max-age=1"));
    EXPECT_TRUE(isStored("no-store, max-age=1, must-understand"));
    EXPECT_FALSE(isStored("max-age=1, must-understand", 299));
    for (const std::int64_t status : {302, 303, 307}) {
        EXPECT_TRUE(isStored("max-age=1, must-understand", status)) << status;
    }
    EXPECT_FALSE(isStored("max-age=1", 206));
    EXPECT_FALSE(isStored("max-age=1", 304));
    EXPECT_FALSE(isStored("max-age=1", 200, requestWith("Cache-Control", "no-store")));
    EXPECT_FALSE(isStored("max-age=1", 200, requestWith(nullptr, nullptr, "POST")));
    EXPECT_FALSE(isStored("max-age=1", 416, requestWith("Range", "bytes=900-")));
}

}  // namespace

}  // namespace VanticRestKit::test
