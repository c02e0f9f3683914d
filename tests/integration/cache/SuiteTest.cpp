// Runs half of the public HTTP cache test cases, and this project's own cases in the same format for what those do not
// cover. They use real sockets, and a clock that is advanced instead of pausing. VRK_CACHE_CASES can name another file
// of cases.

#include "Case.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <iostream>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace VanticRestKit::test {

namespace {

using nlohmann::json;
using Kind = CaseResult::Kind;

/// The transport rejects a response with an unknown transfer coding.
const std::set<std::string> exempt{"headers-store-Transfer-Encoding"};

/// The optional cases that this cache does not support: it stores no partial responses, and the order of languages
/// matters to many servers.
const std::set<std::string> notTaken{"partial-store-partial-complete", "partial-store-partial-reuse-partial",
                                     "partial-store-partial-reuse-partial-absent",
                                     "partial-store-partial-reuse-partial-byterange",
                                     "vary-normalise-lang-order"};

const char* givenFile() { return std::getenv("VRK_CACHE_CASES"); }

std::vector<json> casesIn(const char* path) {
    std::ifstream input(path);
    std::vector<json> lines;
    for (std::string text; std::getline(input, text);) {
        if (text.empty()) continue;
        json line = json::parse(text, nullptr, false);
        if (line.is_object()) {
            lines.push_back(std::move(line));
        } else {
            ADD_FAILURE() << path << ": " << text;
        }
    }
    return lines;
}

struct Counts {
    int passed = 0;
    int all = 0;
};

/// Runs the cases and fails for each required case that does not pass. Returns the optional cases that do not pass.
std::set<std::string> runCases(const std::vector<json>& all) {
    MovedClock clock;
    CaseServer server(clock);
    std::map<std::string, Counts> counts;
    std::map<std::string, CaseResult> results;
    EXPECT_FALSE(all.empty());
    for (const json& each : all) {
        const std::string id = each["id"];
        if (exempt.contains(id)) continue;
        results[id] = runCase(server, clock, each);
    }
    std::set<std::string> missed;
    for (const json& each : all) {
        const std::string id = each["id"];
        const std::string kind = each["kind"];
        if (exempt.contains(id)) continue;
        CaseResult result = results[id];
        for (const std::string& needed : each.value("needs", std::vector<std::string>())) {
            const auto other = results.find(needed);
            if (other != results.end() && other->second.kind != Kind::passed && needed != "freshness-none") {
                result = {Kind::notRun, "needs " + needed};
            }
        }
        Counts& count = counts[kind];
        ++count.all;
        if (result.kind == Kind::passed) {
            ++count.passed;
            continue;
        }
        std::cout << kind << " " << id << (result.kind == Kind::notRun ? " not run: " : ": ") << result.reason
                  << "\n";
        if (kind == "required") ADD_FAILURE() << id << ": " << result.reason;
        if (kind == "optimal") missed.insert(id);
    }
    for (const auto& [kind, count] : counts) {
        std::cout << kind << ": " << count.passed << " of " << count.all << "\n";
    }
    return missed;
}

TEST(CacheSuite, PassesEveryRequiredCaseAndTheSupportedOptionalOnes) {
    const std::set<std::string> missed =
        runCases(casesIn(givenFile() != nullptr ? givenFile() : VRK_TEST_DATA "/http/cache.jsonl"));
    if (givenFile() == nullptr) {
        EXPECT_EQ(missed, notTaken);
    }
}

TEST(CacheSuite, PassesEveryCaseOfThisProject) {
    if (givenFile() != nullptr) GTEST_SKIP() << "VRK_CACHE_CASES names other cases";
    EXPECT_EQ(runCases(casesIn(VRK_TEST_DATA "/http/cache_more.jsonl")), std::set<std::string>());
}

}  // namespace

}  // namespace VanticRestKit::test
