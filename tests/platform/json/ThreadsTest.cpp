// One type decoded for the first time by several threads at once.

#include <gtest/gtest.h>
#include <VanticRestKit/platform/json/Table.h>

#include <platform/json/BothEngines.h>
#include <cstdint>
#include <latch>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace VanticRestKit {
namespace {

// Each is used by one test only, so that its plan is first made there.
struct Leaf {
    std::string name{};
    std::optional<std::uint64_t> size{};
};
struct Branch {
    std::vector<Leaf> leaves{};
    std::vector<Branch> branches{};
};
struct Tree {
    std::optional<Leaf> crown{};
    std::vector<Branch> branches{};
    std::optional<std::string> place{};
};
struct Bush {
    std::vector<Leaf> leaves{};
    Leaf root{};
};

}  // namespace

template <>
const TypePlan& planOf<Leaf>() {
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<Leaf>(
        required<&Leaf::name>("name"),
        lenient<&Leaf::size>("size"));
    // clang-format on
    return plan;
}
template <>
const TypePlan& planOf<Branch>() {
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<Branch>(
        lenient<&Branch::leaves>("leaves"),
        lenient<&Branch::branches>("branches"));
    // clang-format on
    return plan;
}
template <>
const TypePlan& planOf<Tree>() {
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<Tree>(
        lenient<&Tree::crown>("crown"),
        lenient<&Tree::branches, keepDecodable>("branches"),
        lenientObject("at",
            lenient<&Tree::place>("place")));
    // clang-format on
    return plan;
}
template <>
const TypePlan& planOf<Bush>() {
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<Bush>(
        lenient<&Bush::leaves>("leaves"),
        required<&Bush::root>("root"));
    // clang-format on
    return plan;
}

namespace {

constexpr int threadCount = 8;

/// Runs `task` on eight threads that start at the same time.
template <class Task>
void together(Task task) {
    std::latch start(threadCount);
    std::vector<std::thread> threads;
    for (int i = 0; i < threadCount; ++i) {
        threads.emplace_back([&start, &task, i] {
            start.arrive_and_wait();
            task(i);
        });
    }
    for (std::thread& thread : threads) thread.join();
}

TEST(ThreadsThatDecodeTogether, MakeEachPlanOnce) {
    const Data document(
        R"({"crown":{"name":"c","size":3},"at":{"place":"p"},"branches":[{"leaves":[{"name":"a"}]},1,)"
        R"({"branches":[{"leaves":[{"name":"b","size":1}]}]}]})");
    std::vector<std::string> values(threadCount);
    together([&](int i) {
        const test::Outcome outcome = test::decodeByBoth(test::decodable<Tree>, document);
        values[static_cast<std::size_t>(i)] = outcome.difference + outcome.failure + outcome.value;
    });
    for (const std::string& value : values) {
        EXPECT_EQ(
            value,
            R"({"crown":{"name":"c","size":3},"branches":[{"leaves":[{"name":"a","size":null}],"branches":[]},)"
            R"({"leaves":[],"branches":[{"leaves":[{"name":"b","size":1}],"branches":[]}]}],"place":"p"})");
    }
}

TEST(ThreadsThatDecodeTogether, DoNotAffectEachOther) {
    const JSONDecoder decoder;
    std::vector<int> failures(threadCount);
    together([&](int i) {
        const std::string name(static_cast<std::size_t>(10 + i), static_cast<char>('a' + i));
        // Odd-numbered threads read faulty documents, and so also use the diagnosing engine.
        const Data document(R"({"leaves":[{"size":1,"name":")" + name + R"("},{"name":"x"}],"root":{)" +
                            (i % 2 == 0 ? "\"name\":\"" + name + "\"" : "\"name\":1") + "}}");
        for (int round = 0; round < 500; ++round) {
            const Result<Bush, Error> bush = decoder.decode<Bush>(document);
            const bool isRight =
                i % 2 == 0 ? bush.has_value() && bush->leaves.at(0).name == name && bush->root.name == name
                           : !bush.has_value();
            failures[static_cast<std::size_t>(i)] += isRight ? 0 : 1;
        }
    });
    EXPECT_EQ(failures, std::vector<int>(threadCount));
}

}  // namespace
}  // namespace VanticRestKit
