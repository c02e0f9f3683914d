#include "Support.h"

#include <VanticRestKit/platform/data/Data.h>

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <type_traits>
#include <vector>

using namespace VanticRestKit;
using test::error;

namespace {

using IntSource = test::ManualSource<int>;
using IntRecorder = test::Recorder<int>;

/// Reads a string as a number or as an empty value, and fails for anything else.
struct NumberDecoder {
    template <class U>
    Result<U, Error> decode(const Data& bytes) const {
        if constexpr (!std::is_same_v<U, int>) {
            if (bytes.view() == "null") return U();
        }
        if (bytes.empty() || bytes.view().find_first_not_of("0123456789") != std::string_view::npos) {
            return Failure(error(4));
        }
        return U(std::stoi(std::string(bytes.view())));
    }
};

Result<int, Error> half(int number) {
    if (number % 2 != 0) return Failure(error(number));
    return number / 2;
}

}  // namespace

static_assert(!std::is_default_constructible_v<Never>);
static_assert(!std::is_aggregate_v<Never>);

TEST(AnyPublisher, StartsNothingBeforeASubscription) {
    const auto source = std::make_shared<IntSource>();
    int calls = 0;
    const auto publisher = IntSource::publisher(source).map([&](int n) {
        ++calls;
        return n;
    });
    EXPECT_TRUE(source->subscribers.empty());
    const auto recorder = std::make_shared<IntRecorder>();
    const Cancellable subscription = IntRecorder::of(recorder, publisher);
    EXPECT_EQ(source->subscribers.size(), 1U);
    EXPECT_EQ(calls, 0);
}

TEST(AnyPublisher, StartsSeparateWorkForEverySubscription) {
    const auto source = std::make_shared<IntSource>();
    const auto publisher = IntSource::publisher(source);
    const auto first = std::make_shared<IntRecorder>();
    const auto second = std::make_shared<IntRecorder>();
    const Cancellable one = IntRecorder::of(first, publisher);
    const Cancellable two = IntRecorder::of(second, publisher);
    ASSERT_EQ(source->subscribers.size(), 2U);
    source->subscribers[0].receive(1);
    source->subscribers[1].receive(2);
    source->subscribers[1].complete();
    EXPECT_EQ(first->values, std::vector<int>{1});
    EXPECT_EQ(first->completions(), 0);
    EXPECT_EQ(second->values, std::vector<int>{2});
    EXPECT_EQ(second->normalEnds, 1);
}

TEST(AnyPublisher, DeliversValuesInOrderThenOneCompletionAndNothingMore) {
    const auto source = std::make_shared<IntSource>();
    const auto recorder = std::make_shared<IntRecorder>();
    const Cancellable subscription = IntRecorder::of(recorder, IntSource::publisher(source));
    const auto subscriber = source->subscribers[0];
    for (const int n : {1, 2, 3}) subscriber.receive(n);
    EXPECT_FALSE(subscriber.isEnded());
    subscriber.complete();
    EXPECT_TRUE(subscriber.isEnded());
    subscriber.receive(4);
    subscriber.complete();
    subscriber.complete(Failure(error(1)));
    EXPECT_EQ(recorder->values, (std::vector<int>{1, 2, 3}));
    EXPECT_EQ(recorder->normalEnds, 1);
    EXPECT_TRUE(recorder->errors.empty());
}

TEST(AnyPublisher, DeliversAnErrorAsItsOnlyCompletion) {
    const auto recorder = std::make_shared<IntRecorder>();
    const Cancellable subscription = IntRecorder::of(recorder, AnyPublisher<int>::fail(error(7)));
    EXPECT_TRUE(recorder->values.empty());
    EXPECT_EQ(recorder->normalEnds, 0);
    ASSERT_EQ(recorder->errors.size(), 1U);
    EXPECT_EQ(recorder->errors[0].code(), 7);
}

TEST(AnyPublisher, DeliversSynchronouslyIfTheSourceSendsSynchronously) {
    const auto recorder = std::make_shared<IntRecorder>();
    const auto publisher = AnyPublisher<int>::just(20).map([](int n) { return n + 1; }).eraseToAnyPublisher();
    const Cancellable first = IntRecorder::of(recorder, publisher);
    const Cancellable second = IntRecorder::of(recorder, publisher);
    EXPECT_EQ(recorder->values, (std::vector<int>{21, 21}));
    EXPECT_EQ(recorder->normalEnds, 2);
}

TEST(AnyPublisher, CanBeSubscribedToWithoutFunctions) {
    const Cancellable values = AnyPublisher<int>::just(1).sink({});
    const Cancellable errors = AnyPublisher<int>::fail(error(1)).sink(nullptr, nullptr);
}

TEST(AnyPublisher, DeliversMoveOnlyValues) {
    using Number = std::unique_ptr<int>;
    int seen = 0;
    const auto publisher =
        AnyPublisher<Number, Never>::create([](const Subscriber<Number, Never>& subscriber) {
            subscriber.receive(std::make_unique<int>(3));
            subscriber.complete();
            return Cancellable();
        }).map([](Number n) { return std::make_unique<int>(*n + 1); });
    const Cancellable subscription = publisher.sink([&](Number n) { seen = *n; });
    EXPECT_EQ(seen, 4);
}

TEST(TryMap, DeliversTheResultsOfItsFunction) {
    const auto source = std::make_shared<IntSource>();
    const auto recorder = std::make_shared<IntRecorder>();
    const Cancellable subscription = IntRecorder::of(recorder, IntSource::publisher(source).tryMap(half));
    source->subscribers[0].receive(4);
    source->subscribers[0].receive(2);
    source->subscribers[0].complete();
    EXPECT_EQ(recorder->values, (std::vector<int>{2, 1}));
    EXPECT_EQ(recorder->normalEnds, 1);
    EXPECT_EQ(source->cancels, 0);
}

TEST(TryMap, EndsTheStreamAndCancelsTheSourceWhenItsFunctionFails) {
    const auto source = std::make_shared<IntSource>();
    const auto recorder = std::make_shared<IntRecorder>();
    int calls = 0;
    const auto counted = [&calls](int n) {
        ++calls;
        return half(n);
    };
    const Cancellable subscription = IntRecorder::of(recorder, IntSource::publisher(source).tryMap(counted));
    const auto subscriber = source->subscribers[0];
    subscriber.receive(4);
    subscriber.receive(5);
    EXPECT_EQ(source->cancels, 1);
    // Values of a source that ignores the cancel are dropped, and the function is not called for them.
    subscriber.receive(6);
    subscriber.complete(Failure(error(1)));
    EXPECT_EQ(calls, 2);
    EXPECT_EQ(recorder->values, std::vector<int>{2});
    EXPECT_EQ(recorder->normalEnds, 0);
    ASSERT_EQ(recorder->errors.size(), 1U);
    EXPECT_EQ(recorder->errors[0].code(), 5);
    EXPECT_EQ(source->cancels, 1);
}

TEST(TryMap, PassesUpstreamErrorsUnchanged) {
    const auto recorder = std::make_shared<IntRecorder>();
    int calls = 0;
    const Cancellable subscription =
        IntRecorder::of(recorder, AnyPublisher<int>::fail(error(3)).tryMap([&](int n) {
            ++calls;
            return half(n);
        }));
    EXPECT_EQ(calls, 0);
    ASSERT_EQ(recorder->errors.size(), 1U);
    EXPECT_EQ(recorder->errors[0].code(), 3);
}

TEST(TryMap, CanFailEvenIfItsUpstreamNeverFails) {
    const auto recorder = std::make_shared<IntRecorder>();
    const Cancellable subscription =
        IntRecorder::of(recorder, AnyPublisher<int, Never>::just(3).tryMap(half));
    ASSERT_EQ(recorder->errors.size(), 1U);
    EXPECT_EQ(recorder->errors[0].code(), 3);
}

TEST(MapError, ReceivesErrorsOfUpstreamSteps) {
    const auto recorder = std::make_shared<IntRecorder>();
    int calls = 0;
    const Cancellable subscription =
        IntRecorder::of(recorder, AnyPublisher<int>::just(3).tryMap(half).mapError([&](const Error& e) {
            ++calls;
            return error(e.code() + 100);
        }));
    EXPECT_EQ(calls, 1);
    ASSERT_EQ(recorder->errors.size(), 1U);
    EXPECT_EQ(recorder->errors[0].code(), 103);
}

TEST(MapError, DoesNotReceiveErrorsOfDownstreamSteps) {
    const auto recorder = std::make_shared<IntRecorder>();
    int calls = 0;
    const Cancellable subscription = IntRecorder::of(recorder, AnyPublisher<int>::just(3)
                                                                   .mapError([&](Error e) {
                                                                       ++calls;
                                                                       return e;
                                                                   })
                                                                   .tryMap(half));
    EXPECT_EQ(calls, 0);
    ASSERT_EQ(recorder->errors.size(), 1U);
    EXPECT_EQ(recorder->errors[0].code(), 3);
}

TEST(MapError, ChangesOnlyTheErrorType) {
    using TextRecorder = test::Recorder<int, std::string>;
    const auto text = [](const Error& e) { return std::to_string(e.code()); };
    const auto good = std::make_shared<TextRecorder>();
    const auto bad = std::make_shared<TextRecorder>();
    const Cancellable one = TextRecorder::of(good, AnyPublisher<int>::just(1).mapError(text));
    const Cancellable two = TextRecorder::of(bad, AnyPublisher<int>::fail(error(8)).mapError(text));
    EXPECT_EQ(good->values, std::vector<int>{1});
    EXPECT_EQ(good->normalEnds, 1);
    EXPECT_EQ(bad->errors, std::vector<std::string>{"8"});
}

TEST(Decode, UsesAnyDecoderAndFailsWithItsError) {
    const auto good = std::make_shared<IntRecorder>();
    const auto bad = std::make_shared<IntRecorder>();
    const auto publisher = [](const char* text) {
        return AnyPublisher<Data>::just(Data(text)).decode<int>(NumberDecoder());
    };
    const Cancellable one = IntRecorder::of(good, publisher("42"));
    const Cancellable two = IntRecorder::of(bad, publisher("x"));
    EXPECT_EQ(good->values, std::vector<int>{42});
    EXPECT_EQ(good->normalEnds, 1);
    EXPECT_TRUE(bad->values.empty());
    ASSERT_EQ(bad->errors.size(), 1U);
    EXPECT_EQ(bad->errors[0].code(), 4);
}

TEST(ReplaceError, ReplacesAnErrorWithOneElementAndANormalCompletion) {
    using MaybeNotes = test::Recorder<std::optional<int>, Never>;
    const auto load = [](const AnyPublisher<Data>& bytes) {
        const auto recorder = std::make_shared<MaybeNotes>();
        const Cancellable subscription = MaybeNotes::of(
            recorder, bytes.decode<std::optional<int>>(NumberDecoder()).replaceError(std::nullopt));
        EXPECT_EQ(recorder->normalEnds, 1);
        return recorder->values;
    };
    using Values = std::vector<std::optional<int>>;
    EXPECT_EQ(load(AnyPublisher<Data>::just(Data("5"))), Values{5});
    EXPECT_EQ(load(AnyPublisher<Data>::just(Data("null"))), Values{std::nullopt});
    EXPECT_EQ(load(AnyPublisher<Data>::just(Data("x"))), Values{std::nullopt});
    EXPECT_EQ(load(AnyPublisher<Data>::fail(error(1))), Values{std::nullopt});
}

TEST(ReplaceError, KeepsTheValuesBeforeTheError) {
    using NeverNotes = test::Recorder<int, Never>;
    const auto source = std::make_shared<IntSource>();
    const auto recorder = std::make_shared<NeverNotes>();
    const Cancellable subscription = NeverNotes::of(recorder, IntSource::publisher(source).replaceError(0));
    source->subscribers[0].receive(1);
    source->subscribers[0].complete(Failure(error(1)));
    EXPECT_EQ(recorder->values, (std::vector<int>{1, 0}));
    EXPECT_EQ(recorder->normalEnds, 1);
}
