#pragma once

/// \file
/// `Exchange`: the I/O thread's state of one transfer, and `Attempt`, one of its requests while libcurl performs it.

#include <VanticRestKit/platform/http/cache/detail/CacheHop.h>
#include <VanticRestKit/platform/http/cookies/detail/SessionCookies.h>
#include <VanticRestKit/platform/http/curl/detail/BodyPacer.h>
#include <VanticRestKit/platform/http/curl/detail/Connections.h>
#include <VanticRestKit/platform/http/curl/detail/EasyHandle.h>
#include <VanticRestKit/platform/http/curl/detail/ExchangeMetrics.h>
#include <VanticRestKit/platform/http/curl/detail/HeaderLines.h>
#include <VanticRestKit/platform/http/curl/detail/LoadDeadlines.h>
#include <VanticRestKit/platform/http/curl/detail/OwnAddresses.h>
#include <VanticRestKit/platform/http/curl/detail/PendingConnects.h>
#include <VanticRestKit/platform/http/detail/Admission.h>
#include <VanticRestKit/platform/http/detail/BodyCollector.h>
#include <VanticRestKit/platform/http/detail/HeaderCollector.h>
#include <VanticRestKit/platform/http/detail/IdleDeadlines.h>
#include <VanticRestKit/platform/http/detail/Transfer.h>
#include <VanticRestKit/platform/http/URLRequest.h>
#include <VanticRestKit/platform/http/URLSessionLimits.h>
#include <VanticRestKit/platform/http/URLSessionRedirectPolicy.h>

#include <curl/curl.h>

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace VanticRestKit::detail {

struct Attempt;

/// One transfer on the I/O thread, from the inbox to its end. Takes little memory while it waits in the queue.
class Exchange : public Applicant, public Idler {
public:
    explicit Exchange(std::shared_ptr<Transfer> transfer);
    ~Exchange();
    Exchange(const Exchange&) = delete;
    Exchange& operator=(const Exchange&) = delete;

    const std::shared_ptr<Transfer>& transfer() const noexcept { return transfer_; }

    /// The current request: the transfer's own, or the one that resulted from redirects.
    const URLRequest& request() const noexcept { return redirected_ ? *redirected_ : transfer_->request(); }

    /// Continues with another request. Returns the number of redirects so far.
    std::uint64_t redirect(URLRequest next);

    LoadTimer wholeTimer{*this};
    LoadTimer bodyTimer{*this};

    /// The redirect about which the host is being asked; null if none.
    std::unique_ptr<Outcome> pendingRedirect;
    /// The request's use of the cache; null if it does not use it.
    std::unique_ptr<CacheHop> cacheHop;
    /// The request to send: the current one, with the changes that the cache made.
    const URLRequest& outgoing() const noexcept;

    /// The request that libcurl performs; null if none.
    std::unique_ptr<Attempt> attempt;
    /// The records of its requests; null if they are not collected.
    std::unique_ptr<ExchangeMetrics> metrics;
    /// Whether it has ever been in the queue of an origin.
    bool wasQueued = false;
    /// Whether libcurl has given it up once because connections refused it repeatedly.
    bool wasGivenUp = false;
    /// Whether an HTTP/2 connection ended without a response to this request, which libcurl ended with `code`. A GET is
    /// then sent again, as after a dead connection.
    bool wentUnanswered(CURLcode code) const;
    /// How often it was sent again for that reason.
    int timesUnanswered = 0;
    /// Reports to the metrics and the progress receiver that it waits in the queue or with its body paused, and that it
    /// continues.
    void reportWaiting(LoadProgress::State state, std::int64_t queueLength, TimePoint now);
    void resumed(TimePoint now);

    /// How often its host could not be reached, and until when it may be retried.
    int timesUnreached = 0;
    std::optional<TimePoint> retriesUntil;
    /// Whether connecting to an address may take the full time, because an attempt with a short limit has failed.
    bool usesFullConnectTime = false;

    /// How long connecting to one address of the host may take.
    Clock::duration connectLimit() const;

private:
    std::shared_ptr<Transfer> transfer_;
    std::unique_ptr<URLRequest> redirected_;
    LoadProgress::State progressState_ = LoadProgress::State::loading;
    std::uint64_t redirects_ = 0;
};

/// The parts of the I/O thread that an attempt's callbacks use.
struct AttemptSurroundings {
    /// The time of the I/O thread's current round.
    const TimePoint& now;
    Connections& connections;
    PendingConnects& pendingConnects;
    OwnAddresses& ownAddresses;
    const URLSessionRedirectPolicy& redirectPolicy;
    Admission& admission;
    IdleDeadlines& deadlines;
    const SessionCookies& cookies;
    LoadDeadlines& loadDeadlines;
    BodyPacer& pacer;
    const URLSessionLimits& limits = defaultLimits;
};

/// One request while libcurl performs it, and the response so far.
struct Attempt {
    /// How often libcurl resends a request that connections refuse.
    static constexpr int maxResends = 5;

    Attempt(Exchange& held, AttemptSurroundings reached)
        : exchange(held), surroundings(reached), head(reached.limits), body(reached.limits) {}

    /// Data of this request was sent or received.
    void moved();
    /// Data of its response was received. For a redirect, data after the headers does not restart the idle time-out.
    void received();
    /// Processes the complete headers. After those of a redirect, its body has only a short time.
    void readHead();
    /// Discards `size` bytes of the body of a redirect. Returns whether the rest is worth reading.
    bool drain(std::size_t size);
    /// Whether it has no connection: not yet, or not any more because the server refused it there.
    bool waitsForConnection() const { return timesSent == 0 || (connection && connection->socket < 0); }

    Exchange& exchange;
    AttemptSurroundings surroundings;
    std::unique_ptr<EasyHandle> handle;
    /// The request's header lines, which libcurl uses during the request.
    HeaderLines headerLines;

    HeaderCollector head;
    BodyCollector body;
    /// Whether the headers have been processed.
    bool hasHead = false;
    /// Whether the body is discarded because the response is a redirect that is followed.
    bool isRedirect = false;
    /// Whether the response is a redirect about which the host is asked when its body is complete.
    bool mustAskAboutRedirect = false;
    /// Whether the body has a coding that is not supported and was not asked for.
    bool hasUnknownCoding = false;

    /// How long libcurl caches the address that it finds for this request.
    std::chrono::seconds addressCacheTime{};

    /// Whether it is in the pacer's queue, because part of its body must be decoded.
    bool isHeld = false;
    /// Whether it is paused in libcurl, which keeps a piece of its body.
    bool isPaused = false;
    /// Whether it has been paused and resumed.
    bool wasResumed = false;
    /// How libcurl ended the request, if part of its body was not decoded yet.
    std::optional<CURLcode> result;

    /// Whether libcurl has completed the request without an error.
    bool isWhole = false;
    /// Whether libcurl resent it as often as it can, without any response.
    bool exhaustedRetries() const { return timesSent > maxResends && head.status() == 0; }

    /// A fault that this library found; takes precedence over libcurl's result.
    std::optional<TransportFault> fault;

    /// How often libcurl was about to send the request; more than once if a reused connection was dead, or if a new one
    /// accepted fewer concurrent requests than were sent on it.
    int timesSent = 0;
    /// The connection on which it was sent.
    std::shared_ptr<Connection> connection;
    /// The socket opened last for this request.
    int openedSocket = -1;
    /// Why a socket could not be opened, as an `errno`; 0 if none failed.
    int socketError = 0;
    /// The connections opened for it, including failed ones.
    std::vector<std::shared_ptr<Connection>> opened;
    /// Whether connecting to an address was cut short.
    bool gaveUpAddress() const;
    curl_off_t uploaded = 0;

private:
    void readRedirect();

    std::uint64_t drained_ = 0;
};

}  // namespace VanticRestKit::detail
