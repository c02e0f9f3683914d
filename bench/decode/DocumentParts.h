#pragma once

#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace VanticRestKit::bench {

using Random = std::mt19937;

/// Words from a small lexicon, at least `atLeast` bytes.
std::string words(Random& random, std::size_t atLeast);

/// A JSON object under construction, whose members can be shuffled.
class Object {
public:
    Object& text(std::string_view key, const std::string& value) { return raw(key, '"' + value + '"'); }
    Object& number(std::string_view key, unsigned long value) { return raw(key, std::to_string(value)); }
    Object& truth(std::string_view key, bool value) { return raw(key, value ? "true" : "false"); }
    Object& raw(std::string_view key, const std::string& value) {
        members_.push_back('"' + std::string(key) + "\":" + value);
        return *this;
    }
    /// The object as text, with shuffled members if `shuffle` is not null.
    std::string json(Random* shuffle);

private:
    std::vector<std::string> members_;
};

/// An object with a path.
std::string href(const std::string& path, Random* shuffle);
/// A link to a category.
std::string link(Random& random, Random* shuffle);
std::string status(Random* shuffle);
/// A complete video with every field, about 2.8 KB.
std::string video(Random& random, Random* shuffle);
/// A show as in a list, about 1.9 KB.
std::string show(Random& random, Random* shuffle);
/// A series as in a list, about 1 KB.
std::string series(Random& random, Random* shuffle);

}  // namespace VanticRestKit::bench
