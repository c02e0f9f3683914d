#pragma once

/// \file
/// `CacheHop`: the use of the cache by one request of a transfer.

#include <VanticRestKit/platform/http/cache/detail/CacheCore.h>
#include <VanticRestKit/platform/http/cache/detail/CacheRequest.h>
#include <VanticRestKit/platform/http/cache/detail/StoredAnswer.h>
#include <VanticRestKit/platform/http/HTTPCacheStatus.h>
#include <VanticRestKit/platform/http/URLErrorCode.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace VanticRestKit::detail {

/// A response and its cache status.
struct HopAnswer {
    CachedAnswer answer{};
    HTTPCacheStatus status{};
    /// Whether its body was not stored; see `ResponseParts`.
    bool lacksBody = false;
};

/// Looks up one request in the cache before it is sent, and passes the server's response to the cache. A redirect makes
/// a new hop. For one thread; the request must outlive it.
class CacheHop {
public:
    /// `request` must be sendable. `cookie` is the Cookie that the session adds to it; may be empty. `keys` must
    /// outlive the hop; `core` is null without a cache.
    CacheHop(std::shared_ptr<CacheCore> core, CacheKeys& keys, const URLRequest& request, std::string cookie,
             URLRequestCachePolicy policy);
    ~CacheHop();
    CacheHop(const CacheHop&) = delete;
    CacheHop& operator=(const CacheHop&) = delete;

    /// Whether a request with this policy needs a hop.
    static bool isNeeded(const CacheCore* core, URLRequestCachePolicy policy);

    enum class Step {
        /// Send `outgoing()` to the server.
        load,
        /// `takeAnswer()` returns the response.
        answer,
        /// The store must be read first: call `read`, then `found`, then `ask` again.
        read,
        /// Fail: the policy allows no load, and nothing is stored.
        refuse,
    };
    Step ask();

    /// Reads the store. `done` is called on the store's thread, with the argument for `found`.
    void read(CacheCore::Found done);
    void found(std::vector<StoredPointer> stored);

    HopAnswer takeAnswer();
    /// Whether the response is stale and must be revalidated in the background, by another hop on which `revalidate` is
    /// called.
    bool wantsRevalidation() const noexcept { return wantsRevalidation_; }
    /// Makes this hop revalidate the response of `other` in the background.
    void revalidate(CacheHop& other);

    /// The request to send, with the conditions and the Cache-Control that the cache adds.
    const URLRequest& outgoing() const noexcept { return outgoing_ ? *outgoing_ : request_; }

    /// Call before the request is sent, with the session's current Cookie. If it has changed since the lookup, the
    /// stored response is dropped.
    void noteSent(const std::string& cookie);
    /// Call when the response's headers are complete.
    void noteHead();

    /// A cheap first check whether a response with these fields may be stored.
    bool mayKeep(const HeaderFields& fields) const;

    /// Takes the server's response; `body` is empty if it was not read. Returns the response for the client.
    HopAnswer finish(std::int64_t status, HeaderFields fields, std::optional<Data> body);

    /// Drops the stored response, so that the request is sent as if there were none. Returns whether the policy allows
    /// that.
    bool forgetStored();

    /// The stored response for the client in place of a transport error; empty if the error must be reported.
    std::optional<HopAnswer> storedFallback(URLErrorCode code);

private:
    const CacheKey& key();
    Step lookUp();
    void lookUpAgain();
    Step use();
    Step load(HTTPCacheStatus::Forwarding reason);
    Step answerStored(HTTPCacheStatus::Source source);
    Step answerUnavailable(HTTPCacheStatus::Forwarding reason);
    void askIfChanged();
    void addControl(const char* value);
    HopAnswer confirmed(const HeaderFields& fields);
    void keep(std::int64_t status, const HeaderFields& fields, const std::optional<Data>& body);
    void freshen(std::int64_t status, const HeaderFields& fields);
    void invalidate(std::int64_t status, const HeaderFields& fields);
    HopAnswer storedAnswer(HTTPCacheStatus::Source source);
    bool ignoresStored() const;
    bool acceptsAnyAge() const;

    const std::shared_ptr<CacheCore> core_;
    CacheKeys& keys_;
    const URLRequest& request_;
    const URLRequestCachePolicy policy_;
    std::string cookie_;
    CacheRequest wanted_;
    std::optional<CacheKey> key_;
    std::optional<URLRequest> outgoing_;
    /// The stored response that matches the request, of any age.
    StoredPointer stored_;
    std::vector<StoredPointer> read_;
    std::optional<HopAnswer> answer_;
    HTTPCacheStatus status_{};
    CacheTime requested_{};
    CacheTime received_{};
    std::uint64_t begun_ = 0;
    /// The cache's `changes()` at the last lookup; empty if there was none for this key.
    std::optional<std::uint64_t> changesSeen_;
    bool hasRead_ = false;
    /// Whether the cache added conditions to the outgoing request.
    bool asksIfChanged_ = false;
    bool wantsRevalidation_ = false;
    /// The response that this hop revalidates in the background, or null.
    StoredPointer revalidated_;
};

}  // namespace VanticRestKit::detail
