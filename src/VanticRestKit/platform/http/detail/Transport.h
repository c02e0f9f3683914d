#pragma once

/// \file
/// `Transport`: what carries the transfers of a session.

#include <VanticRestKit/platform/dispatch/DispatchQueue.h>
#include <VanticRestKit/platform/http/detail/Transfer.h>

#include <memory>

namespace VanticRestKit::detail {

/// Carries transfers. Any thread may call; nothing here blocks, the destructor included: what was started
/// goes on to its end without a transport.
class Transport {
public:
    Transport() = default;
    Transport(const Transport&) = delete;
    Transport& operator=(const Transport&) = delete;
    virtual ~Transport() = default;

    /// Runs `transfer` and completes it on the delegate queue.
    virtual void start(std::shared_ptr<Transfer> transfer) = 0;

    /// Ends a started `transfer` as cancelled, unless it has ended by itself.
    virtual void cancel(std::shared_ptr<Transfer> transfer) = 0;

    /// Takes no more transfers: those started from now on fail. Those under way go on, or are cancelled.
    virtual void invalidate(bool cancelsTransfers) = 0;

    /// Closes the connections that carry no transfer now.
    virtual void closeIdleConnections() = 0;

    /// Where transfers are completed.
    virtual const DispatchQueue& delegateQueue() const = 0;
};

}  // namespace VanticRestKit::detail
