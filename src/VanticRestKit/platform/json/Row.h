#pragma once

/// \file
/// `Row`: one row of a mapping table as data. Hosts write rows with the functions of `Table.h`.

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

/// The maximum number of rows of one object, not counting those of objects inside it.
inline constexpr std::size_t maxRows = 63;

/// What a row does with its key.
enum class RowRole : std::uint8_t {
    value,        ///< Reads the value into a field.
    object,       ///< Opens the value as an object, whose rows follow.
    entityCheck,  ///< Compares the value with the name of the entity.
    unread,       ///< Ignores the value: the key is declared but never read.
    computed,     ///< The row has no key: the field is computed from other fields.
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

/// Makes the plan of an entity from its rows. Called once per type, on first use. The plan is never destroyed; it keeps
/// `fresh`, a newly made entity.
VRK_EXPORT const TypePlan& makeObjectPlan(std::string_view name, std::span<const Row> rows,
                                          const void* fresh);

}  // namespace VanticRestKit::mapping
