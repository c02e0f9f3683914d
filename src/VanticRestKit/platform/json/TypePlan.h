#pragma once

/// \file
/// What a mapping table becomes on first use: the plan by which both decoding engines read a type.
///
/// Hosts write tables (`Table.h`) and never plans.

#include <VanticRestKit/platform/error/Error.h>
#include <VanticRestKit/platform/json/KeyTable.h>
#include <VanticRestKit/platform/json/MemoryBudget.h>
#include <VanticRestKit/Visibility.h>

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace VanticRestKit {

/// What the table says of a value that is absent, null or unfit.
enum class Presence : std::uint8_t {
    required,   ///< Each of them fails the entity.
    optional,   ///< Absent or null leaves the field empty; an unfit value fails the entity.
    lenient,    ///< None of them fails anything; the field keeps its default.
    defaulted,  ///< Absent or null leaves the default; an unfit value fails the entity.
};

namespace mapping {

struct ObjectPlan;
struct ListPlan;
struct ChoicePlan;

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

/// How a field of a given C++ type is reached. `void*` arguments point to the field.
struct FieldOps {
    bool isOptional;
    /// Makes the field hold a fresh value and returns where it lies.
    void* (*open)(void* field);
    /// Makes the field empty or, where it cannot be, what its type starts with.
    void (*reset)(void* field);
    /// Makes the field equal to another one of its type.
    void (*copy)(void* field, const void* from);
    /// The value, or null where the field is empty.
    const void* (*peek)(const void* field);
};

/// How a list grows. `void*` arguments point to the list.
struct ListPlan {
    const TypePlan& (*element)();
    /// Whether an element that fails is dropped instead of failing the list.
    bool tolerant;
    /// Appends a fresh element and returns where it lies, or null if the budget does not allow the list to grow.
    /// The byte counts are those of the array so far and of what may be left of it, from which the room to reserve
    /// is estimated; 0 where nothing is known.
    void* (*append)(void* list, std::size_t bytesRead, std::size_t bytesLeft, MemoryBudget& memory);
    void (*removeLast)(void* list);
    std::size_t (*count)(const void* list);
    const void* (*at)(const void* list, std::size_t index);
};

/// One of the types that a choice tries.
struct Candidate {
    const TypePlan& (*type)();
    /// What a value of it takes of the budget.
    std::size_t size;
    void* (*make)();
    void (*drop)(void* made);
    /// Moves the finished value into the field, or behind the last element of the list, and frees it.
    void (*keep)(void* made, void* fieldOrList);
};

/// The types that a choice tries, in order.
struct ChoicePlan {
    std::span<const Candidate> candidates;
    /// Which candidate a kept value is of, and where it lies: for looking at values.
    std::size_t (*which)(const void* value);
    const void* (*held)(const void* value);
};

/// What a row does with its key.
enum class RowRole : std::uint8_t {
    value,        ///< Reads it into a field.
    object,       ///< Opens it as an object whose rows follow.
    entityCheck,  ///< Compares it with the name of the entity.
    unread,       ///< Nothing: the key is declared and read by nobody.
    computed,     ///< Has no key: the field is computed from other fields.
};

/// One row of a mapping table, as `Table.h` writes it.
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
    static constexpr std::size_t mostFields = 63;

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

/// Makes the plan of an entity from its rows. Called once per type, on first use; the plan is never destroyed, and
/// neither is `fresh`, a new entity that it keeps.
VRK_EXPORT const TypePlan& makeObjectPlan(std::string_view name, std::span<const Row> rows,
                                          const void* fresh);

/// How much memory of key successors one decode needs for all plans made so far.
std::size_t successorMemory() noexcept;

/// Puts a field back to its default: that of its row, or else what a new entity has.
void resetField(const FieldPlan& field, void* place);

/// Puts the fields that an object's rows fill back to their defaults.
void resetFields(const ObjectPlan& plan, void* entity);

/// Gives the fields with a default of their own that default.
void setDefaults(const ObjectPlan& plan, void* entity);

}  // namespace mapping

// Tables and tools name the plan that a table becomes; what is in it is the decoder's.
using mapping::TypePlan;

}  // namespace VanticRestKit
