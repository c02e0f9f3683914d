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

/// The value of an operation as text, none for a deletion, or why there is none.
using UserText = VanticRestKit::Result<std::string, VanticRestKit::TrelvoError>;

/// Knows when an operation for a user has come to its end: when it has returned and all its requests have
/// ended, also those whose outcome nobody is told; or when it waits for a token that cannot be asked for. Any
/// thread.
class RequestWatch : public std::enable_shared_from_this<RequestWatch> {
public:
    /// `service`, whose one request counts as under way from now until its completion has returned.
    std::shared_ptr<VanticRestKit::Serviceable> watched(std::shared_ptr<VanticRestKit::Serviceable> service);

    /// The outcome that the operation tells.
    void told(UserText outcome);
    void operationReturned();
    /// The token cannot be asked for, so that the operation will never return.
    void operationIsStuck();

    /// What the operation has told; empty where that is nothing yet.
    std::optional<UserText> outcomeSoFar();

    /// Waits for the end. Empty where the operation has told nothing: no request could be made.
    std::optional<UserText> outcomeAtTheEnd();

private:
    class UnderWay;
    class Watched;

    template <class Change>
    void change(Change change);

    std::mutex mutex_;
    std::condition_variable changed_;
    std::optional<UserText> outcome_;
    int underWay_ = 0;
    bool hasReturned_ = false;
    bool isStuck_ = false;
};

}  // namespace vantic
