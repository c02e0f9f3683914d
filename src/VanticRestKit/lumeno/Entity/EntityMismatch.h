#pragma once

/// \file
/// `EntityMismatch`: the error of an object that claims to be another entity.

#include <VanticRestKit/platform/error/Error.h>

#include <cstdint>
#include <string>
#include <utility>

namespace VanticRestKit {

/// The error of an `Entity` whose object claims to be another entity; known as `Entity::DecodingError`.
///
/// `Entity` names itself by `entityTypeName` ("Video") and `entityName` ("video") and offers `mismatchTag()`,
/// defined in its source.
template <class Entity>
class EntityMismatch {
public:
    /// The object's "_entity" is `found`.
    static EntityMismatch entityMismatch(std::string found) { return EntityMismatch(std::move(found)); }

    /// The text of "_entity" as it came.
    const std::string& found() const noexcept { return found_; }

    std::string localizedDescription() const {
        return std::string(Entity::entityTypeName) + " expects a \"" + Entity::entityName +
               "\" entity type, but found \"" + found_ + "\"";
    }

    static const ErrorTag& errorTag() { return Entity::mismatchTag(); }
    std::string errorDomain() const {
        return "VanticRestKit." + std::string(Entity::entityTypeName) + ".DecodingError";
    }
    std::int64_t errorCode() const { return 0; }
    std::string generalDescription() const { return localizedDescription(); }

    friend bool operator==(const EntityMismatch&, const EntityMismatch&) noexcept { return true; }

private:
    explicit EntityMismatch(std::string found) : found_(std::move(found)) {}

    std::string found_;
};

}  // namespace VanticRestKit
