#include <VanticRestKit/platform/json/Row.h>

#include <VanticRestKit/platform/json/detail/TypePlan.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <utility>

namespace VanticRestKit::mapping {

namespace {

FieldPlan fieldFor(const Row& row, const std::byte* fresh) {
    FieldPlan field{};
    field.role = row.role;
    field.presence = row.presence;
    field.kind = ValueKind::anything;
    field.key = row.key;
    field.member = row.member;
    field.ops = row.ops;
    field.setDefault = row.setDefault;
    if (row.role == RowRole::value) {
        field.offset = row.offset();
        field.fresh = fresh + field.offset;
        field.type = &row.type();
        field.kind = field.type->kind;
    }
    return field;
}

ValueStep stepFor(const FieldPlan& field) {
    if (field.role == RowRole::entityCheck) return ValueStep::entityCheck;
    if (field.role == RowRole::object) return ValueStep::inner;
    if (field.role != RowRole::value) return ValueStep::leaf;
    const bool isOptional = field.ops->isOptional;
    switch (field.kind) {
        case ValueKind::object: return ValueStep::object;
        case ValueKind::list: return ValueStep::list;
        case ValueKind::choice: return ValueStep::choice;
        case ValueKind::anything:
        case ValueKind::verbatim:
        case ValueKind::attempted: return ValueStep::any;
        case ValueKind::text: return isOptional ? ValueStep::optionalText : ValueStep::leaf;
        case ValueKind::boolean: return isOptional ? ValueStep::leaf : ValueStep::boolean;
        case ValueKind::unsignedInteger: return isOptional ? ValueStep::optionalUnsigned : ValueStep::leaf;
        default: return ValueStep::leaf;
    }
}

/// The slot for unknown keys. Its prefix never matches.
Slot unknownKeySlot() {
    Slot slot{};
    slot.quotedBytes = std::uint64_t{3} << Slot::quotedCapacity;
    return slot;
}

Slot slotFor(const FieldPlan& field) {
    Slot slot = unknownKeySlot();
    slot.step = stepFor(field);
    slot.offset = field.offset;
    slot.field = &field;
    // Only a key that documents spell without escapes can be compared in place.
    const bool isPlain = std::all_of(field.key.begin(), field.key.end(),
                                     [](char c) { return c >= ' ' && c < 0x7F && c != '"' && c != '\\'; });
    const std::size_t size = field.key.size() + 3;
    if (!isPlain || size > Slot::quotedCapacity) return slot;
    slot.quotedSize = static_cast<std::uint8_t>(size);
    slot.quotedBytes = (std::uint64_t{1} << size) - 1;
    slot.quoted[0] = '"';
    std::memcpy(slot.quoted + 1, field.key.data(), field.key.size());
    std::memcpy(slot.quoted + 1 + field.key.size(), "\":", 2);
    return slot;
}

/// For tables that are not checked at compile time.
[[noreturn]] void abortOnBadTable(std::string_view type, const char* fault, std::string_view key) {
    std::fprintf(stderr, "VanticRestKit: the mapping table of %.*s %s: \"%.*s\"\n",
                 static_cast<int>(type.size()), type.data(), fault, static_cast<int>(key.size()), key.data());
    std::abort();
}

class Builder {
public:
    Builder(ObjectPlan& entity, const void* fresh)
        : entity_(entity), fresh_(static_cast<const std::byte*>(fresh)) {}

    /// Fills `plan` with the rows of one object; rows of nested objects go into separate plans.
    void fill(ObjectPlan& plan, std::span<const Row> rows) {
        for (std::size_t at = 0; at < rows.size(); at += 1 + rows[at].inner) {
            const Row& row = rows[at];
            if (row.role != RowRole::object) addToEntity(row);
            if (row.role == RowRole::computed) continue;
            FieldPlan field = fieldFor(row, fresh_);
            if (row.role == RowRole::object) {
                auto* inner = new ObjectPlan();
                inner->name = row.key;
                fill(*inner, rows.subspan(at + 1, row.inner));
                field.inner = inner;
            }
            plan.fields.push_back(field);
        }
        finish(plan);
    }

private:
    void addToEntity(const Row& row) {
        if (row.role == RowRole::entityCheck) {
            entity_.entityName = row.entityName;
            entity_.mismatch = row.mismatch;
        }
        if (row.derive != nullptr) entity_.derivations.push_back(row.derive);
        if (row.ops != nullptr) {
            entity_.members.push_back({row.member, row.offset(), row.ops, &row.type()});
        }
        entity_.hasDefaults = entity_.hasDefaults || row.setDefault != nullptr;
    }

    void finish(ObjectPlan& plan) const {
        if (plan.fields.size() > maxRows) {
            abortOnBadTable(entity_.name, "has more than 63 rows in one object", plan.fields.back().key);
        }
        std::vector<std::string_view> keys;
        plan.slots.push_back(unknownKeySlot());
        for (const FieldPlan& field : plan.fields) {
            const std::uint64_t bit = std::uint64_t{1} << plan.slots.size();
            if (field.presence == Presence::required) plan.required |= bit;
            if (field.role == RowRole::unread) plan.unread |= bit;
            plan.slots.push_back(slotFor(field));
            if (std::find(keys.begin(), keys.end(), field.key) != keys.end()) {
                abortOnBadTable(entity_.name, "has two rows with the same key", field.key);
            }
            keys.push_back(field.key);
        }
        plan.keys = KeyTable(std::move(keys));
        plan.successorsBegin = reserveSuccessors(plan.slots.size());
        plan.successorsEnd = plan.successorsBegin + plan.slots.size();
    }

    ObjectPlan& entity_;
    const std::byte* fresh_;
};

}  // namespace

const TypePlan& makeObjectPlan(std::string_view name, std::span<const Row> rows, const void* fresh) {
    auto* object = new ObjectPlan();
    object->name = name;
    Builder(*object, fresh).fill(*object, rows);
    std::sort(object->members.begin(), object->members.end(),
              [](const MemberPlan& a, const MemberPlan& b) { return a.offset < b.offset; });
    // Keeps the fresh value reachable even if no field refers to it, as in a type that is only computed.
    struct Kept {
        TypePlan plan;
        const void* fresh;
    };
    auto* kept = new Kept{{.kind = ValueKind::object, .name = name, .object = object}, fresh};
    return kept->plan;
}

}  // namespace VanticRestKit::mapping
