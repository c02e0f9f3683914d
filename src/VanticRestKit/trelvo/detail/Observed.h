#pragma once

// A value that notifies its subscribers of changes. Used on one queue only.

#include <VanticRestKit/platform/publisher/AnyPublisher.h>

#include <cstdint>
#include <map>
#include <utility>

namespace VanticRestKit::detail {

template <class T>
class Observed {
public:
    using Receiver = Subscriber<T, Never>;

    explicit Observed(T value) : value_(std::move(value)) {}

    /// Does nothing if the value is unchanged.
    void set(T value) {
        if (value == value_) return;
        value_ = std::move(value);
        for (const auto& [id, subscriber] : subscribers_) subscriber.receive(value_);
    }

    /// Sends the current value now and each new value later.
    void add(std::uint64_t id, Receiver subscriber) {
        subscriber.receive(value_);
        subscribers_.emplace(id, std::move(subscriber));
    }
    void remove(std::uint64_t id) { subscribers_.erase(id); }

private:
    T value_;
    std::map<std::uint64_t, Receiver> subscribers_;
};

}  // namespace VanticRestKit::detail
