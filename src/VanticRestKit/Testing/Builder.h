#pragma once

/// \file
/// `Builder`: a realistic document of an entity that a test changes where it matters.

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

/// Changes to a document, in the order in which they were asked for.
class DocumentChanges {
public:
    void set(std::string place, JSONText value);
    void remove(std::string place);
    /// `document` with the changes. Ends the process with a message if one is impossible.
    std::string applied(std::string document) const;

private:
    std::vector<std::pair<std::string, std::optional<JSONText>>> changes_;
};

/// Ends the process, after a line on the standard error output: a test has built what is no value.
[[noreturn]] void failToDecode(const std::string& document, const Error& error);

/// The text of a part of a document. Ends the process with a message if it is not there.
std::string partOf(const std::string& document, const std::string& place);

}  // namespace detail

/// What every builder offers. `Self` is the builder, `T` the type that its document decodes into.
///
/// Builders are values: a copy changes apart from its original. The documents are those that the sample service sends.
template <class Self, class T>
class Builder {
public:
    /// The type that the document decodes into.
    using Value = T;

    /// Sets a key of the document, `with("kickerTitle", "New")`, or a place in it, `with("/_links/self/href", nullptr)`.
    /// Places are JSON pointers; what is missing on the way is made. "/-" at the end adds to a list.
    Self& with(std::string place, JSONText value) {
        changes_.set(std::move(place), std::move(value));
        return self();
    }
    /// Removes a key or a place. One that is not there is no fault.
    Self& without(std::string place) {
        changes_.remove(std::move(place));
        return self();
    }

    /// The JSON document.
    std::string document() const { return changes_.applied(static_cast<const Self&>(*this).original()); }
    /// The document as the library decodes it.
    Result<T, Error> decoded() const { return JSONDecoder().decode<T>(Data(document())); }
    /// The same value, for a document that decodes. If it does not, the process ends with a message.
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

/// A builder that begins with a document that is there.
template <class T>
class DocumentOf : public Builder<DocumentOf<T>, T> {
public:
    /// A builder that begins with this document.
    explicit DocumentOf(std::string json) : original_(std::move(json)) {}

    /// A part of this document as one of its own: `aHistoryResponse().part<HistoryData>("/data/0")`.
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
