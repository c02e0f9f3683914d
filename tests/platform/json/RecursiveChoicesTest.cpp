// Choices nested in the candidates of choices: a value that is read again for the next candidate is not decoded again.

#include <gtest/gtest.h>
#include <VanticRestKit/platform/json/DecodingError.h>
#include <VanticRestKit/platform/json/OneOf.h>
#include <VanticRestKit/platform/json/Table.h>

#include <platform/json/BothEngines.h>
#include <support/SmallStack.h>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

namespace VanticRestKit {
namespace {

struct Named;
struct Numbered;

class Part {
public:
    Part(Named named);
    Part(Numbered numbered);

    template <class T>
    const T* as() const {
        return std::get<std::shared_ptr<const T>>(held_).get();
    }

private:
    std::tuple<std::shared_ptr<const Named>, std::shared_ptr<const Numbered>> held_;
};

/// The number of candidate values constructed.
std::size_t made = 0;

/// Two kinds that differ only in the type of their last member.
struct Named {
    Named() { ++made; }
    std::vector<Part> parts{};
    std::string label{};
};
struct Numbered {
    Numbered() { ++made; }
    std::vector<Part> parts{};
    std::int64_t label{};
};

Part::Part(Named named) : held_(std::make_shared<const Named>(std::move(named)), nullptr) {}
Part::Part(Numbered numbered) : held_(nullptr, std::make_shared<const Numbered>(std::move(numbered))) {}

struct Whole {
    std::vector<Part> parts{};
};

template <int Kind>
struct Entity;
using Book = Entity<0>;
using Film = Entity<1>;

class Work {
public:
    Work(Book book);
    Work(Film film);

    template <class T>
    const T* as() const {
        return std::get<std::shared_ptr<const T>>(held_).get();
    }

private:
    std::tuple<std::shared_ptr<const Book>, std::shared_ptr<const Film>> held_;
};

/// Two kinds that are distinguished by their entity names.
template <int Kind>
struct Entity {
    struct DecodingError {
        static Error entityMismatch(const std::string&) {
            return VanticRestKit::DecodingError(VanticRestKit::DecodingError::Kind::dataCorrupted, {}, "");
        }
    };
    std::vector<Work> works{};
};

Work::Work(Book book) : held_(std::make_shared<const Book>(std::move(book)), nullptr) {}
Work::Work(Film film) : held_(nullptr, std::make_shared<const Film>(std::move(film))) {}

}  // namespace

template <>
const TypePlan& planOf<Named>() {
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<Named>(
        lenient<&Named::parts, eachOneOf<Named, Numbered>>("parts"),
        required<&Named::label>("label"));
    // clang-format on
    return plan;
}
template <>
const TypePlan& planOf<Numbered>() {
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<Numbered>(
        lenient<&Numbered::parts, eachOneOf<Named, Numbered>>("parts"),
        required<&Numbered::label>("label"));
    // clang-format on
    return plan;
}
template <>
const TypePlan& planOf<Whole>() {
    using namespace mapping;
    static const TypePlan& plan = object<Whole>(lenient<&Whole::parts, eachOneOf<Named, Numbered>>("parts"));
    return plan;
}
template <>
const TypePlan& planOf<Book>() {
    using namespace mapping;
    static const TypePlan& plan =
        object<Book>(entity<Book>("book"), lenient<&Book::works, eachOneOf<Book, Film>>("works"));
    return plan;
}
template <>
const TypePlan& planOf<Film>() {
    using namespace mapping;
    static const TypePlan& plan =
        object<Film>(entity<Film>("film"), lenient<&Film::works, eachOneOf<Book, Film>>("works"));
    return plan;
}

namespace {

/// `levels` nested parts, each with `label` after its parts.
std::string nest(std::size_t levels, const std::string& label, const std::string& core = "") {
    std::string text;
    for (std::size_t i = 0; i < levels; ++i) text += R"({"parts":[)";
    text += core;
    for (std::size_t i = 0; i < levels; ++i) text += R"(],"label":)" + label + "}";
    return text;
}

// How the compiler spells the namespace of the types above.
#ifdef __clang__
constexpr const char* unnamed = "(anonymous namespace)::";
#else
constexpr const char* unnamed = "{anonymous}::";
#endif

/// The expected output for a value with that many levels.
std::string shownNest(std::size_t levels, const std::string& kind, const std::string& label,
                      const std::string& core = "") {
    std::string text;
    for (std::size_t i = 0; i < levels; ++i)
        text += R"({")" + std::string(unnamed) + kind + R"(":{"parts":[)";
    text += core;
    for (std::size_t i = 0; i < levels; ++i) text += R"(],"label":)" + label + "}}";
    return text;
}

std::string whole(const std::string& part) { return R"({"parts":[)" + part + "]}"; }

/// The maximum number of levels in a document.
constexpr std::size_t deepest = 255;

TEST(AChoiceInsideAChoice, TriesAnUnsuitableValueOncePerCandidate) {
    made = 0;
    EXPECT_EQ(test::shown<Whole>(whole(nest(deepest, "true"))), R"({"parts":[]})");
    // Three runs: two engines, one of them twice. A few levels may be decoded again before a result is remembered.
    EXPECT_LE(made, 3 * deepest * 100);
}

TEST(AChoiceInsideAChoice, KeepsTheCandidateThatFitsAtEachLevel) {
    made = 0;
    EXPECT_EQ(test::shown<Whole>(whole(nest(deepest, "\"n\""))), whole(shownNest(deepest, "Named", "\"n\"")));
    EXPECT_EQ(made, 2 * deepest);
    made = 0;
    EXPECT_EQ(test::shown<Whole>(whole(nest(deepest, "1"))), whole(shownNest(deepest, "Numbered", "1")));
    // Each level is decoded again for the second candidate of each enclosing level.
    EXPECT_LE(made, 3 * deepest * deepest);
}

TEST(AChoiceInsideAChoice, DropsUnsuitableValuesAtEveryLevel) {
    const std::string bad = nest(20, "true");
    const std::string document = whole(nest(20, "1", bad + "," + nest(20, "2") + "," + bad) + "," + bad);
    EXPECT_EQ(test::shown<Whole>(document),
              whole(shownNest(20, "Numbered", "1", shownNest(20, "Numbered", "2"))));
}

TEST(AChoiceInsideAChoice, SelectsByTheEntityNameAtEachLevel) {
    // Entity names before and after the other members, alternating kinds, and one entity of neither kind.
    for (const bool isNameFirst : {true, false}) {
        std::string document = R"({"_entity":"play"})";
        for (int i = 0; i < 12; ++i) {
            const std::string name = std::string(R"("_entity":")") + (i % 3 == 0 ? "film" : "book") + "\"";
            const std::string works = R"("works":[)" + document + "]";
            document = isNameFirst ? "{" + name + "," + works + "}" : "{" + works + "," + name + "}";
        }
        const std::optional<Book> outermost = test::decoded<Book>(document);
        ASSERT_TRUE(outermost);
        const std::vector<Work>* works = &outermost->works;
        for (int i = 10; i >= 0; --i) {
            ASSERT_EQ(works->size(), 1U) << i;
            const Film* const film = works->front().as<Film>();
            const Book* const book = works->front().as<Book>();
            ASSERT_EQ(film != nullptr, i % 3 == 0) << i;
            works = film != nullptr ? &film->works : &book->works;
        }
        EXPECT_TRUE(works->empty());
    }
}

TEST(AChoiceInsideAChoice, NeedsLittleStackForAFailure) {
    test::onASmallStack(
        [] { EXPECT_EQ(test::shown<Whole>(whole(nest(deepest, "true"))), R"({"parts":[]})"); });
}

}  // namespace
}  // namespace VanticRestKit
