#include <VanticRestKit/platform/http/curl/detail/Exchange.h>
#include <VanticRestKit/platform/http/curl/detail/LoadDeadlines.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <string>
#include <utility>

namespace VanticRestKit::detail {

namespace {

using Seconds = std::chrono::duration<double>;

std::string secondsText(Clock::duration interval) {
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%g seconds", Seconds(interval).count());
    return text.data();
}

}  // namespace

LoadDeadlines::LoadDeadlines(const URLSessionConfiguration& configuration)
    : wholeInterval_(idleInterval(configuration.timeoutIntervalForResource,
                                  URLSessionConfiguration::default_().timeoutIntervalForResource)),
      bodyInterval_(
          idleInterval(configuration.limits.bodySpeedInterval, URLSessionLimits().bodySpeedInterval)),
      minBytesPerSecond_(configuration.limits.minBodyBytesPerSecond) {}

void LoadDeadlines::start(Exchange& exchange, TimePoint now) {
    exchange.wholeTimer.setInterval(wholeInterval_);
    whole_.watch(exchange.wholeTimer, now);
}

void LoadDeadlines::startBody(const Attempt& attempt, TimePoint now) {
    if (minBytesPerSecond_ == 0) return;
    LoadTimer& timer = attempt.exchange.bodyTimer;
    timer.received = attempt.body.received();
    timer.setInterval(bodyInterval_);
    body_.forget(timer);
    body_.watch(timer, now);
}

void LoadDeadlines::endBody(Exchange& exchange) { body_.forget(exchange.bodyTimer); }

void LoadDeadlines::end(Exchange& exchange) {
    endBody(exchange);
    whole_.forget(exchange.wholeTimer);
}

std::optional<LoadDeadlines::Overdue> LoadDeadlines::takeOverdue(TimePoint now) {
    if (Idler* const idler = whole_.takeExpired(now)) {
        return Overdue{static_cast<LoadTimer*>(idler)->exchange,
                       {URLErrorCode::timedOut, "The load took longer than " + secondsText(wholeInterval_) +
                                                    " (timeoutIntervalForResource)."}};
    }
    while (Idler* const idler = body_.takeExpired(now)) {
        if (auto overdue = judgeBody(static_cast<LoadTimer&>(*idler), now)) return overdue;
    }
    return std::nullopt;
}

std::optional<LoadDeadlines::Overdue> LoadDeadlines::judgeBody(LoadTimer& timer, TimePoint now) {
    const Attempt& attempt = *timer.exchange.attempt;
    const auto received = static_cast<double>(attempt.body.received() - timer.received);
    const double wanted = static_cast<double>(minBytesPerSecond_) * Seconds(bodyInterval_).count();
    // A body that waits for this thread is not slow.
    if (received >= wanted || attempt.isHeld || attempt.isPaused) {
        startBody(attempt, now);
        return std::nullopt;
    }
    return Overdue{timer.exchange,
                   {URLErrorCode::timedOut,
                    "For " + secondsText(bodyInterval_) + " the body came at less than " +
                        std::to_string(minBytesPerSecond_) + " bytes per second (minBodyBytesPerSecond)."}};
}

std::optional<TimePoint> LoadDeadlines::next() const {
    const auto whole = whole_.next();
    const auto body = body_.next();
    return whole && body ? std::min(*whole, *body) : whole ? whole : body;
}

}  // namespace VanticRestKit::detail
