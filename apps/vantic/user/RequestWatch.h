#pragma once

#include <VanticRestKit/Core/Serviceable.h>
#include <VanticRestKit/platform/result/Result.h>
#include <VanticRestKit/trelvo/Common/TrelvoError.h>

#include <condition_variable>
#include <memory>
#include <mutex>
#include <optional>
#include <string>

namespace vantic {

/// The value of an operation as text, empty for a deletion; or the error.
using UserText = VanticRestKit::Result<std::string, VanticRestKit::TrelvoError>;

/// Detects the end of an operation for a user. It has ended when it has returned and all its requests have ended,
/// including those whose outcome is not reported, or when it waits for a token that cannot be requested. Any thread.
class RequestWatch : public std::enable_shared_from_this<RequestWatch> {
public:
    /// Wraps `service`. Its request counts as in progress from now until its completion has returned.
    std::shared_ptr<VanticRestKit::Serviceable> watched(std::shared_ptr<VanticRestKit::Serviceable> service);

    /// Stores the outcome of the operation.
    void setOutcome(UserText outcome);
    void operationReturned();
    /// The token cannot be requested, so the operation will never return.
    void operationIsStuck();

    /// The outcome of the operation; empty if there is none yet.
    std::optional<UserText> outcomeSoFar();

    /// Waits for the end. Empty if there is no outcome because no request could be built.
    std::optional<UserText> outcomeAtTheEnd();

private:
    class OpenRequest;
    class Watched;

    template <class Change>
    void change(Change change);

    std::mutex mutex_;
    std::condition_variable changed_;
    std::optional<UserText> outcome_;
    int openRequests_ = 0;
    bool hasReturned_ = false;
    bool isStuck_ = false;
};

}  // namespace vantic
