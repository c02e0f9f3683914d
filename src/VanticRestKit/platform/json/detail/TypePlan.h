#pragma once

/// \file
/// The plan that a mapping table is compiled into on first use; both decoding engines read types by it.

#include <VanticRestKit/platform/error/Error.h>
#include <VanticRestKit/platform/json/detail/KeyTable.h>
#include <VanticRestKit/platform/json/FieldAccess.h>
#include <VanticRestKit/platform/json/MemoryBudget.h>
#include <VanticRestKit/platform/json/PlanParts.h>
#include <VanticRestKit/platform/json/Row.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace VanticRestKit::mapping {

struct ObjectPlan;

/// How a JSON value is read.
enum class ValueKind : std::uint8_t {
    text,
    boolean,
    integer,
    unsignedInteger,
    number,
    decimalOrText,    ///< A string, or an unsigned integer stored as its decimal text.
    narrowInteger,    ///< An integer that a function stores if it fits into a narrower type.
    convertedText,    ///< A string that a function converts.
    convertedNumber,  ///< A number that a function converts.
    object,
    list,
    choice,      ///< One of several types, tried in order.
    dictionary,  ///< A free-form object of plain values.
    anything,    ///< Any value; nothing of it is stored.
    verbatim,    ///< Any value; a function is given its bytes.
    attempted,   ///< Any value; empty if it does not decode.
    nullable,    ///< Null gives an empty value. Only at the root and in lists; for fields the row decides.
};

/// How a JSON value becomes a C++ value of one type. `void*` arguments point to a value of that type.
struct TypePlan {
    ValueKind kind;
    std::string_view name;
    bool (*fromText)(std::string_view text, void* value) = nullptr;
    bool (*fromNumber)(double number, void* value) = nullptr;
    /// Of `narrowInteger`: stores a number if it fits; loads the stored number.
    bool (*fromInteger)(std::int64_t number, void* value) = nullptr;
    std::int64_t (*toInteger)(const void* value) = nullptr;
    /// Of an enumeration: the name of the case that the value holds.
    std::string_view (*caseName)(const void* value) = nullptr;
    const ObjectPlan* object = nullptr;
    const ListPlan* list = nullptr;
    const ChoicePlan* choice = nullptr;
    /// Of `verbatim`: receives the bytes of the value, whose structure is valid.
    void (*fromJSON)(std::string_view json, void* value) = nullptr;
    /// Of `nullable` and `attempted`: the plan of the wrapped value.
    const TypePlan* wrapped = nullptr;
    /// Of `nullable` and `attempted`: puts a new value into the wrapper and returns its address.
    void* (*wrap)(void* value) = nullptr;
    /// Of `attempted`: empties the wrapper.
    void (*forget)(void* value) = nullptr;
    /// Of `nullable` and `attempted`: the wrapped value, or null.
    const void* (*peek)(const void* value) = nullptr;
};

/// A row as the engines use it.
struct FieldPlan {
    RowRole role;
    Presence presence;
    ValueKind kind;
    std::size_t offset;
    const FieldOps* ops;
    const TypePlan* type;
    const ObjectPlan* inner;
    /// The field in a new entity.
    const std::byte* fresh;
    void (*setDefault)(void* field);
    std::string_view key;
    std::string_view member;
};

/// What the fast engine does with the value of a key.
enum class ValueStep : std::uint8_t {
    optionalText,
    boolean,
    optionalUnsigned,
    leaf,  ///< Any other value that contains no others.
    inner,
    object,
    list,
    choice,
    any,  ///< A value of any JSON type.
    entityCheck,
};

/// What the fast engine needs to know about a key, in one cache line.
struct alignas(64) Slot {
    static constexpr std::size_t quotedCapacity = 32;

    /// The key with its quotes and the colon; empty if it is too long or not plain.
    char quoted[quotedCapacity];
    /// A bit for each byte of `quoted` that is used. If `quoted` is empty, bits past its end, so that nothing matches.
    std::uint64_t quotedBytes;
    std::uint8_t quotedSize;
    ValueStep step;
    std::size_t offset;
    const FieldPlan* field;
};

/// A stored field, for printing values in declared order.
struct MemberPlan {
    std::string_view name;
    std::size_t offset;
    const FieldOps* ops;
    const TypePlan* type;
};

/// The rows of one JSON object: of an entity, or of an object inside it whose rows fill the same entity.
struct ObjectPlan {
    std::string_view name;
    std::vector<FieldPlan> fields;
    KeyTable keys;
    /// The slot for unknown keys, followed by one for each field.
    std::vector<Slot> slots;
    /// A bit for each slot whose key is required.
    std::uint64_t required = 0;
    /// A bit for each slot whose values are ignored.
    std::uint64_t unread = 1;
    /// The range of this object's slots in the key successors of a decode.
    std::size_t successorsBegin = 0;
    std::size_t successorsEnd = 0;

    // Of an entity only.
    std::string_view entityName;
    Error (*mismatch)(std::string found) = nullptr;
    std::vector<void (*)(void*)> derivations;
    std::vector<MemberPlan> members;
    bool hasDefaults = false;
};

/// Reserves a range of key successors for an object with that many slots, and returns where it begins.
std::size_t reserveSuccessors(std::size_t slots) noexcept;

/// The number of key successors that a decode needs for all plans made so far.
std::size_t successorCount() noexcept;

/// Resets a field to the default of its row, or else to its value in a new entity.
void resetField(const FieldPlan& field, void* place);

/// Resets the fields that an object's rows fill.
void resetFields(const ObjectPlan& plan, void* entity);

/// Sets the fields whose rows have a default.
void setDefaults(const ObjectPlan& plan, void* entity);

}  // namespace VanticRestKit::mapping
