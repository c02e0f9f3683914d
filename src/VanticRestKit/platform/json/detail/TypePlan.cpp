#include <VanticRestKit/platform/json/detail/TypePlan.h>

#include <atomic>

namespace VanticRestKit::mapping {

namespace {

std::atomic<std::size_t> nextSuccessor{0};

template <class Visit>
void visitFields(const ObjectPlan& plan, Visit visit) {
    for (const FieldPlan& field : plan.fields) {
        if (field.role == RowRole::object) visitFields(*field.inner, visit);
        if (field.role == RowRole::value) visit(field);
    }
}

}  // namespace

std::size_t reserveSuccessors(std::size_t slots) noexcept {
    return nextSuccessor.fetch_add(slots, std::memory_order_relaxed);
}

std::size_t successorCount() noexcept { return nextSuccessor.load(std::memory_order_relaxed); }

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

}  // namespace VanticRestKit::mapping
