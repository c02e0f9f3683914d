#include "Errors.h"

#include <algorithm>

namespace living_room {

namespace {

constexpr double soonestRetry = 3;
constexpr double latestRetry = 60;

const char* sentenceOfStatus(int status) {
    switch (status) {
        case 403: return "This form came from another site.";
        case 404: return "There is nothing at this address.";
        case 405: return "This address cannot be asked in this way.";
        case 421: return "This is not the name of this host.";
        case 431: return "This request is too long.";
        default: return "This request cannot be understood.";
    }
}

}  // namespace

Value failureOf(const Error& error) {
    const ErrorAdvice advice = adviceOn(error);
    const double asked = advice.retryAfter ? advice.retryAfter->count() : 0;
    const double retry = advice.mayTryAgain ? std::clamp(asked, soonestRetry, latestRetry) : 0;
    return Value::Object{{"sentence", advice.sentence},
                         {"category", nameOf(advice.category)},
                         {"offersSignIn", advice.category == ErrorCategory::unauthorized},
                         {"retrySeconds", static_cast<int>(retry)}};
}

Answer failedPart(const Error& error) { return partAnswer("failed", failureOf(error), "failed"); }

Answer problemPage(int status) {
    return pageAnswer("problem", Value::Object{{"sentence", sentenceOfStatus(status)}}, status);
}

}  // namespace living_room
