#pragma once

#include <VanticRestKit/platform/data/Data.h>

#include <cstddef>
#include <vector>

namespace VanticRestKit::json {

/// A place in a document: the first byte of a value, and which array or object, in the order of their opening
/// brackets, is the next one from there on.
struct Place {
    const char* at = nullptr;
    std::size_t bracket = 0;
};

/// Where the arrays and objects of a document end, so that any of them can be stepped over at once. Sixteen bytes
/// for each, and none for the values inside: a document of 100 MB needs no more memory than it must.
class DocumentIndex {
public:
    explicit DocumentIndex(const Data& document);

    /// Whether the structure of the whole document is sound.
    bool isSound() const noexcept { return isSound_; }
    /// The document's value. Only where the structure is sound.
    Place root() const noexcept { return {root_, 0}; }

    /// Behind the value at `place`.
    Place behind(Place place) const noexcept;

    /// The key of an object's member and its value.
    struct Member {
        const char* key = nullptr;  // its opening quote
        Place value;
    };
    /// Moves to the first member or element behind the bracket at `place`; false where there is none.
    bool first(Place bracket, Member& member) const noexcept;
    bool first(Place bracket, Place& element) const noexcept;
    /// Moves to the member or element behind; false where there is none.
    bool next(Member& member) const noexcept;
    bool next(Place& element) const noexcept;

private:
    struct Bracket {
        const char* end = nullptr;  // behind the closing bracket
        std::size_t next = 0;       // the first bracket that opens behind it
    };
    struct Recorder;

    bool memberAt(Place place, Member& member) const noexcept;

    std::vector<Bracket> brackets_;
    const char* end_;
    const char* root_;
    bool isSound_ = false;
};

}  // namespace VanticRestKit::json
