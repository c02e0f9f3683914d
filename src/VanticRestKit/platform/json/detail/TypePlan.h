#pragma once

/// \file
/// What a mapping table becomes on first use: the plan by which both decoding engines read a type.

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
    decimalOrText,    ///< An unsigned whole number as its decimal text, or a text.
    narrowInteger,    ///< A whole number that a function stores where it fits into a narrower type.
    convertedText,    ///< A text that a function turns into the value.
    convertedNumber,  ///< A number that a function turns into the value.
    object,
    list,
    choice,      ///< One of several types, tried in turn.
    dictionary,  ///< A free-form object of plain values.
    anything,    ///< Any value at all; nothing of it is kept.
    verbatim,    ///< Any value at all; a function is given its bytes.
    attempted,   ///< Any value at all; an absent value if it does not decode.
    nullable,  ///< Null is an absent value. At the root and in lists: a field's rows say what null is to it.
};

/// How a JSON value becomes a C++ value of one type. `void*` arguments point to a value of that type.
struct TypePlan {
    ValueKind kind;
    std::string_view name;
    bool (*fromText)(std::string_view text, void* value) = nullptr;
    bool (*fromNumber)(double number, void* value) = nullptr;
    /// Of `narrowInteger`: stores the number if it fits; and the number that is stored.
    bool (*fromInteger)(std::int64_t number, void* value) = nullptr;
    std::int64_t (*toInteger)(const void* value) = nullptr;
    /// Of an enumeration: the name of the case that the value holds.
    std::string_view (*caseName)(const void* value) = nullptr;
    const ObjectPlan* object = nullptr;
    const ListPlan* list = nullptr;
    const ChoicePlan* choice = nullptr;
    /// Of `verbatim`: is given the bytes of the value, whose structure is sound.
    void (*fromJSON)(std::string_view json, void* value) = nullptr;
    /// Of `nullable` and `attempted`: what lies under it.
    const TypePlan* wrapped = nullptr;
    /// Of `nullable` and `attempted`: puts a fresh value under it and returns where that lies.
    void* (*wrap)(void* value) = nullptr;
    /// Of `attempted`: makes it hold nothing.
    void (*forget)(void* value) = nullptr;
    /// Of `nullable` and `attempted`: what it holds, or null.
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
    held,  ///< Any other value that holds no others.
    inner,
    object,
    list,
    choice,
    any,  ///< A value of any JSON type.
    entityCheck,
};

/// What the fast engine needs for each key that a document holds, in one cache line.
struct alignas(64) Slot {
    static constexpr std::size_t quotedRoom = 32;

    /// The key between its quotes, and the colon behind it; empty where it is too long for that or not plain.
    char quoted[quotedRoom];
    /// A bit for each byte of `quoted` that counts. Bits behind those, which nothing is equal to, where it is empty.
    std::uint64_t quotedBytes;
    std::uint8_t quotedSize;
    ValueStep step;
    std::size_t offset;
    const FieldPlan* field;
};

/// A stored field, for looking at values in declared order.
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
    /// One for each field, behind one for the keys that are nobody's.
    std::vector<Slot> slots;
    /// One bit for each slot that must be filled.
    std::uint64_t required = 0;
    /// One bit for each slot whose values nobody reads.
    std::uint64_t unread = 1;
    /// Where the memory of a decode keeps which key followed which in this object.
    std::size_t memory = 0;
    std::size_t memoryEnd = 0;

    // Of an entity only.
    std::string_view entityName;
    Error (*mismatch)(std::string found) = nullptr;
    std::vector<void (*)(void*)> derivations;
    std::vector<MemberPlan> members;
    bool hasDefaults = false;
};

/// Takes the memory of key successors for an object with that many slots, and returns where it begins.
std::size_t takeSuccessorMemory(std::size_t slots) noexcept;

/// How much memory of key successors one decode needs for all plans made so far.
std::size_t successorMemory() noexcept;

/// Puts a field back to its default: that of its row, or else what a new entity has.
void resetField(const FieldPlan& field, void* place);

/// Puts the fields that an object's rows fill back to their defaults.
void resetFields(const ObjectPlan& plan, void* entity);

/// Gives the fields with a default of their own that default.
void setDefaults(const ObjectPlan& plan, void* entity);

}  // namespace VanticRestKit::mapping
