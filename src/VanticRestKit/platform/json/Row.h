#pragma once

/// \file
/// `Row`: one row of a mapping table as data. Hosts write rows with the words of `Table.h`.

#include <VanticRestKit/platform/error/Error.h>
#include <VanticRestKit/platform/json/PlanDeclaration.h>
#include <VanticRestKit/platform/json/Presence.h>
#include <VanticRestKit/Visibility.h>

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace VanticRestKit::mapping {

struct FieldOps;

/// How many rows one object of a table can have, those of objects inside it not counted.
inline constexpr std::size_t maxRows = 63;

/// What a row does with its key.
enum class RowRole : std::uint8_t {
    value,        ///< Reads it into a field.
    object,       ///< Opens it as an object whose rows follow.
    entityCheck,  ///< Compares it with the name of the entity.
    unread,       ///< Nothing: the key is declared and never read.
    computed,     ///< Has no key: the field is computed from other fields.
};

/// One row of a mapping table.
struct Row {
    RowRole role{};
    Presence presence{};
    std::string_view key{};
    std::string_view member{};
    std::size_t (*offset)() = nullptr;
    const FieldOps* ops = nullptr;
    const TypePlan& (*type)() = nullptr;
    void (*setDefault)(void* field) = nullptr;
    void (*derive)(void* entity) = nullptr;
    Error (*mismatch)(std::string found) = nullptr;
    std::string_view entityName{};
    std::size_t inner = 0;
};

/// Makes the plan of an entity from its rows. Called once per type, on first use; the plan is never destroyed, and
/// neither is `fresh`, a new entity that it keeps.
VRK_EXPORT const TypePlan& makeObjectPlan(std::string_view name, std::span<const Row> rows,
                                          const void* fresh);

}  // namespace VanticRestKit::mapping
