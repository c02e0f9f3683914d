#pragma once

/// \file
/// A source that a test drives by hand, and an end that notes what arrives.

#include <VanticRestKit/platform/error/Error.h>
#include <VanticRestKit/platform/publisher/AnyPublisher.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace VanticRestKit::test {

/// An error with the code given.
inline Error error(std::int64_t code) { return NSError("test", code); }

/// What the tests know of a source's subscriptions. Driven by one thread at a time.
template <class T>
struct Hand {
    std::vector<Subscriber<T, Error>> subscribers;
    int cancels = 0;

    /// A publisher whose subscriptions end up in this hand.
    static AnyPublisher<T> publisher(const std::shared_ptr<Hand>& hand) {
        return AnyPublisher<T>::create([hand](Subscriber<T, Error> subscriber) {
            hand->subscribers.push_back(std::move(subscriber));
            return Cancellable([hand] { ++hand->cancels; });
        });
    }
};

/// What arrived at the end of a stream. Written by one thread at a time.
template <class T, class E = Error>
struct Notes {
    std::vector<T> values;
    int normalEnds = 0;
    std::vector<E> errors;

    static Cancellable of(const std::shared_ptr<Notes>& notes, const AnyPublisher<T, E>& publisher) {
        return publisher.sink([notes](T value) { notes->values.push_back(std::move(value)); },
                              [notes](Result<void, E> end) {
                                  if (end) {
                                      ++notes->normalEnds;
                                  } else {
                                      notes->errors.push_back(end.error());
                                  }
                              });
    }

    int completions() const { return normalEnds + static_cast<int>(errors.size()); }
};

}  // namespace VanticRestKit::test
