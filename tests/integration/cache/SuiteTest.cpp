// The public cases for HTTP caches, half of them, and more of this project in the same form for what these leave out:
// over real sockets with a clock that is moved in place of pauses. Another file of cases can be named in
// VRK_CACHE_CASES.

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

/// The transport refuses an answer with a transfer coding that it does not know.
const std::set<std::string> exempt{"headers-store-Transfer-Encoding"};

/// The optional cases that this cache leaves to the server: it keeps no parts of answers, and the order of languages
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

/// Runs the cases and fails for each required one that is not passed. Returns the optional ones that are not.
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

TEST(CacheSuite, PassesEveryRequiredCaseAndTheOptionalOnesItTakes) {
    const std::set<std::string> missed =
        runCases(casesIn(givenFile() != nullptr ? givenFile() : VRK_TEST_DATA "/http/cache.jsonl"));
    if (givenFile() == nullptr) {
        EXPECT_EQ(missed, notTaken);
    }
}

TEST(CacheSuite, PassesEveryCaseOfThisProject) {
    if (givenFile() != nullptr) GTEST_SKIP() << "other cases were asked for";
    EXPECT_EQ(runCases(casesIn(VRK_TEST_DATA "/http/cache_more.jsonl")), std::set<std::string>());
}

}  // namespace

}  // namespace VanticRestKit::test
