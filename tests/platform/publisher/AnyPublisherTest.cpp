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

using IntHand = test::Hand<int>;
using IntNotes = test::Notes<int>;

/// Reads a text as a number or as nothing, and fails where it is neither.
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
    const auto hand = std::make_shared<IntHand>();
    int calls = 0;
    const auto publisher = IntHand::publisher(hand).map([&](int n) {
        ++calls;
        return n;
    });
    EXPECT_TRUE(hand->subscribers.empty());
    const auto notes = std::make_shared<IntNotes>();
    const Cancellable subscription = IntNotes::of(notes, publisher);
    EXPECT_EQ(hand->subscribers.size(), 1U);
    EXPECT_EQ(calls, 0);
}

TEST(AnyPublisher, StartsWorkOfItsOwnForEverySubscription) {
    const auto hand = std::make_shared<IntHand>();
    const auto publisher = IntHand::publisher(hand);
    const auto first = std::make_shared<IntNotes>();
    const auto second = std::make_shared<IntNotes>();
    const Cancellable one = IntNotes::of(first, publisher);
    const Cancellable two = IntNotes::of(second, publisher);
    ASSERT_EQ(hand->subscribers.size(), 2U);
    hand->subscribers[0].receive(1);
    hand->subscribers[1].receive(2);
    hand->subscribers[1].complete();
    EXPECT_EQ(first->values, std::vector<int>{1});
    EXPECT_EQ(first->completions(), 0);
    EXPECT_EQ(second->values, std::vector<int>{2});
    EXPECT_EQ(second->normalEnds, 1);
}

TEST(AnyPublisher, DeliversValuesInOrderThenOneCompletionAndNothingAfterIt) {
    const auto hand = std::make_shared<IntHand>();
    const auto notes = std::make_shared<IntNotes>();
    const Cancellable subscription = IntNotes::of(notes, IntHand::publisher(hand));
    const auto subscriber = hand->subscribers[0];
    for (const int n : {1, 2, 3}) subscriber.receive(n);
    EXPECT_FALSE(subscriber.isEnded());
    subscriber.complete();
    EXPECT_TRUE(subscriber.isEnded());
    subscriber.receive(4);
    subscriber.complete();
    subscriber.complete(Failure(error(1)));
    EXPECT_EQ(notes->values, (std::vector<int>{1, 2, 3}));
    EXPECT_EQ(notes->normalEnds, 1);
    EXPECT_TRUE(notes->errors.empty());
}

TEST(AnyPublisher, DeliversAnErrorAsItsOnlyCompletion) {
    const auto notes = std::make_shared<IntNotes>();
    const Cancellable subscription = IntNotes::of(notes, AnyPublisher<int>::fail(error(7)));
    EXPECT_TRUE(notes->values.empty());
    EXPECT_EQ(notes->normalEnds, 0);
    ASSERT_EQ(notes->errors.size(), 1U);
    EXPECT_EQ(notes->errors[0].code(), 7);
}

TEST(AnyPublisher, DeliversAtOnceWhereTheSourceSendsAtOnce) {
    const auto notes = std::make_shared<IntNotes>();
    const auto publisher = AnyPublisher<int>::just(20).map([](int n) { return n + 1; }).eraseToAnyPublisher();
    const Cancellable first = IntNotes::of(notes, publisher);
    const Cancellable second = IntNotes::of(notes, publisher);
    EXPECT_EQ(notes->values, (std::vector<int>{21, 21}));
    EXPECT_EQ(notes->normalEnds, 2);
}

TEST(AnyPublisher, MayBeSubscribedToWithoutFunctions) {
    const Cancellable values = AnyPublisher<int>::just(1).sink({});
    const Cancellable errors = AnyPublisher<int>::fail(error(1)).sink(nullptr, nullptr);
}

TEST(AnyPublisher, CarriesValuesThatCannotBeCopied) {
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

TEST(TryMap, SendsTheValuesOfItsFunctionOn) {
    const auto hand = std::make_shared<IntHand>();
    const auto notes = std::make_shared<IntNotes>();
    const Cancellable subscription = IntNotes::of(notes, IntHand::publisher(hand).tryMap(half));
    hand->subscribers[0].receive(4);
    hand->subscribers[0].receive(2);
    hand->subscribers[0].complete();
    EXPECT_EQ(notes->values, (std::vector<int>{2, 1}));
    EXPECT_EQ(notes->normalEnds, 1);
    EXPECT_EQ(hand->cancels, 0);
}

TEST(TryMap, EndsTheStreamAndCancelsTheSourceWhenItsFunctionFails) {
    const auto hand = std::make_shared<IntHand>();
    const auto notes = std::make_shared<IntNotes>();
    int calls = 0;
    const auto counted = [&calls](int n) {
        ++calls;
        return half(n);
    };
    const Cancellable subscription = IntNotes::of(notes, IntHand::publisher(hand).tryMap(counted));
    const auto subscriber = hand->subscribers[0];
    subscriber.receive(4);
    subscriber.receive(5);
    EXPECT_EQ(hand->cancels, 1);
    // A source that does not listen sends on into nothing, and the function is not called for it.
    subscriber.receive(6);
    subscriber.complete(Failure(error(1)));
    EXPECT_EQ(calls, 2);
    EXPECT_EQ(notes->values, std::vector<int>{2});
    EXPECT_EQ(notes->normalEnds, 0);
    ASSERT_EQ(notes->errors.size(), 1U);
    EXPECT_EQ(notes->errors[0].code(), 5);
    EXPECT_EQ(hand->cancels, 1);
}

TEST(TryMap, PassesErrorsFromAboveAsTheyAre) {
    const auto notes = std::make_shared<IntNotes>();
    int calls = 0;
    const Cancellable subscription = IntNotes::of(notes, AnyPublisher<int>::fail(error(3)).tryMap([&](int n) {
        ++calls;
        return half(n);
    }));
    EXPECT_EQ(calls, 0);
    ASSERT_EQ(notes->errors.size(), 1U);
    EXPECT_EQ(notes->errors[0].code(), 3);
}

TEST(TryMap, MayFailWhereWhatIsAboveNeverFails) {
    const auto notes = std::make_shared<IntNotes>();
    const Cancellable subscription = IntNotes::of(notes, AnyPublisher<int, Never>::just(3).tryMap(half));
    ASSERT_EQ(notes->errors.size(), 1U);
    EXPECT_EQ(notes->errors[0].code(), 3);
}

TEST(MapError, SeesErrorsOfTheStepsAboveIt) {
    const auto notes = std::make_shared<IntNotes>();
    int calls = 0;
    const Cancellable subscription =
        IntNotes::of(notes, AnyPublisher<int>::just(3).tryMap(half).mapError([&](const Error& e) {
            ++calls;
            return error(e.code() + 100);
        }));
    EXPECT_EQ(calls, 1);
    ASSERT_EQ(notes->errors.size(), 1U);
    EXPECT_EQ(notes->errors[0].code(), 103);
}

TEST(MapError, SeesNoErrorOfAStepBelowIt) {
    const auto notes = std::make_shared<IntNotes>();
    int calls = 0;
    const Cancellable subscription = IntNotes::of(notes, AnyPublisher<int>::just(3)
                                                             .mapError([&](Error e) {
                                                                 ++calls;
                                                                 return e;
                                                             })
                                                             .tryMap(half));
    EXPECT_EQ(calls, 0);
    ASSERT_EQ(notes->errors.size(), 1U);
    EXPECT_EQ(notes->errors[0].code(), 3);
}

TEST(MapError, ChangesTheTypeOfTheErrorAndLeavesValuesAndTheNormalEndAlone) {
    using TextNotes = test::Notes<int, std::string>;
    const auto text = [](const Error& e) { return std::to_string(e.code()); };
    const auto good = std::make_shared<TextNotes>();
    const auto bad = std::make_shared<TextNotes>();
    const Cancellable one = TextNotes::of(good, AnyPublisher<int>::just(1).mapError(text));
    const Cancellable two = TextNotes::of(bad, AnyPublisher<int>::fail(error(8)).mapError(text));
    EXPECT_EQ(good->values, std::vector<int>{1});
    EXPECT_EQ(good->normalEnds, 1);
    EXPECT_EQ(bad->errors, std::vector<std::string>{"8"});
}

TEST(Decode, ReadsValuesWithAnyDecoderAndFailsWithItsError) {
    const auto good = std::make_shared<IntNotes>();
    const auto bad = std::make_shared<IntNotes>();
    const auto publisher = [](const char* text) {
        return AnyPublisher<Data>::just(Data(text)).decode<int>(NumberDecoder());
    };
    const Cancellable one = IntNotes::of(good, publisher("42"));
    const Cancellable two = IntNotes::of(bad, publisher("x"));
    EXPECT_EQ(good->values, std::vector<int>{42});
    EXPECT_EQ(good->normalEnds, 1);
    EXPECT_TRUE(bad->values.empty());
    ASSERT_EQ(bad->errors.size(), 1U);
    EXPECT_EQ(bad->errors[0].code(), 4);
}

TEST(ReplaceError, GivesOneElementAndTheNormalEndInThePlaceOfAnError) {
    using MaybeNotes = test::Notes<std::optional<int>, Never>;
    const auto load = [](const AnyPublisher<Data>& bytes) {
        const auto notes = std::make_shared<MaybeNotes>();
        const Cancellable subscription = MaybeNotes::of(
            notes, bytes.decode<std::optional<int>>(NumberDecoder()).replaceError(std::nullopt));
        EXPECT_EQ(notes->normalEnds, 1);
        return notes->values;
    };
    using Values = std::vector<std::optional<int>>;
    EXPECT_EQ(load(AnyPublisher<Data>::just(Data("5"))), Values{5});
    EXPECT_EQ(load(AnyPublisher<Data>::just(Data("null"))), Values{std::nullopt});
    EXPECT_EQ(load(AnyPublisher<Data>::just(Data("x"))), Values{std::nullopt});
    EXPECT_EQ(load(AnyPublisher<Data>::fail(error(1))), Values{std::nullopt});
}

TEST(ReplaceError, KeepsTheValuesThatCameBeforeTheError) {
    using NeverNotes = test::Notes<int, Never>;
    const auto hand = std::make_shared<IntHand>();
    const auto notes = std::make_shared<NeverNotes>();
    const Cancellable subscription = NeverNotes::of(notes, IntHand::publisher(hand).replaceError(0));
    hand->subscribers[0].receive(1);
    hand->subscribers[0].complete(Failure(error(1)));
    EXPECT_EQ(notes->values, (std::vector<int>{1, 0}));
    EXPECT_EQ(notes->normalEnds, 1);
}
