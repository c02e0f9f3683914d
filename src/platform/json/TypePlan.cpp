#include <VanticRestKit/platform/json/TypePlan.h>

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <cstring>
#include <utility>

namespace VanticRestKit {

namespace {

std::atomic<std::size_t> nextMemory{0};

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
        field.isOptional = row.ops->isOptional;
    }
    // A key that is spelled otherwise in a document cannot be compared in place.
    const bool isPlain = std::all_of(row.key.begin(), row.key.end(),
                                     [](char c) { return c >= ' ' && c < 0x7F && c != '"' && c != '\\'; });
    if (isPlain && row.key.size() + 2 <= FieldPlan::quotedRoom) {
        field.quotedSize = static_cast<std::uint8_t>(row.key.size() + 2);
        field.quoted[0] = '"';
        std::memcpy(field.quoted + 1, row.key.data(), row.key.size());
        field.quoted[row.key.size() + 1] = '"';
    }
    return field;
}

class Builder {
public:
    Builder(ObjectPlan& entity, const void* fresh) : entity_(entity), fresh_(static_cast<const std::byte*>(fresh)) {}

    /// Fills `plan` with the rows of one object; rows of objects inside it go to plans of their own.
    void fill(ObjectPlan& plan, std::span<const Row> rows) {
        for (std::size_t at = 0; at < rows.size(); at += 1 + rows[at].inner) {
            const Row& row = rows[at];
            if (row.role != RowRole::object) noteForEntity(row);
            if (row.role == RowRole::computed) continue;
            FieldPlan field = fieldFor(row, fresh_);
            if (row.role == RowRole::object) {
                auto* inner = new ObjectPlan();
                inner->name = row.key;
                fill(*inner, rows.subspan(at + 1, row.inner));
                field.inner = inner;
            }
            if (field.presence == Presence::required) plan.required |= std::uint64_t{1} << plan.fields.size();
            plan.fields.push_back(field);
        }
        finish(plan);
    }

private:
    void noteForEntity(const Row& row) {
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

    static void finish(ObjectPlan& plan) {
        if (plan.fields.size() > ObjectPlan::mostFields) std::abort();
        std::vector<std::string_view> keys;
        for (const FieldPlan& field : plan.fields) keys.push_back(field.key);
        plan.keys = KeyTable(std::move(keys));
        plan.memory = nextMemory.fetch_add(plan.fields.size() + 1, std::memory_order_relaxed);
    }

    ObjectPlan& entity_;
    const std::byte* fresh_;
};

template <class Visit>
void visitFields(const ObjectPlan& plan, Visit visit) {
    for (const FieldPlan& field : plan.fields) {
        if (field.role == RowRole::object) visitFields(*field.inner, visit);
        if (field.role == RowRole::value) visit(field);
    }
}

}  // namespace

const TypePlan& makeObjectPlan(std::string_view name, std::span<const Row> rows, const void* fresh) {
    auto* object = new ObjectPlan();
    object->name = name;
    Builder(*object, fresh).fill(*object, rows);
    std::sort(object->members.begin(), object->members.end(),
              [](const MemberPlan& a, const MemberPlan& b) { return a.offset < b.offset; });
    // The fresh value goes with the plan also where no field looks at it, as in a type that is only computed.
    struct Kept {
        TypePlan plan;
        const void* fresh;
    };
    auto* kept = new Kept{{.kind = ValueKind::object, .name = name, .object = object}, fresh};
    return kept->plan;
}

std::size_t successorMemory() noexcept { return nextMemory.load(std::memory_order_relaxed); }

void resetField(const FieldPlan& field, void* place) {
    field.ops->copy(place, field.fresh);
    if (field.setDefault != nullptr) field.setDefault(place);
}

void resetFields(const ObjectPlan& plan, void* entity) {
    visitFields(plan, [entity](const FieldPlan& field) {
        resetField(field, static_cast<std::byte*>(entity) + field.offset);
    });
}

void setDefaults(const ObjectPlan& plan, void* entity) {
    visitFields(plan, [entity](const FieldPlan& field) {
        if (field.setDefault != nullptr) field.setDefault(static_cast<std::byte*>(entity) + field.offset);
    });
}

}  // namespace VanticRestKit
