// How an attempt ended, and what follows from it: an answer, a redirect, another attempt or an error.

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
            settle(attempt->exchange, *attempt->result);
        } else if (attempt->isPaused) {
            resume(*attempt);
        }
    }
}

// libcurl passes on at once what it has kept.
void IoLoop::resume(Attempt& attempt) {
    attempt.isPaused = false;
    attempt.exchange.goesOn(now_);
    const CURLcode code = curl_easy_pause(attempt.handle->get(), CURLPAUSE_CONT);
    if (code != CURLE_OK) settle(attempt.exchange, code);
}

void IoLoop::settle(Exchange& exchange, CURLcode code) {
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
        // Where to go was said in the headers; how the body ended does not matter.
        followAnswer(exchange);
    } else if (exchange.wasLeftOut(code) && exchange.leftOut++ < Attempt::mostResendings) {
        release(exchange);
        enqueue(exchange);
    } else if (code != CURLE_OK && attempt.wasRefusedToTheLast() && !exchange.wasGivenUp) {
        goAgain(exchange);
    } else if (code == CURLE_COULDNT_CONNECT && attempt.gaveUpAnAddress()) {
        connectPatiently(exchange);
    } else if (mayWaitForConnectivity(exchange, code)) {
        waitForConnectivity(exchange);
    } else if (code != CURLE_OK) {
        long verified = 0;
        curl_easy_getinfo(attempt.handle->get(), CURLINFO_SSL_VERIFYRESULT, &verified);
        const char* const text = attempt.handle->errorText();
        const CurlFailure failure{.code = code,
                                  .text = text,
                                  .verifyResult = verified,
                                  .isInsideHead = attempt.sendings > 0 && !attempt.head.isComplete(),
                                  .socketError = attempt.socketError,
                                  .wasLeftOutBefore = exchange.leftOut > 0,
                                  .limits = configuration_.limits};
        fail(exchange, faultFor(failure), underlyingError(code, text, verified));
    } else if (!attempt.head.isComplete()) {
        fail(exchange,
             {URLErrorCode::networkConnectionLost, "The connection was closed inside the headers."});
    } else if (const auto fault = attempt.body.finish()) {
        fail(exchange, *fault);
    } else {
        succeed(exchange);
    }
}

// A connection that is new takes requests before the server has said how many it takes, and refuses the others. With
// a hundred at once and a server that takes few, that can go on until libcurl gives some of them up. Only a GET comes
// here: what is no GET is stopped before it is sent a second time.
void IoLoop::goAgain(Exchange& exchange) {
    exchange.wasGivenUp = true;
    admission_.narrow(exchange);
    release(exchange);
    enqueue(exchange);
}

// No address answered in the time that each of several may take. Nothing was sent, and what is left of the request's
// own time can be spent on waiting.
void IoLoop::connectPatiently(Exchange& exchange) {
    exchange.isPatient = true;
    takeBack(exchange);
    send(exchange);
}

bool IoLoop::mayWaitForConnectivity(Exchange& exchange, CURLcode code) {
    const bool isUnreached = code == CURLE_COULDNT_CONNECT || code == CURLE_COULDNT_RESOLVE_HOST ||
                             code == CURLE_COULDNT_RESOLVE_PROXY;
    if (!isUnreached || !configuration_.waitsForConnectivity) return false;
    constexpr std::chrono::hours longest{24 * 7};
    const auto limit = std::min<std::chrono::duration<double>>(configuration_.connectivityTimeout, longest);
    if (!exchange.triesUntil) {
        exchange.triesUntil = now_ + std::chrono::duration_cast<Clock::duration>(limit);
    }
    return now_ < *exchange.triesUntil;
}

void IoLoop::waitForConnectivity(Exchange& exchange) {
    release(exchange);
    const auto pause = ConnectivityWait::pauseBefore(++exchange.unreached);
    unreached_.add(exchange.transfer(), std::min(now_ + pause, *exchange.triesUntil));
}

void IoLoop::tryAgain() {
    while (const std::shared_ptr<Transfer> transfer = unreached_.takeDue(now_)) {
        const auto found = exchanges_.find(transfer.get());
        if (found != exchanges_.end()) enqueue(*found->second);
    }
}

void IoLoop::followAnswer(Exchange& exchange) {
    HeaderCollector& head = exchange.attempt->head;
    const std::string location = *head.location();
    if (exchange.cacheHop) {
        HeaderFields fields = head.fields();
        // Of several the first one counts.
        findHeader(fields, "location")->second = location;
        exchange.cacheHop->finish(head.status(), std::move(fields), std::nullopt);
    }
    follow(exchange, head.status(), location);
}

void IoLoop::follow(Exchange& exchange, std::int64_t status, const std::string& location) {
    const URL& source = *exchange.request().url();
    const auto target = URL::make(location, source);
    if (!target) {
        fail(exchange, {URLErrorCode::badServerResponse, "The answer redirects to what is no URL."});
    } else if (redirectAction(configuration_.redirectPolicy, source, *target) == RedirectAction::refuse) {
        fail(exchange, {URLErrorCode::appTransportSecurityRequiresSecureConnection,
                        "The answer redirects from https to http."});
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
        const std::string most = std::to_string(configuration_.limits.maxRedirects);
        fail(exchange, {URLErrorCode::httpTooManyRedirects,
                        "The load was redirected more than " + most + " times (maxRedirects)."});
    } else if (fault) {
        fail(exchange, *fault);
    } else {
        release(exchange);
        exchange.setInterval(idleInterval(exchange.request().timeoutInterval(), usualInterval_));
        beginHop(exchange);
    }
}

// The host is asked on its own queue; nothing of this thread waits for it.
void IoLoop::ask(Exchange& exchange, HopAnswer redirect, const std::string& location) {
    const auto target = URL::make(location, *exchange.request().url());
    const URLSessionRedirectPolicy& policy = configuration_.redirectPolicy;
    URLRequest next = redirected(exchange.request(), redirect.answer.status, *target, policy.headersHeldBack);
    exchange.redirectAnswer = std::make_unique<Outcome>(outcomeOf(exchange, std::move(redirect)));
    release(exchange);
    delegateQueue_.async([willRedirect = policy.willRedirect, inbox = inbox_, transfer = exchange.transfer(),
                          response = exchange.redirectAnswer->response, next = std::move(next)]() mutable {
        const std::shared_ptr<const HTTPURLResponse> answer(response, response->asHTTP());
        inbox->post({.kind = Inbox::Message::Kind::redirect,
                     .transfer = std::move(transfer),
                     .next = willRedirect(answer, std::move(next))});
    });
}

void IoLoop::decided(const Transfer& transfer, std::optional<URLRequest> next) {
    const auto found = exchanges_.find(&transfer);
    // Cancelled meanwhile.
    if (found == exchanges_.end()) return;
    Exchange& exchange = *found->second;
    const std::unique_ptr<Outcome> answer = std::move(exchange.redirectAnswer);
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
        if (auto stored = exchange.cacheHop->rescue(fault.code)) {
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
