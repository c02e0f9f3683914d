#include "Errors.h"

#include <algorithm>

namespace living_room {
namespace {

constexpr double minRetrySeconds = 3;
constexpr double maxRetrySeconds = 60;

const char* sentenceOfStatus(int status) {
    switch (status) {
        case 403: return "This form was sent by another site.";
        case 404: return "There is nothing at this address.";
        case 405: return "This address does not accept this kind of request.";
        case 421: return "This host has another name.";
        case 431: return "This request is too large.";
        default: return "This request cannot be understood.";
    }
}

}  // namespace

Value failureOf(const Error& error) {
    const ErrorAdvice advice = adviceOn(error);
    const double asked = advice.retryAfter ? advice.retryAfter->count() : 0;
    const double retry = advice.mayTryAgain ? std::clamp(asked, minRetrySeconds, maxRetrySeconds) : 0;
    return {{"sentence", advice.sentence},
            {"category", nameOf(advice.category)},
            {"offersSignIn", advice.category == ErrorCategory::unauthorized},
            {"retrySeconds", static_cast<int>(retry)}};
}

Answer failedPart(const Error& error) { return partAnswer("failed", failureOf(error), "failed"); }

Answer problemPage(int status) {
    return pageAnswer("problem", {{"sentence", sentenceOfStatus(status)}}, status);
}

}  // namespace living_room
