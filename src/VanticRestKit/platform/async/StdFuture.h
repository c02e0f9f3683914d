#pragma once

/// \file
/// `toStdFuture`: a `LoadFuture` as a `std::future`. The one header that includes `<future>`; the umbrella header
/// leaves it out.

#include <VanticRestKit/platform/async/LoadFuture.h>

#include <future>
#include <memory>
#include <utility>

namespace VanticRestKit {

/// The same outcome as a `std::future`, for code that waits for different kinds of work in the same way. Its `get()`
/// cannot detect a call on the queue that has to deliver the outcome: there it waits forever.
template <class Outcome>
std::future<Outcome> toStdFuture(LoadFuture<Outcome> future) {
    auto promise = std::make_shared<std::promise<Outcome>>();
    std::future<Outcome> made = promise->get_future();
    std::move(future).then([promise](Outcome outcome) { promise->set_value(std::move(outcome)); });
    return made;
}

}  // namespace VanticRestKit
