#pragma once

/// \file
/// `LoadObservation`: reports the loads of one request to an observer.

#include <VanticRestKit/Core/RequestObserver.h>
#include <VanticRestKit/platform/data/Data.h>
#include <VanticRestKit/platform/error/Error.h>
#include <VanticRestKit/platform/http/RequestMetrics.h>
#include <VanticRestKit/platform/http/URLRequest.h>
#include <VanticRestKit/platform/json/Diagnosis.h>

#include <memory>
#include <string>
#include <string_view>

namespace VanticRestKit::detail {

/// Passes redacted records of one request to its observer. Immutable; any thread may call.
class LoadObservation {
public:
    /// `observer` must not be null. `firstAttempt` is the number of the first attempt of the request.
    LoadObservation(std::shared_ptr<RequestObserver> observer, URLRequest request, std::int64_t firstAttempt);

    const URLRequest& request() const noexcept { return request_; }

    void requestEnded(RequestMetrics record) const;
    void stateChanged(const LoadProgress& progress) const;
    /// `error` is null if the body was decoded. `explain` lists tolerated faults.
    void decoded(const Data& body, const Error* error, std::string_view typeName,
                 Diagnosis (*explain)(const Data&)) const;

private:
    std::string shown(const std::string& address) const;
    void failed(const Data& body, const Error& error, std::string_view typeName) const;

    const std::shared_ptr<RequestObserver> observer_;
    const URLRequest request_;
    const std::int64_t firstAttempt_;
};

}  // namespace VanticRestKit::detail
