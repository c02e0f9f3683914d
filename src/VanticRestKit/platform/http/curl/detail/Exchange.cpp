#include <VanticRestKit/platform/http/curl/detail/CurlErrors.h>
#include <VanticRestKit/platform/http/curl/detail/Exchange.h>
#include <VanticRestKit/platform/http/detail/RedirectRule.h>

#include <algorithm>
#include <chrono>

namespace VanticRestKit::detail {

namespace {

// The body of a redirect is read so that its connection can be reused. Reading a larger or slower body costs more than
// a new connection.
constexpr std::uint64_t maxDrained = 256 * 1024;
constexpr std::chrono::milliseconds maxDrainTime{200};

}  // namespace

Exchange::Exchange(std::shared_ptr<Transfer> transfer) : transfer_(std::move(transfer)) {
    if (transfer_->isObserved()) metrics = std::make_unique<ExchangeMetrics>(transfer_->startedAt());
}

Exchange::~Exchange() = default;

const URLRequest& Exchange::outgoing() const noexcept { return cacheHop ? cacheHop->outgoing() : request(); }

std::uint64_t Exchange::redirect(URLRequest next) {
    // The hop refers to the old request.
    cacheHop.reset();
    redirected_ = std::make_unique<URLRequest>(std::move(next));
    return ++redirects_;
}

bool Exchange::wentUnanswered(CURLcode code) const {
    return isEndOfHTTP2Connection(code, attempt->handle->errorText()) && attempt->head.status() == 0 &&
           request().httpMethod() == "GET";
}

void Exchange::reportWaiting(LoadProgress::State state, std::int64_t queueLength, TimePoint now) {
    if (progressState_ == state) return;
    progressState_ = state;
    if (metrics && state == LoadProgress::State::queued) metrics->queued(queueLength);
    if (metrics && state == LoadProgress::State::heldBack) metrics->heldBack(now);
    if (transfer_->reporter() != nullptr)
        transfer_->reporter()->changed(state, queueLength, transfer_->progress);
}

void Exchange::resumed(TimePoint now) {
    if (progressState_ == LoadProgress::State::loading) return;
    progressState_ = LoadProgress::State::loading;
    if (metrics) metrics->resumed(now);
    if (transfer_->reporter() != nullptr)
        transfer_->reporter()->changed(progressState_, 0, transfer_->progress);
}

// TCP first retransmits a lost packet after about one second: from then on, trying another address costs no more than
// waiting.
Clock::duration Exchange::connectLimit() const {
    constexpr Clock::duration shortLimit = std::chrono::seconds(1);
    return usesFullConnectTime ? Clock::duration::max() : std::min(shortLimit, interval() / 4);
}

bool Attempt::gaveUpAddress() const {
    return std::any_of(opened.begin(), opened.end(), [](const auto& each) { return each->wasGivenUp; });
}

void Attempt::moved() { exchange.moved(surroundings.now); }

void Attempt::received() {
    if (!isRedirect) moved();
    if (connection) connection->lastMoved = surroundings.now;
}

bool Attempt::drain(std::size_t size) {
    drained_ += size;
    return std::max(drained_, head.contentLength().value_or(0)) <= maxDrained;
}

// A target that cannot be parsed counts as one to follow, and makes the request fail later.
void Attempt::readRedirect() {
    if (!VanticRestKit::detail::isRedirect(head.status()) || !head.location()) return;
    const URL& source = *exchange.request().url();
    const auto target = URL::make(*head.location(), source);
    const RedirectAction action =
        target ? redirectAction(surroundings.redirectPolicy, source, *target) : RedirectAction::follow;
    mustAskAboutRedirect = action == RedirectAction::follow && surroundings.redirectPolicy.willRedirect;
    isRedirect = action != RedirectAction::deliver && !mustAskAboutRedirect;
}

void Attempt::readHead() {
    hasHead = true;
    if (exchange.cacheHop) exchange.cacheHop->noteHead();
    surroundings.admission.learn(exchange, head.isMultiplexed() ? Carriage::many : Carriage::one);
    surroundings.cookies.receive(head.setCookies(), exchange.request(), exchange.transfer()->request());
    readRedirect();
    if (isRedirect) {
        surroundings.deadlines.shorten(exchange, maxDrainTime);
        return;
    }
    ProgressCounts& progress = exchange.transfer()->progress;
    progress.received = 0;
    progress.expectedToReceive = head.contentLength() ? static_cast<std::int64_t>(*head.contentLength()) : -1;
    surroundings.loadDeadlines.startBody(*this, surroundings.now);
    Decoding decoding = decodingFor(head.value("content-encoding").value_or(""));
    // A host that sets its own Accept-Encoding decodes the body itself.
    hasUnknownCoding = !decoding.isKnown && !exchange.request().value("accept-encoding");
    body.expect(head.contentLength(), std::move(decoding));
}

}  // namespace VanticRestKit::detail
