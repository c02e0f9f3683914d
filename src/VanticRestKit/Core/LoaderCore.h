#pragma once

/// \file
/// The type-independent part of `Loader`. Hosts use `Loader`.

#include <VanticRestKit/platform/data/Data.h>
#include <VanticRestKit/platform/dispatch/DispatchQueue.h>
#include <VanticRestKit/platform/dispatch/Replaceable.h>
#include <VanticRestKit/platform/error/Error.h>
#include <VanticRestKit/Visibility.h>

#include <memory>
#include <utility>

namespace VanticRestKit {

class DispatchWorkItem;
class Serviceable;

/// The state of a `Loader`; also `Loader<T>::State`. An immutable value.
class LoaderState {
public:
    /// Whether a load is in progress.
    enum class Kind { loading, idle };

    /// A load is in progress; `item`, which is not null, starts its request.
    static LoaderState loading(std::shared_ptr<DispatchWorkItem> item) noexcept {
        return LoaderState(Kind::loading, std::move(item));
    }
    /// No load is in progress.
    static LoaderState idle() noexcept { return LoaderState(Kind::idle, nullptr); }

    /// Whether a load is in progress.
    Kind kind() const noexcept { return kind_; }
    /// The item of `loading`; null if idle.
    const std::shared_ptr<DispatchWorkItem>& item() const noexcept { return item_; }

private:
    LoaderState(Kind kind, std::shared_ptr<DispatchWorkItem> item) noexcept
        : kind_(kind), item_(std::move(item)) {}

    Kind kind_;
    std::shared_ptr<DispatchWorkItem> item_;
};

namespace detail {

/// One load in progress. Used by one thread at a time.
class VRK_EXPORT Load {
public:
    virtual ~Load();
    Load(const Load&) = delete;
    Load& operator=(const Load&) = delete;

    /// Decodes the body and stores the outcome.
    virtual void decode(const Data& body) = 0;
    /// Calls the completion with the outcome of `decode`.
    virtual void deliver() = 0;
    /// Calls the completion with a failure of the request.
    virtual void fail(Error error) = 0;

protected:
    Load() = default;
};

/// The state machine of a `Loader`.
class VRK_EXPORT LoaderCore : public std::enable_shared_from_this<LoaderCore> {
public:
    LoaderCore(const LoaderCore&) = delete;
    LoaderCore& operator=(const LoaderCore&) = delete;

    /// Whether a load is in progress. Any thread.
    bool isBusy() const { return state_.load().kind() == LoaderState::Kind::loading; }

    /// Cancels a load that has not yet started its request. Its completion is never called, the loader stays busy
    /// forever, and all later loads are ignored. No effect on a load that has started its request, or on an idle
    /// loader.
    void cancel();

protected:
    explicit LoaderCore(std::shared_ptr<Serviceable> service);
    ~LoaderCore();

    /// Becomes busy and posts the start of the request.
    void start(std::unique_ptr<Load> load);

    const std::shared_ptr<Serviceable>& service() const noexcept { return service_; }

private:
    friend struct LoaderProbe;  // for tests

    void fetch(std::unique_ptr<Load> load);

    DispatchQueue dispatchque_;
    // Written on the thread that starts a load and on the one that delivers.
    Replaceable<LoaderState> state_{LoaderState::idle()};
    std::shared_ptr<Serviceable> service_;
};

}  // namespace detail
}  // namespace VanticRestKit
