#pragma once

/// \file
/// Almost valid documents: a valid one with random changes.

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace VanticRestKit::test {

/// A random number generator with the same results on every machine.
class Random {
public:
    explicit Random(std::uint64_t seed) : state_(seed) {}
    std::uint64_t next() noexcept;
    /// A number from 0 to `count` - 1. `count` must not be 0.
    std::size_t below(std::size_t count) noexcept { return static_cast<std::size_t>(next() % count); }

private:
    std::uint64_t state_;
};

/// A JSON document that is parsed once and written again with changes. Keys and scalar values keep their spelling.
class ChangeableDocument {
public:
    /// The structure of `json` must be valid.
    explicit ChangeableDocument(std::string_view json);

    /// The document without insignificant whitespace.
    std::string text() const;

    /// The document with one to four changes: values replaced by values of any type; members removed, duplicated, moved
    /// or added; keys escaped or made invalid; elements duplicated or moved; and occasionally arbitrary bytes changed.
    std::string changed(Random& random) const;

private:
    struct Tree;
    std::shared_ptr<const Tree> tree_;
};

}  // namespace VanticRestKit::test
