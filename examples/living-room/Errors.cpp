#include "Errors.h"

#include <VanticRestKit/Core/ErrorAdvice.h>

#include <algorithm>

namespace living_room {

using namespace VanticRestKit;

namespace {

constexpr int soonestRetry = 3;
constexpr int latestRetry = 60;

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

ViewFailure failureOf(const Error& error) {
    const ErrorAdvice advice = adviceOn(error);
    ViewFailure failure{.sentence = advice.sentence,
                        .category = nameOf(advice.category),
                        .offersSignIn = advice.category == ErrorCategory::unauthorized};
    if (advice.mayTryAgain) {
        const double asked = advice.retryAfter ? advice.retryAfter->count() : 0;
        failure.retrySeconds = static_cast<int>(std::clamp(asked, double{soonestRetry}, double{latestRetry}));
    }
    return failure;
}

Answer blockAnswer(Html block, const char* state) {
    Answer answer = pageAnswer(std::move(block));
    answer.headers.emplace_back("X-State", state);
    return answer;
}

Answer failedBlock(const Error& error) {
    const ViewFailure failure = failureOf(error);
    const Html signIn = html(R"(<a class="button" href="/me">Sign in</a>)");
    return blockAnswer(
        html(R"(<div class="failed" role="status" data-category="{}" data-retry="{}"><p>{}</p>)"
             R"(<button type="button" class="button" data-action="try-again">Try again</button>{}</div>)",
             failure.category, failure.retrySeconds, failure.sentence, when(failure.offersSignIn, signIn)),
        "failed");
}

Answer problemPage(int status) {
    return pageAnswer(
        html(
            R"(<!doctype html><html lang="en"><head><meta charset="utf-8"><title>{} – Living room</title>)"
            R"(<meta name="viewport" content="width=device-width"><link rel="stylesheet" href="/living-room.css">)"
            R"(<link rel="icon" href="/living-room.svg"></head><body data-screen="problem"><main class="problem">)"
            R"(<h1>{}</h1><p><a class="button" href="/">Go to Home</a></p></main></body></html>)",
            sentenceOfStatus(status), sentenceOfStatus(status)),
        status);
}

}  // namespace living_room
