// An error screen for every kind of error: a sentence and a button.
//   recipe_error_screen BASE-URL

#include "Host.h"

#include <VanticRestKit/Core/ErrorAdvice.h>
#include <VanticRestKit/Core/Resource.h>
#include <VanticRestKit/lumeno/Endpoints/Endpoint.h>

#include <chrono>
#include <cstdio>
#include <stop_token>

using namespace VanticRestKit;
using namespace std::chrono_literals;

void showError(const Error& error) {
    const ErrorAdvice advice = adviceOn(error);
    const bool signIn = advice.category == ErrorCategory::unauthorized;
    const char* const button = signIn ? "Sign in" : advice.mayTryAgain ? "Try again" : "Close";
    std::printf("%-15s %s [%s]\n", nameOf(advice.category), advice.sentence.c_str(), button);
}

/// Loads `time` and shows the error.
void showFailure(const Resource<double>& time, const LoadOptions& options = {.deadline = 5s}) {
    const Result<double, LoaderError> result = time.wait(options);
    if (!result) showError(result.error());
}

Resource<double> timeAt(const std::string& address) {
    return Resource<double>({.withURL = *URL::make(address), .andDecoder = JSONDecoder()});
}

int main(int argc, char** argv) {
    const auto host = recipes::Host::of(argc, argv);
    if (!host) return 2;
    const std::string authority = *host->baseURL().host() + ":" + std::to_string(*host->baseURL().port());

    showFailure(timeAt("http://127.0.0.1:1/"));
    showFailure(*Endpoint::Time(*host), {.deadline = 0s});
    std::stop_source stop;
    stop.request_stop();
    showFailure(*Endpoint::Time(*host), {.stop = stop.get_token()});
    showFailure(timeAt("https://" + authority + "/v2/time"));
    showFailure(timeAt("ftp://" + authority + "/v2/time"));
    showError(LoaderError::unknowError());

    // The errors of the service, until it succeeds.
    const auto time = Endpoint::Time(*host);
    Result<double, LoaderError> result = time->wait({.deadline = 5s});
    for (; !result; result = time->wait({.deadline = 5s})) showError(result.error());
    std::printf("%.0f\n", *result);
    return 0;
}
