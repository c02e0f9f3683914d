#pragma once

#include <VanticRestKit/platform/data/Data.h>

#include <cstddef>
#include <vector>

namespace VanticRestKit::json {

/// A position in a document: the first byte of a value, and the index of the first array or object that opens at or
/// after it, counted in the order of opening brackets.
struct Place {
    const char* at = nullptr;
    std::size_t bracket = 0;
};

/// Records where the arrays and objects of a document end, so that each can be skipped in one step. It takes sixteen
/// bytes for each of them and none for other values, which keeps it small for a document of 100 MB.
class DocumentIndex {
public:
    explicit DocumentIndex(const Data& document);

    /// Whether the structure of the whole document is valid.
    bool isValid() const noexcept { return isValid_; }
    /// The document's value. Call only if the structure is valid.
    Place root() const noexcept { return {root_, 0}; }

    /// The position after the value at `place`.
    Place after(Place place) const noexcept;

    /// The key of an object's member and its value.
    struct Member {
        const char* key = nullptr;  // its opening quote
        Place value;
    };
    /// Moves to the first member or element after the opening bracket; false if there is none.
    bool first(Place bracket, Member& member) const noexcept;
    bool first(Place bracket, Place& element) const noexcept;
    /// Moves to the next member or element; false if there is none.
    bool next(Member& member) const noexcept;
    bool next(Place& element) const noexcept;

private:
    struct Bracket {
        const char* end = nullptr;  // after the closing bracket
        std::size_t next = 0;       // the index of the first bracket that opens after it
    };
    struct Recorder;

    bool memberAt(Place place, Member& member) const noexcept;

    std::vector<Bracket> brackets_;
    const char* end_;
    const char* root_;
    bool isValid_ = false;
};

}  // namespace VanticRestKit::json
