#pragma once

/// \file
/// `EntityMismatch`: the error for an object whose "_entity" names another entity.

#include <VanticRestKit/platform/error/Error.h>
#include <VanticRestKit/platform/error/ErrorCategory.h>

#include <cstdint>
#include <string>
#include <utility>

namespace VanticRestKit {

namespace detail {

/// The names of an entity in its error: `type` ("Video") and `entity` ("video"); `tag()` returns the tag of the error.
/// Specialised in the header of each entity with such an error.
template <class Entity>
struct EntityNames;

}  // namespace detail

/// The error for an object that should be an `Entity` but whose "_entity" names another one. Its alias is
/// `Entity::DecodingError`.
template <class Entity>
class EntityMismatch {
public:
    /// The object's "_entity" is `found`.
    static EntityMismatch entityMismatch(std::string found) { return EntityMismatch(std::move(found)); }

    /// The value of "_entity" in the document.
    const std::string& found() const noexcept { return found_; }

    /// A sentence that describes the error.
    std::string localizedDescription() const {
        return std::string(Names::type) + " expects a \"" + Names::entity + "\" entity type, but found \"" +
               found_ + "\"";
    }

    /// Identifies errors of this type; see `Error`.
    static const ErrorTag& errorTag() { return Names::tag(); }
    /// The domain of the error.
    std::string errorDomain() const { return "VanticRestKit." + std::string(Names::type) + ".DecodingError"; }
    /// The code of the error within its domain.
    std::int64_t errorCode() const { return 0; }
    /// The description that `Error` returns.
    std::string generalDescription() const { return localizedDescription(); }
    /// The category that `adviceOn` returns.
    static ErrorCategory errorCategory() noexcept { return ErrorCategory::badAnswer; }

    /// Whether both are errors of this type.
    friend bool operator==(const EntityMismatch&, const EntityMismatch&) noexcept { return true; }

private:
    using Names = detail::EntityNames<Entity>;

    explicit EntityMismatch(std::string found) : found_(std::move(found)) {}

    std::string found_;
};

}  // namespace VanticRestKit
