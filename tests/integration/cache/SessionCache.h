#pragma once

/// \file
/// `SessionCache`: sessions with separate caches, whose clock is advanced by the test.

#include "CaseServer.h"

#include <support/FaultServer.h>
#include <support/Loading.h>
#include <VanticRestKit/platform/http/cache/detail/CacheAccess.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>

namespace VanticRestKit::test {

inline constexpr const char* fresh = "Cache-Control: max-age=60\r\nETag: \"a\"\r\n";

class SessionCache : public testing::Test {
protected:
    std::shared_ptr<URLCache> makeCache(std::shared_ptr<detail::CacheStore> store = nullptr) {
        return detail::CacheAccess::make(
            URLCache::defaultMemoryCapacity, std::move(store),
            [this]() -> detail::CacheTime { return {.wall = clock.now(), .steady = clock.now()}; });
    }

    std::shared_ptr<URLSession> makeSession(std::shared_ptr<URLCache> with) {
        URLSessionConfiguration configuration;
        configuration.urlCache = std::move(with);
        return URLSession::make(configuration);
    }

    using Policy = URLRequestCachePolicy;
    using Source = HTTPCacheStatus::Source;

    static Source sourceOf(const Loaded& loaded) { return loaded.response()->asHTTP()->source(); }
    static std::string statusOf(const Loaded& loaded) {
        return loaded.response()->asHTTP()->cacheStatusValue().value_or("");
    }

    static URLRequest requestWith(const FaultServer& server, Policy policy) {
        URLRequest request = requestOf(server.url());
        request.setCachePolicy(policy);
        return request;
    }

    MovedClock clock;
    std::shared_ptr<URLCache> cache = makeCache();
    std::shared_ptr<URLSession> session = makeSession(cache);
};

}  // namespace VanticRestKit::test
