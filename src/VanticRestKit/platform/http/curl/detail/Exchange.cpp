#include <VanticRestKit/platform/http/curl/detail/CurlErrors.h>
#include <VanticRestKit/platform/http/curl/detail/Exchange.h>
#include <VanticRestKit/platform/http/detail/RedirectRule.h>

#include <algorithm>
#include <chrono>

namespace VanticRestKit::detail {

namespace {

// The body of a redirect is read so that its connection can be used again. A body that is larger, or takes longer, costs
// more than a new connection.
constexpr std::uint64_t maxDrained = 256 * 1024;
constexpr std::chrono::milliseconds maxDrainTime{200};

}  // namespace

Exchange::Exchange(std::shared_ptr<Transfer> transfer) : transfer_(std::move(transfer)) {
    if (transfer_->isObserved()) metrics = std::make_unique<ExchangeMetrics>(transfer_->startedAt());
}

Exchange::~Exchange() = default;

const URLRequest& Exchange::outgoing() const noexcept { return cacheHop ? cacheHop->outgoing() : request(); }

std::uint64_t Exchange::redirect(URLRequest next) {
    // It refers to the request.
    cacheHop.reset();
    redirected_ = std::make_unique<URLRequest>(std::move(next));
    return ++redirects_;
}

bool Exchange::wasLeftOut(CURLcode code) const {
    return tellsOfEndOfHTTP2(code, attempt->handle->errorText()) && attempt->head.status() == 0 &&
           request().httpMethod() == "GET";
}

void Exchange::waits(LoadProgress::State state, std::int64_t queueLength, TimePoint now) {
    if (progressState_ == state) return;
    progressState_ = state;
    if (metrics && state == LoadProgress::State::queued) metrics->waitsAmong(queueLength);
    if (metrics && state == LoadProgress::State::heldBack) metrics->heldBack(now);
    if (transfer_->teller() != nullptr) transfer_->teller()->changed(state, queueLength, transfer_->progress);
}

void Exchange::goesOn(TimePoint now) {
    if (progressState_ == LoadProgress::State::loading) return;
    progressState_ = LoadProgress::State::loading;
    if (metrics) metrics->goesOn(now);
    if (transfer_->teller() != nullptr) transfer_->teller()->changed(progressState_, 0, transfer_->progress);
}

// As long as the first repetition of a lost packet takes to be sent: a new attempt costs no more.
Clock::duration Exchange::connectPatience() const {
    constexpr Clock::duration most = std::chrono::seconds(1);
    return isPatient ? Clock::duration::max() : std::min(most, interval() / 4);
}

bool Attempt::gaveUpAnAddress() const {
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

// A target that cannot be read counts as one that would be followed, and fails the request later.
void Attempt::readRedirect() {
    if (!VanticRestKit::detail::isRedirect(head.status()) || !head.location()) return;
    const URL& source = *exchange.request().url();
    const auto target = URL::make(*head.location(), source);
    const RedirectAction action =
        target ? redirectAction(surroundings.redirectPolicy, source, *target) : RedirectAction::follow;
    isRedirectToAskAbout = action == RedirectAction::follow && surroundings.redirectPolicy.willRedirect;
    isRedirect = action != RedirectAction::deliver && !isRedirectToAskAbout;
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
    // Whoever names codings of their own can undo them.
    hasUnknownCoding = !decoding.isKnown && !exchange.request().value("accept-encoding");
    body.expect(head.contentLength(), std::move(decoding));
}

}  // namespace VanticRestKit::detail
