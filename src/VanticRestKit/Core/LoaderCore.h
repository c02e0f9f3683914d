#pragma once

/// \file
/// What a `Loader` does whatever its type. Hosts use `Loader`.

#include <VanticRestKit/platform/data/Data.h>
#include <VanticRestKit/platform/dispatch/DispatchQueue.h>
#include <VanticRestKit/platform/dispatch/Replaceable.h>
#include <VanticRestKit/platform/error/Error.h>
#include <VanticRestKit/Visibility.h>

#include <memory>

namespace VanticRestKit {

class DispatchWorkItem;
class Serviceable;

namespace detail {

/// One load under way. Used by one thread at a time.
class VRK_EXPORT Load {
public:
    virtual ~Load();
    Load(const Load&) = delete;
    Load& operator=(const Load&) = delete;

    /// Decodes the body and keeps the outcome.
    virtual void decode(const Data& body) = 0;
    /// Hands the outcome of `decode` to the completion.
    virtual void deliver() = 0;
    /// Hands the completion a failure of the request.
    virtual void fail(Error error) = 0;

protected:
    Load() = default;
};

/// The state machine of a `Loader`.
class VRK_EXPORT LoaderCore : public std::enable_shared_from_this<LoaderCore> {
public:
    LoaderCore(const LoaderCore&) = delete;
    LoaderCore& operator=(const LoaderCore&) = delete;

    /// Whether a load is under way. Any thread.
    bool isBusy() const { return item_.load() != nullptr; }

    /// Cancels a load that has not started its request yet, for good: its completion is never called, the
    /// loader stays busy, and all later loads are dropped. Does nothing to one that has, nor to an idle
    /// loader.
    void cancel();

protected:
    explicit LoaderCore(std::shared_ptr<Serviceable> service);
    ~LoaderCore();

    /// Becomes busy and posts the start of the request.
    void start(std::unique_ptr<Load> load);

    const std::shared_ptr<Serviceable>& service() const noexcept { return service_; }

private:
    void fetch(std::unique_ptr<Load> load);

    DispatchQueue dispatchque_;
    // Null while idle. Written on the thread that loads and on the one that delivers.
    Replaceable<std::shared_ptr<DispatchWorkItem>> item_;
    std::shared_ptr<Serviceable> service_;
};

}  // namespace detail
}  // namespace VanticRestKit
