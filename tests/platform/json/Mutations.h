#pragma once

/// \file
/// Documents that are nearly right: a good one, changed here and there at random.

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace VanticRestKit::test {

/// Random numbers that are the same on every machine.
class Random {
public:
    explicit Random(std::uint64_t seed) : state_(seed) {}
    std::uint64_t next() noexcept;
    /// One of the first `count` numbers; `count` is not 0.
    std::size_t below(std::size_t count) noexcept { return static_cast<std::size_t>(next() % count); }

private:
    std::uint64_t state_;
};

/// A JSON document as a tree that can be taken apart and written again, keys and plain values as they were spelled.
struct JSONTree {
    enum class Kind { plain, array, object };
    Kind kind = Kind::plain;
    std::string plain{};
    /// Keys with their quotes; of an array "".
    std::vector<std::pair<std::string, JSONTree>> members{};

    /// Of a document without faults in its structure.
    static JSONTree parse(std::string_view json);
    std::string text() const;
};

/// The document with one to four changes: values replaced by ones of any type, members left out, doubled, moved or
/// added, keys escaped or made unreadable, elements doubled or moved; now and then bytes changed blindly.
std::string mutated(const JSONTree& document, Random& random);

}  // namespace VanticRestKit::test
