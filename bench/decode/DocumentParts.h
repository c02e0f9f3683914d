#pragma once

#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace VanticRestKit::bench {

using Random = std::mt19937;

/// Words of a small lexicon, `atLeast` bytes of them.
std::string words(Random& random, std::size_t atLeast);

/// An object under construction: members that can be put into another order.
class Object {
public:
    Object& text(std::string_view key, const std::string& value) { return raw(key, '"' + value + '"'); }
    Object& number(std::string_view key, unsigned long value) { return raw(key, std::to_string(value)); }
    Object& truth(std::string_view key, bool value) { return raw(key, value ? "true" : "false"); }
    Object& raw(std::string_view key, const std::string& value) {
        members_.push_back('"' + std::string(key) + "\":" + value);
        return *this;
    }
    /// The members in another order where `shuffle` is given.
    std::string json(Random* shuffle);

private:
    std::vector<std::string> members_;
};

/// An object with a path.
std::string href(const std::string& path, Random* shuffle);
/// A link to a category.
std::string link(Random& random, Random* shuffle);
std::string status(Random* shuffle);
/// A whole video, every field filled, about 2.8 KB.
std::string video(Random& random, Random* shuffle);
/// A show as a list has it, about 1.9 KB.
std::string show(Random& random, Random* shuffle);
/// A series as a list has it, about 1 KB.
std::string series(Random& random, Random* shuffle);

}  // namespace VanticRestKit::bench
