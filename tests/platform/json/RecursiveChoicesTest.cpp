// Choices inside the candidates of choices: what is read again for the next candidate is not tried again.

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

/// How many values the candidates made.
std::size_t made = 0;

/// Two kinds that nothing tells apart but the type of their last member.
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

/// Two kinds that tell themselves apart by name.
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

/// `levels` parts one in another, each of them labelled with `label` after its parts.
std::string nest(std::size_t levels, const std::string& label, const std::string& core = "") {
    std::string text;
    for (std::size_t i = 0; i < levels; ++i) text += R"({"parts":[)";
    text += core;
    for (std::size_t i = 0; i < levels; ++i) text += R"(],"label":)" + label + "}";
    return text;
}

// How the compiler writes the namespace of the types above.
#ifdef __clang__
constexpr const char* unnamed = "(anonymous namespace)::";
#else
constexpr const char* unnamed = "{anonymous}::";
#endif

/// The same as what a value of so many levels is shown as.
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

/// As many levels as a document can have.
constexpr std::size_t deepest = 255;

TEST(AChoiceInsideAChoice, TriesWhatFitsNoCandidateOnceForEach) {
    made = 0;
    EXPECT_EQ(test::shown<Whole>(whole(nest(deepest, "true"))), R"({"parts":[]})");
    // Two engines, one of them twice; a few levels may be tried again before that is worth a note.
    EXPECT_LE(made, 3 * deepest * 100);
}

TEST(AChoiceInsideAChoice, KeepsTheCandidateThatFitsAtEachLevel) {
    made = 0;
    EXPECT_EQ(test::shown<Whole>(whole(nest(deepest, "\"n\""))), whole(shownNest(deepest, "Named", "\"n\"")));
    EXPECT_EQ(made, 2 * deepest);
    made = 0;
    EXPECT_EQ(test::shown<Whole>(whole(nest(deepest, "1"))), whole(shownNest(deepest, "Numbered", "1")));
    // Each level is made again for the second candidate of each level around it.
    EXPECT_LE(made, 3 * deepest * deepest);
}

TEST(AChoiceInsideAChoice, DropsWhatFitsNoCandidateAtAnyLevel) {
    const std::string bad = nest(20, "true");
    const std::string document = whole(nest(20, "1", bad + "," + nest(20, "2") + "," + bad) + "," + bad);
    EXPECT_EQ(test::shown<Whole>(document),
              whole(shownNest(20, "Numbered", "1", shownNest(20, "Numbered", "2"))));
}

TEST(AChoiceInsideAChoice, GoesByTheNameOfAnEntityAtEachLevel) {
    // Names before and after what an object holds, kinds by turns, and one that is neither.
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

TEST(AChoiceInsideAChoice, NeedsLittleStackToFail) {
    test::onASmallStack(
        [] { EXPECT_EQ(test::shown<Whole>(whole(nest(deepest, "true"))), R"({"parts":[]})"); });
}

}  // namespace
}  // namespace VanticRestKit
