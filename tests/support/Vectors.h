#pragma once

/// \file
/// Reads the golden vectors: files in tests/data with one JSON object per line.

#include <gtest/gtest.h>

#include <fstream>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

namespace VanticRestKit::test {

/// All lines of `file` in tests/data, in order. Fails the current test if the file is missing, empty or not JSON.
inline std::vector<nlohmann::json> jsonLines(const std::string& file) {
    std::ifstream input(VRK_TEST_DATA "/" + file);
    std::vector<nlohmann::json> lines;
    for (std::string text; std::getline(input, text);) {
        if (text.empty()) continue;
        nlohmann::json line = nlohmann::json::parse(text, nullptr, false);
        if (line.is_discarded()) {
            ADD_FAILURE() << file << " holds a line that is not JSON: " << text;
            continue;
        }
        lines.push_back(std::move(line));
    }
    if (lines.empty()) ADD_FAILURE() << "no vectors in " << file;
    return lines;
}

/// All lines of `file` in tests/data/platform.
inline std::vector<nlohmann::json> vectors(const std::string& file) { return jsonLines("platform/" + file); }

/// Whether any result is accepted for this line. It is run anyway, since it must not crash.
inline bool isFree(const nlohmann::json& line) { return line.value("free", false); }

}  // namespace VanticRestKit::test
