#pragma once

/// \file
/// `CacheHop`: what one request of a transfer, or of a redirect, has to do with the cache.

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

/// An answer, and how it came about.
struct HopAnswer {
    CachedAnswer answer{};
    HTTPCacheStatus status{};
    /// Whether its body was not kept; see `ResponseParts`.
    bool lacksBody = false;
};

/// Asks the cache for one request before it is sent, and gives the cache what the server answered. For one thread; the
/// request must outlive it.
class CacheHop {
public:
    /// A hop of `request`, which has a URL that can be asked, with the Cookie that the session adds to it, which may be
    /// empty. `keys` outlives it; `core` is null without a cache.
    CacheHop(std::shared_ptr<CacheCore> core, CacheKeys& keys, const URLRequest& request, std::string cookie,
             URLRequestCachePolicy policy);
    ~CacheHop();
    CacheHop(const CacheHop&) = delete;
    CacheHop& operator=(const CacheHop&) = delete;

    /// Whether a request of this policy has anything to do with the cache at all.
    static bool isNeeded(const CacheCore* core, URLRequestCachePolicy policy);

    enum class Step {
        /// The server has to be asked, with `outgoing()`.
        load,
        /// `takeAnswer()` has the answer.
        answer,
        /// The store has to be read first: call `read`, then `ask` again.
        read,
        /// The policy allows no load, and nothing is stored.
        refuse,
    };
    Step ask();

    /// Reads the store. `done` is called on the store's thread, with what is to be given to `found`.
    void read(CacheCore::Found done);
    void found(std::vector<StoredPointer> stored);

    HopAnswer takeAnswer();
    /// Whether the answer is stale and the server is to be asked for a newer one in the background. True once; the
    /// hop that asks is the one that `revalidating` made.
    bool wantsRevalidation() const noexcept { return wantsRevalidation_; }
    /// Makes this the hop that asks in the background about what `other` has answered.
    void revalidate(CacheHop& other);

    /// What is to be sent: the request, with the conditions and the Cache-Control that the cache adds.
    const URLRequest& outgoing() const noexcept { return outgoing_ ? *outgoing_ : request_; }

    /// The request is about to be sent, with this Cookie of the session. What is stored is forgotten if it is for
    /// another one.
    void noteSent(const std::string& cookie);
    /// The head of its answer is there.
    void noteHead();

    /// Whether an answer with these fields is worth a look at whether to store it. Costs little.
    bool mayKeep(const HeaderFields& fields) const;

    /// Takes the server's answer, without a body if that is not looked at. Returns what the client gets.
    HopAnswer finish(std::int64_t status, HeaderFields fields, std::optional<Data> body);

    /// The stored answer is of no use to the session after all: the server is asked as if there were none.
    /// Whether the policy allows that.
    bool forgetStored();

    /// What the client gets in place of an error of the transport; empty if it is the error.
    std::optional<HopAnswer> rescue(URLErrorCode code);

private:
    const CacheKey& key();
    Step lookUp();
    void lookAgain();
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
    bool isUsableAnyway() const;

    const std::shared_ptr<CacheCore> core_;
    CacheKeys& keys_;
    const URLRequest& request_;
    const URLRequestCachePolicy policy_;
    std::string cookie_;
    CacheRequest wanted_;
    std::optional<CacheKey> key_;
    std::optional<URLRequest> outgoing_;
    /// The answer that fits the request, however old.
    StoredPointer stored_;
    std::vector<StoredPointer> read_;
    std::optional<HopAnswer> answer_;
    HTTPCacheStatus status_{};
    CacheTime requested_{};
    CacheTime received_{};
    std::uint64_t begun_ = 0;
    /// What `changes` of the cache was when it was asked last; empty if it was not, or for another key.
    std::optional<std::uint64_t> lookedAt_;
    bool hasRead_ = false;
    /// Whether the outgoing request has conditions of this cache.
    bool asksIfChanged_ = false;
    bool wantsRevalidation_ = false;
    /// What this one asks about in the background, if it does.
    StoredPointer revalidated_;
};

}  // namespace VanticRestKit::detail
