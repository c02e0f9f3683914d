#pragma once

/// \file
/// `Builder`: a realistic document of an entity, of which a test changes only the relevant parts.

#include <VanticRestKit/platform/data/Data.h>
#include <VanticRestKit/platform/error/Error.h>
#include <VanticRestKit/platform/json/JSONDecoder.h>
#include <VanticRestKit/platform/result/Result.h>
#include <VanticRestKit/Testing/JSONText.h>

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace VanticRestKit::Testing {

namespace detail {

/// Changes to a document, in the order of the calls.
class DocumentChanges {
public:
    void set(std::string place, JSONText value);
    void remove(std::string place);
    /// `document` with the changes applied. Ends the process with a message if a change is impossible.
    std::string applied(std::string document) const;

private:
    std::vector<std::pair<std::string, std::optional<JSONText>>> changes_;
};

/// Ends the process with a message on standard error, because a test has built an invalid document.
[[noreturn]] void failToDecode(const std::string& document, const Error& error);

/// The text of a part of a document. Ends the process with a message if the part does not exist.
std::string partOf(const std::string& document, const std::string& place);

}  // namespace detail

/// The base of all builders. `Self` is the builder, `T` the type that its document decodes into.
///
/// Builders are values: changing a copy does not change the original. The documents are those that the sample service
/// sends.
template <class Self, class T>
class Builder {
public:
    /// The type that the document decodes into.
    using Value = T;

    /// Sets a key of the document, `with("kickerTitle", "New")`, or the value at a JSON pointer,
    /// `with("/_links/self/href", nullptr)`. Missing objects on the way are created. "/-" at the end appends to a list.
    Self& with(std::string place, JSONText value) {
        changes_.set(std::move(place), std::move(value));
        return self();
    }
    /// Removes a key or the value at a JSON pointer, if it exists.
    Self& without(std::string place) {
        changes_.remove(std::move(place));
        return self();
    }

    /// The JSON document.
    std::string document() const { return changes_.applied(static_cast<const Self&>(*this).original()); }
    /// The document, decoded by the library.
    Result<T, Error> decoded() const { return JSONDecoder().decode<T>(Data(document())); }
    /// The decoded value. Ends the process with a message if decoding fails.
    T value() const {
        Result<T, Error> result = decoded();
        if (!result) detail::failToDecode(document(), result.error());
        return std::move(result).value();
    }

protected:
    Builder() = default;

private:
    Self& self() { return static_cast<Self&>(*this); }

    detail::DocumentChanges changes_;
};

/// A builder that starts with an existing document.
template <class T>
class DocumentOf : public Builder<DocumentOf<T>, T> {
public:
    /// Creates a builder that starts with this document.
    explicit DocumentOf(std::string json) : original_(std::move(json)) {}

    /// A part of this document as a separate document: `aHistoryResponse().part<HistoryData>("/data/0")`.
    template <class Part>
    DocumentOf<Part> part(const std::string& place) const {
        return DocumentOf<Part>(detail::partOf(this->document(), place));
    }

private:
    friend class Builder<DocumentOf<T>, T>;
    const std::string& original() const { return original_; }

    std::string original_;
};

}  // namespace VanticRestKit::Testing
