#pragma once

/// \file
/// `Exchange`: one transfer as the I/O thread sees it, and `Attempt`, one request of it in libcurl's hands.

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

/// One transfer on the I/O thread, from the inbox to its end. Light as long as it waits for its turn.
class Exchange : public Applicant, public Idler {
public:
    explicit Exchange(std::shared_ptr<Transfer> transfer);
    ~Exchange();
    Exchange(const Exchange&) = delete;
    Exchange& operator=(const Exchange&) = delete;

    const std::shared_ptr<Transfer>& transfer() const noexcept { return transfer_; }

    /// What is to be sent now: the transfer's request, or what a redirect made of it.
    const URLRequest& request() const noexcept { return redirected_ ? *redirected_ : transfer_->request(); }

    /// Goes on with another request. Returns how often it has done that.
    std::uint64_t redirect(URLRequest next);

    LoadTimer wholeTimer{*this};
    LoadTimer bodyTimer{*this};

    /// The redirect that the host is asked about; null while it is not.
    std::unique_ptr<Outcome> redirectAnswer;
    /// What the request has to do with the cache; null if nothing.
    std::unique_ptr<CacheHop> cacheHop;
    /// What goes out for the request: itself, or what the cache made of it.
    const URLRequest& outgoing() const noexcept;

    /// The request in libcurl's hands; null while none is.
    std::unique_ptr<Attempt> attempt;
    /// The records of its requests; null if it is not observed.
    std::unique_ptr<ExchangeMetrics> metrics;
    /// Whether it was ever in the queue of an origin.
    bool wasQueued = false;
    /// Whether libcurl gave it up once, because connection after connection refused it.
    bool wasGivenUp = false;
    /// Whether a connection of HTTP/2 ended without a word to this request, which libcurl ended with `code`. A GET goes out again then, as it does on a connection that turns out dead.
    bool wasLeftOut(CURLcode code) const;
    /// How often it went out again for that.
    int leftOut = 0;
    /// It waits for its session, in the queue or with its body, or goes on. For those who are told.
    void waits(LoadProgress::State state, std::int64_t queueLength, TimePoint now);
    void goesOn(TimePoint now);

    /// How often its host could not be reached, and until when it may try again.
    int unreached = 0;
    std::optional<TimePoint> triesUntil;
    /// Whether every address gets all the time that it wants, because an attempt to connect in less has failed.
    bool isPatient = false;

    /// How long one address of the host may take to answer.
    Clock::duration connectPatience() const;

private:
    std::shared_ptr<Transfer> transfer_;
    std::unique_ptr<URLRequest> redirected_;
    LoadProgress::State progressState_ = LoadProgress::State::loading;
    std::uint64_t redirects_ = 0;
};

/// What the callbacks of an attempt reach of the I/O thread.
struct AttemptSurroundings {
    /// The time of this round of the I/O thread.
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

/// One request in libcurl's hands, and what has come back so far.
struct Attempt {
    /// How often libcurl sends a request again that connections refuse.
    static constexpr int mostResendings = 5;

    Attempt(Exchange& held, AttemptSurroundings reached)
        : exchange(held), surroundings(reached), head(reached.limits), body(reached.limits) {}

    /// Something of this request moved.
    void moved();
    /// Something of its answer came. What follows the head of a redirect does not count as movement.
    void received();
    /// The headers are complete. Those of a redirect leave its body only a short time.
    void readHead();
    /// Takes `size` bytes of the body of a redirect. Returns whether the rest is worth reading.
    bool drain(std::size_t size);
    /// Whether it is on no connection: not yet, or not any more, because the server refused it there.
    bool waitsForConnection() const { return sendings == 0 || (connection && connection->socket < 0); }

    Exchange& exchange;
    AttemptSurroundings surroundings;
    std::unique_ptr<EasyHandle> handle;
    /// What libcurl reads of the request's headers, as long as it has the request.
    HeaderLines headerLines;

    HeaderCollector head;
    BodyCollector body;
    /// Whether the head was looked at.
    bool hasHead = false;
    /// Whether the body is to be read and forgotten, because the answer is a redirect.
    bool isRedirect = false;
    /// Whether the answer is a redirect that the host is to be asked about when its body is there.
    bool isRedirectToAskAbout = false;
    /// Whether the body has a coding that is not known and was not asked for.
    bool hasUnknownCoding = false;

    /// How long libcurl keeps the address that it finds for this request.
    std::chrono::seconds addressCacheTime{};

    /// Whether the pacer has it in its queue, because there is something of its body to decode.
    bool isHeld = false;
    /// Whether libcurl keeps a piece of its body until it is told to go on.
    bool isPaused = false;
    /// How libcurl ended the request, if the rest of its body was still to be decoded then.
    std::optional<CURLcode> result;

    /// Whether libcurl has brought the request to its end.
    bool isWhole = false;
    /// Whether it was sent as often as libcurl sends one, and not a word came back.
    bool wasRefusedToTheLast() const { return sendings > mostResendings && head.status() == 0; }

    /// What we found wrong, in place of what libcurl says.
    std::optional<TransportFault> fault;

    /// How often libcurl was about to send the request; more than once where a pooled connection was dead, or a new
    /// one took fewer requests at once than went out on it.
    int sendings = 0;
    /// The connection it went out on.
    std::shared_ptr<Connection> connection;
    /// The socket opened last for this request.
    int openedSocket = -1;
    /// Why a socket could not be opened, as an `errno`; 0 if none failed.
    int socketError = 0;
    /// The connections opened for it, also those to addresses that failed.
    std::vector<std::shared_ptr<Connection>> opened;
    /// Whether an address was given up before its time could tell.
    bool gaveUpAnAddress() const;
    curl_off_t uploaded = 0;

private:
    void readRedirect();

    std::uint64_t drained_ = 0;
};

}  // namespace VanticRestKit::detail
