#pragma once

/// \file
/// The completion of a transfer that a publisher starts.

#include <VanticRestKit/platform/data/Data.h>
#include <VanticRestKit/platform/error/Error.h>
#include <VanticRestKit/platform/http/URLResponse.h>
#include <VanticRestKit/platform/publisher/Subscriber.h>

#include <memory>
#include <optional>
#include <utility>

namespace VanticRestKit::detail {

/// A completion that passes the result of a transfer to `subscriber`: the body with its response, followed by the end,
/// or the error. If there is neither a body nor an error, the body is empty.
inline auto completionFor(Subscriber<std::pair<Data, std::shared_ptr<const URLResponse>>, Error> subscriber) {
    return [subscriber = std::move(subscriber)](std::optional<Data> data,
                                                std::shared_ptr<const URLResponse> response,
                                                std::optional<Error> error) {
        if (error) {
            subscriber.complete(Failure(*std::move(error)));
            return;
        }
        subscriber.receive({data ? *std::move(data) : Data(), std::move(response)});
        subscriber.complete();
    };
}

}  // namespace VanticRestKit::detail
