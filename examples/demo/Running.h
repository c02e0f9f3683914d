#pragma once

#include <VanticRestKit/trelvo/Trelvo.h>

#include <cstdio>
#include <future>
#include <memory>
#include <optional>
#include <utility>

namespace demo {

/// Runs an operation for a user and waits for the outcome; `start` receives the completion. Never do so on the
/// session's delegate queue.
template <class T, class Start>
VanticRestKit::Result<T, VanticRestKit::TrelvoError> ran(Start start) {
    using Outcome = VanticRestKit::Result<T, VanticRestKit::TrelvoError>;
    const auto arrived = std::make_shared<std::promise<Outcome>>();
    start(VanticRestKit::Trelvo::Completion<T>(
        [arrived](Outcome outcome) { arrived->set_value(std::move(outcome)); }));
    return arrived->get_future().get();
}

/// The value of an outcome. If it is an error, prints a line on standard error and returns an empty value.
template <class T>
std::optional<T> valueOf(VanticRestKit::Result<T, VanticRestKit::TrelvoError> outcome) {
    if (outcome) return std::move(outcome).value();
    std::fprintf(stderr, "%s\n", outcome.error().localizedDescription().c_str());
    return std::nullopt;
}

}  // namespace demo
