#include <support/Vectors.h>
#include <VanticRestKit/platform/url/URL.h>
#include <VanticRestKit/platform/url/URLComponents.h>

#include <gtest/gtest.h>

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace VanticRestKit {
namespace {

using nlohmann::json;

json orNull(const std::optional<std::string>& text) { return text ? json(*text) : json(nullptr); }

json parsedURL(const json& in) {
    const auto url = URL::make(in["string"].get<std::string>());
    if (!url) return nullptr;
    return {{"absolute", url->absoluteString()},
            {"host", orNull(url->host())},
            {"path", url->path()},
            {"query", orNull(url->query())}};
}

json parsedComponents(const json& in) {
    const auto components = URLComponents::make(in["string"].get<std::string>());
    if (!components) return nullptr;
    return {{"scheme", orNull(components->scheme())},
            {"host", orNull(components->host())},
            {"path", components->path()},
            {"query", orNull(components->query())}};
}

/// A request's URL, built in the same steps as a request.
json builtURL(const json& in) {
    const auto base = URL::make(in["base"].get<std::string>());
    if (!base) return nullptr;
    const auto path = in["path"].get<std::string>();
    auto components = URLComponents::make(path.empty() ? *base : base->appendingPathComponent(path), false);
    if (!components) return nullptr;
    if (!in["query"].empty()) {
        auto items = components->queryItems().value_or(std::vector<URLQueryItem>());
        for (const json& pair : in["query"]) {
            URLQueryItem item{.name = pair[0].get<std::string>()};
            if (!pair[1].is_null()) item.value = pair[1].get<std::string>();
            items.push_back(item);
        }
        components->setQueryItems(items);
    }
    const auto url = components->url();
    return url ? json(url->absoluteString()) : json(nullptr);
}

/// Checks that every line of `file` gives its expected result. A line without one must only not crash.
void expectAnswers(const std::string& file, std::size_t atLeast, json (*answer)(const json&)) {
    const std::vector<json> lines = test::vectors(file);
    ASSERT_GE(lines.size(), atLeast);
    for (const json& line : lines) {
        const json got = answer(line["in"]);
        if (test::isFree(line)) continue;
        EXPECT_EQ(got, line["out"]) << line["in"];
    }
}

TEST(URLVectors, URLsAreParsedLikeThePlatform) { expectAnswers("url_parse.jsonl", 34, parsedURL); }

TEST(URLVectors, ComponentsAreParsedLikeThePlatform) {
    expectAnswers("url_components.jsonl", 469, parsedComponents);
}

TEST(URLVectors, RequestsAreBuiltLikeThePlatform) { expectAnswers("url_build.jsonl", 2500, builtURL); }

}  // namespace
}  // namespace VanticRestKit
