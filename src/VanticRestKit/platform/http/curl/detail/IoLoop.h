#pragma once

/// \file
/// `IoLoop`: the I/O thread of a session.

#include <VanticRestKit/platform/dispatch/DispatchQueue.h>
#include <VanticRestKit/platform/http/cookies/detail/SessionCookies.h>
#include <VanticRestKit/platform/http/curl/detail/BodyPacer.h>
#include <VanticRestKit/platform/http/curl/detail/Connections.h>
#include <VanticRestKit/platform/http/curl/detail/ConnectivityWait.h>
#include <VanticRestKit/platform/http/curl/detail/CurlTransport.h>
#include <VanticRestKit/platform/http/curl/detail/EasyHandle.h>
#include <VanticRestKit/platform/http/curl/detail/Exchange.h>
#include <VanticRestKit/platform/http/curl/detail/ExitGate.h>
#include <VanticRestKit/platform/http/curl/detail/Inbox.h>
#include <VanticRestKit/platform/http/curl/detail/LoadDeadlines.h>
#include <VanticRestKit/platform/http/curl/detail/OwnAddresses.h>
#include <VanticRestKit/platform/http/curl/detail/PendingConnects.h>
#include <VanticRestKit/platform/http/curl/detail/StoreReads.h>
#include <VanticRestKit/platform/http/curl/detail/StreamResets.h>
#include <VanticRestKit/platform/http/curl/detail/SuspectConnections.h>
#include <VanticRestKit/platform/http/curl/detail/Undelivered.h>
#include <VanticRestKit/platform/http/detail/Admission.h>
#include <VanticRestKit/platform/http/detail/IdleDeadlines.h>
#include <VanticRestKit/platform/http/detail/Origin.h>
#include <VanticRestKit/platform/http/URLSessionConfiguration.h>

#include <curl/curl.h>

#include <functional>
#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

namespace VanticRestKit::detail {

/// Everything that the I/O thread of one session owns: the multi handle, all easy handles, and the transfers from the
/// inbox to their end. Used only on that thread; never runs code of the host.
class IoLoop {
public:
    IoLoop(const URLSessionConfiguration& configuration, const TransportSeams& seams,
           std::shared_ptr<Inbox> inbox, DispatchQueue delegateQueue);
    ~IoLoop();
    IoLoop(const IoLoop&) = delete;
    IoLoop& operator=(const IoLoop&) = delete;

    /// Runs until the inbox is closed and every transfer has ended. Passes `gate` in every round.
    void run(ExitGate& gate);

private:
    struct SharedDeleter {
        void operator()(CURLSH* shared) const { curl_share_cleanup(shared); }
    };
    struct Ended {
        std::shared_ptr<Transfer> transfer;
        Outcome outcome;
        /// Its size in the count of undelivered bytes.
        std::uint64_t bytes;
    };
    using Exchanges = std::unordered_map<const Transfer*, std::unique_ptr<Exchange>>;

    bool readInbox();
    void begin(std::shared_ptr<Transfer> transfer);
    void cancel(const Transfer& transfer);
    void cancelAll();
    void beginHop(Exchange& exchange);
    void askCache(Exchange& exchange);
    void readStore(Exchange& exchange);
    void resume(Inbox::Message message);
    void resume(const Transfer& transfer, std::vector<StoredPointer> found);
    void answer(Exchange& exchange, HopAnswer found);
    static Outcome outcomeOf(const Exchange& exchange, HopAnswer answer);
    void revalidate(Exchange& exchange);
    const std::string& queueKeyOf(const Exchange& exchange);
    bool isQueueFull(const Exchange& exchange);
    void enqueue(Exchange& exchange);
    void admit();
    void reportQueued();
    void attempt(Exchange& exchange);
    void send(Exchange& exchange);
    void decodeHeld();
    void fetchKept();
    void resume(Attempt& attempt);
    bool isBlockedByHeld(const Attempt& attempt);
    void collectFinished();
    void handleResult(Exchange& exchange, CURLcode code);
    void forEachOn(const Connection& connection, const std::function<void(Exchange&)>& visit);
    void resend(Exchange& exchange);
    void connectWithFullTime(Exchange& exchange);
    bool mayWaitForConnectivity(Exchange& exchange, CURLcode code);
    void waitForConnectivity(Exchange& exchange);
    void retryUnreached();
    void followReceivedRedirect(Exchange& exchange);
    void follow(Exchange& exchange, std::int64_t status, const std::string& location);
    void goTo(Exchange& exchange, URLRequest next);
    void askHost(Exchange& exchange, HopAnswer redirect, const std::string& location);
    void redirectDecided(const Transfer& transfer, std::optional<URLRequest> next);
    static HopAnswer answerOf(Exchange& exchange);
    void succeed(Exchange& exchange);
    void fail(Exchange& exchange, const TransportFault& fault,
              const std::optional<Error>& underlying = std::nullopt);
    void timeOut();
    void timeOutIdle();
    bool movedUnseen(Exchange& exchange);
    void closeLostAddresses();
    void forgetDeadAddress(const Exchange& exchange);
    void release(Exchange& exchange);
    void releaseAttempt(Exchange& exchange);
    void end(Exchange& exchange, Outcome outcome);
    void deliver();
    void wait();
    std::chrono::milliseconds maxWait() const;

    // Must outlive the loop.
    const URLSessionConfiguration& configuration_;
    // Why the configuration cannot be used; empty if it can.
    const std::optional<TransportFault> unusable_;
    const std::chrono::duration<double> usualInterval_;
    const URLRequestCachePolicy usualPolicy_;
    const std::shared_ptr<CacheCore> cache_;
    CacheKeys cacheKeys_;
    StoreReads storeReads_;
    const std::shared_ptr<Inbox> inbox_;
    const DispatchQueue delegateQueue_;
    const std::shared_ptr<Undelivered> undelivered_;
    // Declared before the multi handle, which closes its sockets through it.
    Connections connections_;
    TlsSettings tls_;
    PendingConnects pendingConnects_;
    OwnAddresses ownAddresses_;
    CURLM* multi_;
    // Declared before the handles that use it.
    std::unique_ptr<CURLSH, SharedDeleter> shared_;
    EasyPool pool_;
    Admission admission_;
    IdleDeadlines deadlines_;
    const SessionCookies cookies_;
    LoadDeadlines loadDeadlines_;
    BodyPacer pacer_;
    /// When to check next if libcurl keeps a part of a resumed body.
    TimePoint nextKeptCheck_{};
    HeaderLinesMemo headerLines_;
    OriginMemo origins_;
    ConnectivityWait unreachable_;
    SuspectConnections suspects_;
    StreamResets resets_;
    Exchanges exchanges_;
    // Transfers with metrics or progress that were put in a queue in this round.
    std::vector<std::shared_ptr<Transfer>> queued_;
    std::vector<Ended> ended_;
    std::vector<Inbox::Message> messages_;
    std::vector<curl_waitfd> watched_;
    TimePoint now_{};
};

}  // namespace VanticRestKit::detail
