// What follows the end of an attempt: a response, a redirect, another attempt or an error.

#include <VanticRestKit/platform/http/curl/detail/CurlErrors.h>
#include <VanticRestKit/platform/http/curl/detail/IoLoop.h>
#include <VanticRestKit/platform/http/detail/HeaderName.h>
#include <VanticRestKit/platform/http/detail/Origin.h>
#include <VanticRestKit/platform/http/detail/RedirectRule.h>
#include <VanticRestKit/platform/http/HTTPURLResponse.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>

namespace VanticRestKit::detail {

void IoLoop::decodeHeld() {
    while (Attempt* const attempt = pacer_.next()) {
        attempt->moved();
        pacer_.decode(*attempt);
        if (attempt->fault) {
            fail(attempt->exchange, *attempt->fault);
        } else if (attempt->body.hasMore()) {
            pacer_.hold(*attempt);
        } else if (attempt->result) {
            handleResult(attempt->exchange, *attempt->result);
        } else if (attempt->isPaused) {
            resume(*attempt);
        }
    }
}

// libcurl passes on the kept data immediately, inside the call.
void IoLoop::resume(Attempt& attempt) {
    attempt.isPaused = false;
    attempt.wasResumed = true;
    attempt.exchange.resumed(now_);
    pacer_.noteResumed();
    const CURLcode code = curl_easy_pause(attempt.handle->get(), CURLPAUSE_CONT);
    if (code != CURLE_OK) handleResult(attempt.exchange, code);
}

// With HTTP/2, libcurl can keep the end of a body that was paused: it has read it from the connection together with
// other bodies, and looks at it only when the connection has more to read or a pause ends. So each body is paused and
// resumed once more when nothing arrives.
void IoLoop::fetchKept() {
    if (!pacer_.mayBeKept()) {
        nextKeptCheck_ = now_;
        return;
    }
    if (now_ < nextKeptCheck_) return;
    nextKeptCheck_ = now_ + BodyPacer::checkInterval;
    bool hasResumed = false;
    for (const auto& [transfer, exchange] : exchanges_) {
        const Attempt* const attempt = exchange->attempt.get();
        if (attempt == nullptr || !attempt->wasResumed || attempt->isPaused || attempt->isHeld) continue;
        hasResumed = true;
        curl_easy_pause(attempt->handle->get(), CURLPAUSE_RECV);
        curl_easy_pause(attempt->handle->get(), CURLPAUSE_CONT);
        // Before the next one, which may share the connection and take its turn.
        int running = 0;
        curl_multi_socket_action(multi_, CURL_SOCKET_TIMEOUT, 0, &running);
    }
    if (!hasResumed) pacer_.noteNoneResumed();
}

void IoLoop::handleResult(Exchange& exchange, CURLcode code) {
    Attempt& attempt = *exchange.attempt;
    attempt.isWhole = code == CURLE_OK;
    if (attempt.isWhole && attempt.body.hasMore() && !attempt.fault) {
        // The rest of the body waits for its turn.
        attempt.result = code;
        return;
    }
    if (attempt.fault) {
        fail(exchange, *attempt.fault);
    } else if (attempt.isRedirect) {
        // The headers name the target; how the body ended does not matter.
        followReceivedRedirect(exchange);
    } else if (exchange.wentUnanswered(code) && exchange.timesUnanswered++ < Attempt::maxResends) {
        release(exchange);
        enqueue(exchange);
    } else if (code != CURLE_OK && attempt.exhaustedRetries() && !exchange.wasGivenUp) {
        resend(exchange);
    } else if (code == CURLE_COULDNT_CONNECT && attempt.gaveUpAddress()) {
        connectWithFullTime(exchange);
    } else if (mayWaitForConnectivity(exchange, code)) {
        waitForConnectivity(exchange);
    } else if (code != CURLE_OK) {
        long verified = 0;
        curl_easy_getinfo(attempt.handle->get(), CURLINFO_SSL_VERIFYRESULT, &verified);
        const char* const text = attempt.handle->errorText();
        const CurlFailure failure{.code = code,
                                  .text = text,
                                  .verifyResult = verified,
                                  .isInsideHead = attempt.timesSent > 0 && !attempt.head.isComplete(),
                                  .socketError = attempt.socketError,
                                  .wentUnansweredBefore = exchange.timesUnanswered > 0,
                                  .limits = configuration_.limits};
        fail(exchange, faultFor(failure), underlyingError(code, text, verified));
    } else if (!attempt.head.isComplete()) {
        fail(exchange, {URLErrorCode::networkConnectionLost,
                        "The connection was closed before the headers were complete."});
    } else if (const auto fault = attempt.body.finish()) {
        fail(exchange, *fault);
    } else {
        succeed(exchange);
    }
}

// libcurl sends requests on a new connection before the server has announced how many streams it accepts; the server
// then refuses the others. With a hundred requests at once and a server that accepts few, this can repeat until libcurl
// gives some of them up. Only GETs get here: other requests are stopped before they are sent a second time.
void IoLoop::resend(Exchange& exchange) {
    exchange.wasGivenUp = true;
    admission_.narrow(exchange);
    release(exchange);
    enqueue(exchange);
}

// No address could be connected within the short limit for each. Nothing was sent, so the rest of the request's time
// can be spent on connecting.
void IoLoop::connectWithFullTime(Exchange& exchange) {
    exchange.usesFullConnectTime = true;
    releaseAttempt(exchange);
    send(exchange);
}

bool IoLoop::mayWaitForConnectivity(Exchange& exchange, CURLcode code) {
    const bool isUnreached = code == CURLE_COULDNT_CONNECT || code == CURLE_COULDNT_RESOLVE_HOST ||
                             code == CURLE_COULDNT_RESOLVE_PROXY;
    if (!isUnreached || !configuration_.waitsForConnectivity) return false;
    constexpr std::chrono::hours maxTimeout{24 * 7};
    const auto limit =
        std::min<std::chrono::duration<double>>(configuration_.connectivityTimeout, maxTimeout);
    if (!exchange.retriesUntil) {
        exchange.retriesUntil = now_ + std::chrono::duration_cast<Clock::duration>(limit);
    }
    return now_ < *exchange.retriesUntil;
}

void IoLoop::waitForConnectivity(Exchange& exchange) {
    release(exchange);
    const auto pause = ConnectivityWait::pauseBefore(++exchange.timesUnreached);
    unreachable_.add(exchange.transfer(), std::min(now_ + pause, *exchange.retriesUntil));
}

void IoLoop::retryUnreached() {
    while (const std::shared_ptr<Transfer> transfer = unreachable_.takeDue(now_)) {
        const auto found = exchanges_.find(transfer.get());
        if (found != exchanges_.end()) enqueue(*found->second);
    }
}

void IoLoop::followReceivedRedirect(Exchange& exchange) {
    HeaderCollector& head = exchange.attempt->head;
    const std::string location = *head.location();
    if (exchange.cacheHop) {
        HeaderFields fields = head.fields();
        // The first of several is used.
        findHeader(fields, "location")->second = location;
        exchange.cacheHop->finish(head.status(), std::move(fields), std::nullopt);
    }
    follow(exchange, head.status(), location);
}

void IoLoop::follow(Exchange& exchange, std::int64_t status, const std::string& location) {
    const URL& source = *exchange.request().url();
    const auto target = URL::make(location, source);
    if (!target) {
        fail(exchange, {URLErrorCode::badServerResponse, "The response redirects to an invalid URL."});
    } else if (redirectAction(configuration_.redirectPolicy, source, *target) == RedirectAction::refuse) {
        fail(exchange, {URLErrorCode::appTransportSecurityRequiresSecureConnection,
                        "The response redirects from https to http."});
    } else {
        if (exchange.metrics) exchange.metrics->answeredWithRedirect(status);
        goTo(exchange,
             redirected(exchange.request(), status, *target, configuration_.redirectPolicy.headersHeldBack));
    }
}

void IoLoop::goTo(Exchange& exchange, URLRequest next) {
    if (exchange.metrics) {
        if (exchange.attempt) exchange.metrics->read(*exchange.attempt);
        exchange.metrics->redirected(exchange.request());
    }
    const auto fault = whyUnusable(next);
    if (exchange.redirect(std::move(next)) > configuration_.limits.maxRedirects) {
        const std::string limit = std::to_string(configuration_.limits.maxRedirects);
        fail(exchange, {URLErrorCode::httpTooManyRedirects,
                        "The load was redirected more than " + limit + " times (maxRedirects)."});
    } else if (fault) {
        fail(exchange, *fault);
    } else {
        release(exchange);
        exchange.setInterval(idleInterval(exchange.request().timeoutInterval(), usualInterval_));
        beginHop(exchange);
    }
}

// The host is asked on its own queue; this thread does not wait for it.
void IoLoop::askHost(Exchange& exchange, HopAnswer redirect, const std::string& location) {
    const auto target = URL::make(location, *exchange.request().url());
    const URLSessionRedirectPolicy& policy = configuration_.redirectPolicy;
    URLRequest next = redirected(exchange.request(), redirect.answer.status, *target, policy.headersHeldBack);
    exchange.pendingRedirect = std::make_unique<Outcome>(outcomeOf(exchange, std::move(redirect)));
    release(exchange);
    delegateQueue_.async([willRedirect = policy.willRedirect, inbox = inbox_, transfer = exchange.transfer(),
                          response = exchange.pendingRedirect->response, next = std::move(next)]() mutable {
        const std::shared_ptr<const HTTPURLResponse> answer(response, response->asHTTP());
        inbox->post({.kind = Inbox::Message::Kind::redirect,
                     .transfer = std::move(transfer),
                     .next = willRedirect(answer, std::move(next))});
    });
}

void IoLoop::redirectDecided(const Transfer& transfer, std::optional<URLRequest> next) {
    const auto found = exchanges_.find(&transfer);
    // Cancelled meanwhile.
    if (found == exchanges_.end()) return;
    Exchange& exchange = *found->second;
    const std::unique_ptr<Outcome> answer = std::move(exchange.pendingRedirect);
    if (next) {
        goTo(exchange, *std::move(next));
    } else {
        end(exchange, std::move(*answer));
    }
}

HopAnswer IoLoop::answerOf(Exchange& exchange) {
    Attempt& attempt = *exchange.attempt;
    const std::int64_t status = attempt.head.status();
    if (!exchange.cacheHop) {
        return {
            .answer = {.status = status, .fields = attempt.head.takeFields(), .body = attempt.body.take()}};
    }
    if (exchange.cacheHop->mayKeep(attempt.head.fields())) attempt.body.fit();
    return exchange.cacheHop->finish(status, attempt.head.takeFields(), attempt.body.take());
}

void IoLoop::succeed(Exchange& exchange) { answer(exchange, answerOf(exchange)); }

void IoLoop::fail(Exchange& exchange, const TransportFault& fault, const std::optional<Error>& underlying) {
    if (exchange.cacheHop) {
        if (auto stored = exchange.cacheHop->storedFallback(fault.code)) {
            answer(exchange, *std::move(stored));
            return;
        }
    }
    Outcome outcome;
    outcome.error = makeURLError(fault, exchange.request().url(), underlying);
    if (exchange.attempt && exchange.attempt->hasHead) {
        HeaderCollector& head = exchange.attempt->head;
        outcome.response = std::make_shared<const HTTPURLResponse>(exchange.request().url(), head.status(),
                                                                   head.takeFields());
    }
    end(exchange, std::move(outcome));
}

}  // namespace VanticRestKit::detail
