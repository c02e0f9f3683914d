#pragma once

/// \file
/// The golden documents: `Type.what.json`, each with its `Type.what.expected`.

#include <golden/Entities.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace VanticRestKit::test {

struct GoldenDocument {
    std::string name;
    NamedType type;
    std::string json;
    /// The value as indented JSON, or "failure: " and the error.
    std::string expected;
};

inline std::string contentsOf(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    EXPECT_TRUE(file) << path;
    return {std::istreambuf_iterator<char>(file), {}};
}

/// All documents, by name.
inline std::vector<GoldenDocument> goldenDocuments() {
    std::vector<GoldenDocument> documents;
    for (const auto& entry : std::filesystem::directory_iterator(VRK_GOLDEN)) {
        if (entry.path().extension() != ".json") continue;
        const std::string name = entry.path().stem().string();
        const auto& types = rootEntities();
        const auto type = std::find_if(types.begin(), types.end(), [&name](const NamedType& named) {
            return name.substr(0, name.find('.')) == named.name;
        });
        if (type == types.end()) {
            ADD_FAILURE() << name << " is named after no type";
            continue;
        }
        const std::filesystem::path expected =
            std::filesystem::path(entry.path()).replace_extension(".expected");
        // The file of a new document is created when the golden files are regenerated.
        const bool isMissing =
            !std::filesystem::exists(expected) && std::getenv("VRK_UPDATE_GOLDEN") != nullptr;
        documents.push_back({name, *type, contentsOf(entry.path()), isMissing ? "" : contentsOf(expected)});
    }
    std::sort(documents.begin(), documents.end(),
              [](const auto& a, const auto& b) { return a.name < b.name; });
    return documents;
}

/// Expects that `made` equals the golden file `name`. If VRK_UPDATE_GOLDEN is set, writes `made` to that folder
/// instead.
inline void expectGolden(const std::string& made, const std::string& name) {
    if (const char* const folder = std::getenv("VRK_UPDATE_GOLDEN")) {
        std::ofstream file(std::filesystem::path(folder) / name, std::ios::binary);
        EXPECT_TRUE(file << made) << name;
        return;
    }
    EXPECT_EQ(made, contentsOf(std::filesystem::path(VRK_GOLDEN) / name))
        << name << ": if this is intended, scripts/update-golden regenerates it";
}

/// The documents that are well-formed JSON.
inline std::vector<GoldenDocument> wellFormedGoldenDocuments() {
    std::vector<GoldenDocument> documents = goldenDocuments();
    std::erase_if(documents, [](const GoldenDocument& document) {
        return document.expected.starts_with("failure: dataCorrupted []");
    });
    return documents;
}

}  // namespace VanticRestKit::test
