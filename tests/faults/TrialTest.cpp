// Trials with rounds that misbehave in ways that a load never may.

#include "Trial.h"

#include <gtest/gtest.h>

#include <unistd.h>
#include <cerrno>
#include <chrono>
#include <cstdlib>

namespace VanticRestKit::test {

namespace {

using Kind = RoundOutcome::Kind;

// The numbers of the rounds after the three that warm up: the one in which a call fails, and the next.
constexpr int tried = 4;
constexpr int next = 5;

TrialReport reportOn(RoundOutcome (*run)(const RoundSetting&), const Fault& fault = {},
                     std::chrono::seconds deadline = std::chrono::seconds(60)) {
    const Scenario scenario{"round", run};
    return runTrial({.scenario = &scenario, .fault = fault, .deadline = deadline}, {});
}

RoundOutcome allocating(const RoundSetting&) {
    void* const memory = std::malloc(100);
    const bool isThere = memory != nullptr;
    std::free(memory);
    return {isThere ? Kind::value : Kind::error};
}

TEST(Trial, CountsOnlyTheCallsOfTheRound) {
    const TrialReport report = reportOn(&allocating);
    EXPECT_EQ(report.verdict, Verdict::untouched) << report.story;
    EXPECT_EQ(report.counts[static_cast<std::size_t>(Call::malloc)], 1U);
}

TEST(Trial, MakesOneCallFail) {
    EXPECT_EQ(reportOn(&allocating, {.call = Call::malloc, .number = 1, .error = ENOMEM}).verdict,
              Verdict::error);
    EXPECT_EQ(reportOn(&allocating, {.call = Call::malloc, .number = 2, .error = ENOMEM}).verdict,
              Verdict::untouched);
}

TEST(Trial, AcceptsAProcessThatReportsThatMemoryRanOut) {
    const auto run = [](const RoundSetting&) {
        delete new int;
        return RoundOutcome{};
    };
    const TrialReport report = reportOn(run, {.call = Call::malloc, .number = 1, .error = ENOMEM});
    EXPECT_EQ(report.verdict, Verdict::message) << report.story;
}

TEST(Trial, FindsACrashWithoutAMessage) {
    const auto run = [](const RoundSetting& setting) {
        if (setting.number == tried) std::abort();
        return RoundOutcome{};
    };
    EXPECT_EQ(reportOn(run).verdict, Verdict::crashed);
}

TEST(Trial, FindsAWrongValue) {
    const auto run = [](const RoundSetting& setting) {
        return RoundOutcome{setting.number == tried ? Kind::wrong : Kind::value};
    };
    EXPECT_EQ(reportOn(run).verdict, Verdict::wrong);
}

TEST(Trial, FindsAnErrorWithoutAFault) {
    const auto run = [](const RoundSetting& setting) {
        return RoundOutcome{setting.number == tried ? Kind::error : Kind::value};
    };
    EXPECT_EQ(reportOn(run).verdict, Verdict::wrong);
}

TEST(Trial, FindsASessionThatDoesNotLoadAfterTheFault) {
    const auto run = [](const RoundSetting& setting) {
        return RoundOutcome{setting.number == next ? Kind::error : Kind::value};
    };
    EXPECT_EQ(reportOn(run).verdict, Verdict::spoiled);
}

TEST(Trial, FindsALeakedDescriptor) {
    const auto run = [](const RoundSetting& setting) {
        if (setting.number == tried) static_cast<void>(dup(STDERR_FILENO));
        return RoundOutcome{};
    };
    EXPECT_EQ(reportOn(run).verdict, Verdict::leaked);
}

TEST(Trial, FindsLeakedMemory) {
    const auto run = [](const RoundSetting& setting) {
        static void* left = nullptr;
        if (setting.number == tried) left = std::malloc(10'000);
        return RoundOutcome{left == nullptr || setting.number >= tried ? Kind::value : Kind::wrong};
    };
    EXPECT_EQ(reportOn(run).verdict, Verdict::leaked);
}

TEST(Trial, FindsALoadThatDoesNotEnd) {
    const auto run = [](const RoundSetting& setting) {
        while (setting.number == tried) pause();
        return RoundOutcome{};
    };
    EXPECT_EQ(reportOn(run, {}, std::chrono::seconds(2)).verdict, Verdict::hung);
}

}  // namespace

}  // namespace VanticRestKit::test
