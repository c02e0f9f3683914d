#pragma once

/// \file
/// `CacheHopTest`: requests that use a cache, without a server.

#include "StoredResponses.h"

#include <VanticRestKit/platform/http/cache/detail/CacheHop.h>
#include <VanticRestKit/platform/http/cache/detail/Vary.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>

namespace VanticRestKit::test {

using namespace std::chrono_literals;

/// Stale for 10 seconds at the time of the tests.
inline const detail::HeaderFields stale{{"Cache-Control", "max-age=50"}, {"ETag", "\"a\""}};
/// Fresh for 30 seconds more.
inline const detail::HeaderFields fresh{{"Cache-Control", "max-age=90"}, {"ETag", "\"a\""}};

inline URLRequest requestWith(const char* name = nullptr, const char* value = nullptr,
                              const char* method = "GET") {
    URLRequest request(*URL::make("http://host.test/"));
    request.setHTTPMethod(method);
    if (name != nullptr) request.setValue(value, name);
    return request;
}

class CacheHopTest : public testing::Test {
protected:
    using CacheCore = detail::CacheCore;
    using CacheHop = detail::CacheHop;
    using HeaderFields = detail::HeaderFields;
    using HopAnswer = detail::HopAnswer;
    using Policy = URLRequestCachePolicy;
    using Source = HTTPCacheStatus::Source;
    using Step = detail::CacheHop::Step;

    static constexpr Policy usual = Policy::useProtocolCachePolicy;

    /// A cache whose time is a minute after that of `storedOf`.
    static std::shared_ptr<CacheCore> coreOf(std::shared_ptr<detail::CacheStore> store = nullptr) {
        return std::make_shared<CacheCore>(10'000, std::move(store), [] { return after(60s); });
    }

    /// Stores a response to `request` as if it had been received at `receivedAt`.
    void store(HeaderFields fields, std::string body = "stored", const URLRequest& request = requestWith(),
               std::int64_t status = 200) {
        auto parts = partsOf(std::move(fields), std::move(body), status);
        const auto vary = parts.fields.find("Vary");
        if (vary != parts.fields.end()) parts.variant = *detail::variantOf(vary->second, request);
        core->put(keyOf(request), std::make_shared<const detail::StoredResponse>(std::move(parts)), request,
                  core->moment());
    }

    detail::CacheKey keyOf(const URLRequest& request) {
        return keys.of(detail::CacheRequest(request), *request.url());
    }

    detail::StoredPointer stored(const URLRequest& request = requestWith()) {
        return core->find(keyOf(request), request);
    }

    std::string bodyStored(const URLRequest& request = requestWith()) {
        const auto found = stored(request);
        return found ? std::string(found->body().view()) : "none";
    }

    /// Sends the request, which `hop` must want to send, and passes it this response.
    static HopAnswer send(CacheHop& hop, std::int64_t status, HeaderFields fields, std::string body = "new") {
        EXPECT_EQ(hop.ask(), Step::load);
        hop.noteSent("");
        hop.noteHead();
        return hop.finish(status, std::move(fields), Data(std::move(body)));
    }

    /// The cache status of a load of `request` from the server.
    std::string statusOf(const URLRequest& request, Policy policy = usual) {
        CacheHop hop(core, keys, request, "", policy);
        return send(hop, 200, {{"Cache-Control", "no-store"}}).status.text().value_or("");
    }

    detail::CacheKeys keys;
    std::shared_ptr<CacheCore> core = coreOf();
};

}  // namespace VanticRestKit::test
