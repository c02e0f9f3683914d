#include <VanticRestKit/platform/http/cache/detail/CacheAccess.h>
#include <VanticRestKit/platform/http/curl/detail/EasySetup.h>
#include <VanticRestKit/platform/http/curl/detail/IoLoop.h>
#include <VanticRestKit/platform/http/curl/detail/SessionOptions.h>
#include <VanticRestKit/platform/http/curl/detail/WakePair.h>
#include <VanticRestKit/platform/http/detail/Origin.h>
#include <VanticRestKit/platform/http/detail/ProxyRule.h>

#include <algorithm>
#include <chrono>
#include <limits>
#include <utility>

namespace VanticRestKit::detail {

namespace {

// How often to check for messages while the system has no descriptor through which they could end a wait.
constexpr std::chrono::milliseconds blindInterval{20};

std::size_t connectionsPerHost(const URLSessionConfiguration& configuration) {
    constexpr std::int64_t maxConnections = 1000;
    return static_cast<std::size_t>(
        std::clamp<std::int64_t>(configuration.httpMaximumConnectionsPerHost, 1, maxConnections));
}

std::vector<std::string> addressesOf(const URLSessionConfiguration& configuration,
                                     const TransportSeams& seams) {
    std::vector<std::string> addresses = resolvedAddresses(configuration);
    addresses.insert(addresses.end(), seams.addresses.begin(), seams.addresses.end());
    return addresses;
}

CURLM* makeMulti(std::size_t connectionsPerHost, const URLSessionLimits& limits) {
    CURLM* const multi = curl_multi_init();
    if (multi == nullptr) return nullptr;
    closeWakePairInChildren(multi);
    curl_multi_setopt(multi, CURLMOPT_PIPELINING, CURLPIPE_MULTIPLEX);
    curl_multi_setopt(multi, CURLMOPT_MAX_HOST_CONNECTIONS, static_cast<long>(connectionsPerHost));
    // libcurl would replace 0 with its own default.
    constexpr std::uint64_t maxIdle = std::numeric_limits<int>::max();
    const auto idle = std::clamp<std::uint64_t>(limits.maxIdleConnections, 1, maxIdle);
    curl_multi_setopt(multi, CURLMOPT_MAXCONNECTS, static_cast<long>(idle));
    return multi;
}

// Without locks, since only one thread uses it.
CURLSH* makeShared() {
    CURLSH* const shared = curl_share_init();
    curl_share_setopt(shared, CURLSHOPT_SHARE, CURL_LOCK_DATA_SSL_SESSION);
    return shared;
}

}  // namespace

IoLoop::IoLoop(const URLSessionConfiguration& configuration, const TransportSeams& seams,
               std::shared_ptr<Inbox> inbox, DispatchQueue delegateQueue)
    : configuration_(configuration),
      unusable_(configuration.proxy ? whyUnusable(*configuration.proxy) : std::nullopt),
      usualInterval_(configuration.timeoutIntervalForRequest),
      usualPolicy_(configuration.requestCachePolicy),
      cache_(CacheAccess::core(configuration.urlCache)),
      inbox_(std::move(inbox)),
      delegateQueue_(std::move(delegateQueue)),
      undelivered_(std::make_shared<Undelivered>(configuration.limits.maxUndeliveredBytes, inbox_)),
      tls_(configuration),
      multi_(makeMulti(connectionsPerHost(configuration), configuration_.limits)),
      shared_(makeShared()),
      pool_({.configuration = &configuration,
             .connections = &connections_,
             .tls = &tls_,
             .shared = shared_.get(),
             .addresses = addressesOf(configuration, seams)}),
      admission_(connectionsPerHost(configuration), Admission::defaultMaxAdmitted,
                 static_cast<std::size_t>(std::min<std::uint64_t>(configuration.limits.maxNameLookups,
                                                                  std::numeric_limits<std::size_t>::max()))),
      cookies_(configuration),
      loadDeadlines_(configuration),
      suspects_(connections_, admission_,
                [this](const Connection& connection, const std::function<void(Exchange&)>& visit) {
                    forEachOn(connection, visit);
                }),
      resets_(connections_) {}

IoLoop::~IoLoop() { curl_multi_cleanup(multi_); }

void IoLoop::run(ExitGate& gate) {
    while (true) {
        gate.pass();
        now_ = Clock::now();
        const bool moreMayFollow = readInbox();
        if (!moreMayFollow && exchanges_.empty()) break;
        pacer_.beginRound(undelivered_->update());
        admit();
        decodeHeld();
        int running = 0;
        curl_multi_perform(multi_, &running);
        fetchKept();
        suspects_.review();
        collectFinished();
        timeOut();
        retryUnreached();
        resets_.shutDownQuiet(now_);
        admit();
        reportQueued();
        deliver();
        wait();
    }
    deliver();
}

bool IoLoop::readInbox() {
    const bool moreMayFollow = inbox_->take(messages_);
    for (Inbox::Message& message : messages_) {
        switch (message.kind) {
            case Inbox::Message::Kind::start: begin(std::move(message.transfer)); break;
            case Inbox::Message::Kind::cancel: cancel(*message.transfer); break;
            case Inbox::Message::Kind::cancelAll: cancelAll(); break;
            case Inbox::Message::Kind::closeIdle: connections_.shutDownIdle(); break;
            case Inbox::Message::Kind::redirect:
                redirectDecided(*message.transfer, std::move(message.next));
                break;
            case Inbox::Message::Kind::resume: resume(std::move(message)); break;
        }
    }
    messages_.clear();
    return moreMayFollow;
}

void IoLoop::begin(std::shared_ptr<Transfer> transfer) {
    const Transfer* const key = transfer.get();
    auto made = std::make_unique<Exchange>(std::move(transfer));
    Exchange& exchange = *made;
    exchanges_.emplace(key, std::move(made));
    loadDeadlines_.start(exchange, now_);
    exchange.setInterval(idleInterval(exchange.request().timeoutInterval(), usualInterval_));
    if (exchange.transfer()->isCancelled()) {
        fail(exchange, {URLErrorCode::cancelled});
        return;
    }
    const URLRequest& request = exchange.request();
    const bool isUsable = request.httpMethod() == "GET" && request.url() && origins_.knows(*request.url()) &&
                          !request.malformedHeaderField();
    const auto fault = isUsable ? std::nullopt : whyUnusable(request);
    if (unusable_) {
        fail(exchange, *unusable_);
    } else if (fault) {
        fail(exchange, *fault);
    } else {
        beginHop(exchange);
    }
}

void IoLoop::cancel(const Transfer& transfer) {
    const auto found = exchanges_.find(&transfer);
    if (found == exchanges_.end()) return;
    Exchange& exchange = *found->second;
    release(exchange);
    fail(exchange, {URLErrorCode::cancelled});
}

void IoLoop::cancelAll() {
    while (!exchanges_.empty()) cancel(*exchanges_.begin()->first);
}

const std::string& IoLoop::queueKeyOf(const Exchange& exchange) {
    const URL& url = *exchange.request().url();
    const auto& proxy = configuration_.proxy;
    // Plain HTTP requests through the proxy share its connections, whatever their origin.
    const bool sharesProxy = proxy && !isSecure(url) && goesThrough(*proxy, url);
    return sharesProxy ? proxy->url : origins_.of(url);
}

void IoLoop::enqueue(Exchange& exchange) {
    // A load that was queued before, and is redirected or sent again, is not rejected.
    if (!std::exchange(exchange.wasQueued, true) && isQueueFull(exchange)) {
        const std::string limit = std::to_string(configuration_.limits.maxQueuedLoadsPerOrigin);
        fail(exchange, {URLErrorCode::queuedLoadsExceedMaximum,
                        limit + " loads wait for a connection to this origin (maxQueuedLoadsPerOrigin)."});
        return;
    }
    admission_.enqueue(exchange, queueKeyOf(exchange));
    if (exchange.metrics || exchange.transfer()->reporter() != nullptr)
        queued_.push_back(exchange.transfer());
}

bool IoLoop::isQueueFull(const Exchange& exchange) {
    const std::uint64_t limit = std::max<std::uint64_t>(configuration_.limits.maxQueuedLoadsPerOrigin, 1);
    if (limit == URLSessionLimits::unlimited || admission_.waitingFor(queueKeyOf(exchange)) < limit)
        return false;
    // There may be free connections for loads that arrived in this round.
    admit();
    return admission_.waitingFor(queueKeyOf(exchange)) >= limit;
}

void IoLoop::admit() {
    if (undelivered_->isFull()) return;
    while (Applicant* const applicant = admission_.admitNext(now_)) {
        closeLostAddresses();
        attempt(static_cast<Exchange&>(*applicant));
    }
}

void IoLoop::attempt(Exchange& exchange) {
    exchange.usesFullConnectTime = false;
    exchange.resumed(now_);
    deadlines_.watch(exchange, now_);
    send(exchange);
}

void IoLoop::send(Exchange& exchange) {
    if (exchange.metrics) exchange.metrics->sent();
    exchange.attempt = std::make_unique<Attempt>(
        exchange, AttemptSurroundings{.now = now_,
                                      .connections = connections_,
                                      .pendingConnects = pendingConnects_,
                                      .ownAddresses = ownAddresses_,
                                      .redirectPolicy = configuration_.redirectPolicy,
                                      .admission = admission_,
                                      .deadlines = deadlines_,
                                      .cookies = cookies_,
                                      .loadDeadlines = loadDeadlines_,
                                      .pacer = pacer_,
                                      .limits = configuration_.limits});
    exchange.attempt->handle = pool_.take(isSecure(*exchange.request().url()));
    const std::string cookies = cookies_.headerFor(exchange.request());
    if (exchange.cacheHop) exchange.cacheHop->noteSent(cookies);
    exchange.attempt->headerLines = headerLines_.of(exchange.outgoing(), cookies);
    if (!prepareEasy(*exchange.attempt, configuration_, admission_.hasSetAside(exchange)) ||
        curl_multi_add_handle(multi_, exchange.attempt->handle->get()) != CURLM_OK) {
        release(exchange);
        fail(exchange, {URLErrorCode::badURL, "libcurl does not accept the request."});
    }
}

void IoLoop::collectFinished() {
    int left = 0;
    while (const CURLMsg* const message = curl_multi_info_read(multi_, &left)) {
        if (message->msg != CURLMSG_DONE) continue;
        const CURLcode code = message->data.result;
        char* user = nullptr;
        curl_easy_getinfo(message->easy_handle, CURLINFO_PRIVATE, &user);
        handleResult(reinterpret_cast<EasyHandle*>(user)->attempt->exchange, code);
    }
}

void IoLoop::timeOut() {
    timeOutIdle();
    while (const auto overdue = loadDeadlines_.takeOverdue(now_)) fail(overdue->exchange, overdue->fault);
    while (const auto overdue = storeReads_.takeOverdue(now_)) resume(*overdue, {});
}

void IoLoop::timeOutIdle() {
    while (Idler* const idler = deadlines_.takeExpired(now_)) {
        Exchange& exchange = static_cast<Exchange&>(*idler);
        if (exchange.attempt->isRedirect) {
            // The time for reading the redirect's body is up.
            followReceivedRedirect(exchange);
        } else if (movedUnseen(exchange)) {
            deadlines_.resume(exchange);
        } else {
            suspects_.judge(exchange, now_);
            fail(exchange, {URLErrorCode::timedOut});
        }
    }
}

// Accounts for activity that no callback reports. Returns whether the deadline has moved past now.
bool IoLoop::movedUnseen(Exchange& exchange) {
    const Attempt& attempt = *exchange.attempt;
    // It waits for this thread, not for its server.
    if (attempt.isHeld || isBlockedByHeld(attempt)) exchange.moved(now_);
    const Carriage carriage = admission_.carriage(exchange);
    if (carriage == Carriage::many && attempt.waitsForConnection()) {
        // It waits in libcurl for a free stream while the connections are active, which does not count as idle.
        const std::string origin = originOf(*exchange.request().url());
        for (const auto& [transfer, other] : exchanges_) {
            const bool goes = other->attempt && other->attempt->timesSent > 0;
            if (goes && originOf(*other->request().url()) == origin) exchange.moved(other->lastMoved());
        }
    }
    // Data on a connection counts for this request only while no other request can use the connection.
    const bool isAlone =
        carriage == Carriage::one || attempt.timesSent == 0 || !isSecure(*exchange.request().url());
    if (carriage != Carriage::many && isAlone) {
        // libcurl reports only complete header lines, and nothing during the TLS handshake.
        const auto connection =
            attempt.connection ? attempt.connection : connections_.find(attempt.openedSocket);
        const auto last = connection ? connections_.lastReceived(*connection, now_) : std::nullopt;
        if (last) exchange.moved(*last);
    }
    return exchange.deadline() > now_;
}

// libcurl reads nothing from a connection while one of its streams is paused.
bool IoLoop::isBlockedByHeld(const Attempt& attempt) {
    if (!undelivered_->isFull() || !attempt.connection) return false;
    bool isBlocked = false;
    forEachOn(*attempt.connection, [&isBlocked](Exchange& other) { isBlocked |= other.attempt->isHeld; });
    return isBlocked;
}

void IoLoop::release(Exchange& exchange) {
    deadlines_.forget(exchange);
    forgetDeadAddress(exchange);
    admission_.leave(exchange);
    if (exchange.attempt) releaseAttempt(exchange);
}

void IoLoop::releaseAttempt(Exchange& exchange) {
    if (exchange.metrics) exchange.metrics->read(*exchange.attempt);
    const std::unique_ptr<Attempt> attempt = std::move(exchange.attempt);
    pacer_.forget(*attempt);
    loadDeadlines_.endBody(exchange);
    curl_multi_remove_handle(multi_, attempt->handle->get());
    // The handle may keep a piece of the body, and its count of resends would continue for the next request; do not
    // reuse it then.
    attempt->handle->isUsedUp |= attempt->isPaused || attempt->timesSent > 1;
    pool_.give(std::move(attempt->handle));
    if (!attempt->connection) return;
    --attempt->connection->streams;
    suspects_.left(*attempt->connection);
    if (attempt->isWhole) return;
    Exchange* other = nullptr;
    if (attempt->connection->streams > 0) {
        forEachOn(*attempt->connection, [&other](Exchange& found) { other = &found; });
    }
    resets_.left(attempt->connection, other, now_);
}

void IoLoop::forEachOn(const Connection& connection, const std::function<void(Exchange&)>& visit) {
    for (const auto& [transfer, exchange] : exchanges_) {
        if (exchange->attempt && exchange->attempt->connection.get() == &connection) visit(*exchange);
    }
}

void IoLoop::end(Exchange& exchange, Outcome outcome) {
    const std::uint64_t bytes =
        (outcome.data ? outcome.data->size() : 0) + (exchange.attempt ? exchange.attempt->head.size() : 0);
    release(exchange);
    if (exchange.metrics) exchange.metrics->ended(exchange.request(), outcome);
    loadDeadlines_.end(exchange);
    std::shared_ptr<Transfer> transfer = exchange.transfer();
    exchanges_.erase(transfer.get());
    ended_.push_back({std::move(transfer), std::move(outcome), bytes});
}

// Called once per round: this wakes the delegate thread only once, and not before the round is over.
void IoLoop::deliver() {
    if (ended_.empty()) return;
    for (const Ended& each : ended_) undelivered_->add(each.bytes);
    delegateQueue_.async([ended = std::exchange(ended_, {}), undelivered = undelivered_]() mutable {
        for (Ended& each : ended) {
            // Destroyed before the next one is delivered, as if each had been posted separately.
            Ended one = std::move(each);
            undelivered->remove(one.bytes);
            one.transfer->complete(std::move(one.outcome));
        }
    });
}

std::chrono::milliseconds IoLoop::maxWait() const {
    std::chrono::milliseconds limit = pacer_.maxWait();
    for (const auto next : {deadlines_.next(), loadDeadlines_.next(), resets_.next(), pendingConnects_.next(),
                            unreachable_.next(), storeReads_.next()}) {
        if (!next) continue;
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(*next - Clock::now());
        limit = std::clamp(left, std::chrono::milliseconds(0), limit);
    }
    return limit;
}

void IoLoop::wait() {
    if (exchanges_.empty() && !resets_.next()) {
        inbox_->waitForMessages();
        return;
    }
    if (pacer_.maxWait() == std::chrono::milliseconds::zero()) return;
    // libcurl must see these changes first.
    if (pendingConnects_.update(now_)) return;
    watched_.clear();
    pendingConnects_.addTo(watched_);
    std::chrono::milliseconds limit = maxWait();
    switch (inbox_->beginWait()) {
        case Inbox::Wait::notNow: return;
        case Inbox::Wait::watching:
            watched_.push_back({.fd = inbox_->wakeDescriptor(), .events = CURL_WAIT_POLLIN, .revents = 0});
            break;
        case Inbox::Wait::blind: limit = std::min(limit, blindInterval); break;
    }
    curl_multi_poll(multi_, watched_.data(), static_cast<unsigned>(watched_.size()),
                    static_cast<int>(limit.count()), nullptr);
    inbox_->endWait();
}

}  // namespace VanticRestKit::detail
