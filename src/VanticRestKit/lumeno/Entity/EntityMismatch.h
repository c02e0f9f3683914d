#pragma once

/// \file
/// `EntityMismatch`: the error of an object that claims to be another entity.

#include <VanticRestKit/platform/error/Error.h>
#include <VanticRestKit/platform/error/ErrorCategory.h>

#include <cstdint>
#include <string>
#include <utility>

namespace VanticRestKit {

namespace detail {

/// What the error of an entity calls it: `type` ("Video") and `entity` ("video"); and the tag of that error, which
/// `tag()` returns. Specialised in the header of each such entity.
template <class Entity>
struct EntityNames;

}  // namespace detail

/// The error of an `Entity` whose object claims to be another entity; known as `Entity::DecodingError`.
template <class Entity>
class EntityMismatch {
public:
    /// The object's "_entity" is `found`.
    static EntityMismatch entityMismatch(std::string found) { return EntityMismatch(std::move(found)); }

    /// The text of "_entity" as it came.
    const std::string& found() const noexcept { return found_; }

    /// What went wrong, in a sentence.
    std::string localizedDescription() const {
        return std::string(Names::type) + " expects a \"" + Names::entity + "\" entity type, but found \"" +
               found_ + "\"";
    }

    /// What identifies errors of this type; see `Error`.
    static const ErrorTag& errorTag() { return Names::tag(); }
    /// The domain of the error.
    std::string errorDomain() const { return "VanticRestKit." + std::string(Names::type) + ".DecodingError"; }
    /// The code of the error within its domain.
    std::int64_t errorCode() const { return 0; }
    /// The description that `Error` gives.
    std::string generalDescription() const { return localizedDescription(); }
    /// What `adviceOn` takes the error for.
    static ErrorCategory errorCategory() noexcept { return ErrorCategory::badAnswer; }

    /// Whether both are errors of this type.
    friend bool operator==(const EntityMismatch&, const EntityMismatch&) noexcept { return true; }

private:
    using Names = detail::EntityNames<Entity>;

    explicit EntityMismatch(std::string found) : found_(std::move(found)) {}

    std::string found_;
};

}  // namespace VanticRestKit
