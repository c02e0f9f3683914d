#pragma once

/// \file
/// `Transport`: performs the transfers of a session.

#include <VanticRestKit/platform/dispatch/DispatchQueue.h>
#include <VanticRestKit/platform/http/detail/Transfer.h>

#include <memory>

namespace VanticRestKit::detail {

/// Performs transfers. Thread-safe. Nothing here blocks, including the destructor: started transfers finish without the
/// transport.
class Transport {
public:
    Transport() = default;
    Transport(const Transport&) = delete;
    Transport& operator=(const Transport&) = delete;
    virtual ~Transport() = default;

    /// Runs `transfer` and completes it on the delegate queue.
    virtual void start(std::shared_ptr<Transfer> transfer) = 0;

    /// Cancels a started `transfer`, unless it has ended.
    virtual void cancel(std::shared_ptr<Transfer> transfer) = 0;

    /// Makes transfers that are started from now on fail. Running transfers continue, or are cancelled if
    /// `cancelsTransfers`.
    virtual void invalidate(bool cancelsTransfers) = 0;

    /// Closes connections that no transfer uses.
    virtual void closeIdleConnections() = 0;

    /// The queue on which transfers are completed.
    virtual const DispatchQueue& delegateQueue() const = 0;
};

}  // namespace VanticRestKit::detail
