#pragma once

/// \file
/// Documents that are nearly right: a good one, changed here and there at random.

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

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

/// A JSON document that is taken apart once and written again with changes, keys and plain values as they were spelled.
class ChangeableDocument {
public:
    /// Of a document without faults in its structure.
    explicit ChangeableDocument(std::string_view json);

    /// The document without blanks between its parts.
    std::string text() const;

    /// The document with one to four changes: values replaced by ones of any type, members left out, doubled, moved or
    /// added, keys escaped or made unreadable, elements doubled or moved; now and then bytes changed blindly.
    std::string changed(Random& random) const;

private:
    struct Tree;
    std::shared_ptr<const Tree> tree_;
};

}  // namespace VanticRestKit::test
