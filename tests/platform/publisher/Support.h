#pragma once

/// \file
/// A source controlled by the test, and a subscriber that records what it receives.

#include <VanticRestKit/platform/error/Error.h>
#include <VanticRestKit/platform/publisher/AnyPublisher.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace VanticRestKit::test {

/// An error with this code.
inline Error error(std::int64_t code) { return NSError("test", code); }

/// The subscriptions of a source. Used by one thread at a time.
template <class T>
struct ManualSource {
    std::vector<Subscriber<T, Error>> subscribers;
    int cancels = 0;

    /// A publisher that adds its subscriptions to `source`.
    static AnyPublisher<T> publisher(const std::shared_ptr<ManualSource>& source) {
        return AnyPublisher<T>::create([source](Subscriber<T, Error> subscriber) {
            source->subscribers.push_back(std::move(subscriber));
            return Cancellable([source] { ++source->cancels; });
        });
    }
};

/// The values and completions that a stream delivered. Written by one thread at a time.
template <class T, class E = Error>
struct Recorder {
    std::vector<T> values;
    int normalEnds = 0;
    std::vector<E> errors;

    static Cancellable of(const std::shared_ptr<Recorder>& recorder, const AnyPublisher<T, E>& publisher) {
        return publisher.sink([recorder](T value) { recorder->values.push_back(std::move(value)); },
                              [recorder](Result<void, E> end) {
                                  if (end) {
                                      ++recorder->normalEnds;
                                  } else {
                                      recorder->errors.push_back(end.error());
                                  }
                              });
    }

    int completions() const { return normalEnds + static_cast<int>(errors.size()); }
};

}  // namespace VanticRestKit::test
