// Tests the decode order of every entity's rows, which is observed by decoding documents in which each row is faulty.

#include <golden/Documents.h>
#include <platform/json/BothEngines.h>
#include <platform/json/SampleDocument.h>
#include <VanticRestKit/platform/json/detail/TypePlan.h>
#include <VanticRestKit/platform/json/Diagnosis.h>
#include <VanticRestKit/platform/json/ValueText.h>

#include <map>
#include <memory>
#include <set>

namespace VanticRestKit {
namespace {

using mapping::FieldPlan;
using mapping::ObjectPlan;
using mapping::RowRole;

using Paths = std::set<std::string>;

constexpr const char* goldenFile = "DecodeOrder.expected";

std::string joinedPath(const std::string& outer, std::string_view key) {
    return (outer.empty() ? "" : outer + ".") + std::string(key);
}

std::string pathText(const CodingPath& path) {
    std::string text;
    for (const CodingKey& step : path) {
        text = joinedPath(text, step.key() != nullptr ? *step.key() : std::to_string(*step.index()));
    }
    return text;
}

/// The paths of an object's rows that can be faulty. A lenient object only adds those inside it.
void addRows(const ObjectPlan& plan, const std::string& outer, Paths& rows) {
    for (const FieldPlan& field : plan.fields) {
        const std::string path = joinedPath(outer, field.key);
        if (field.role == RowRole::object) addRows(*field.inner, path, rows);
        const bool isLenientObject = field.role == RowRole::object && field.presence == Presence::lenient;
        if (field.role != RowRole::unread && !isLenientObject) rows.insert(path);
    }
}

/// An object whose rows have values of the wrong type, except for those at the paths in `repaired`. The keys are
/// sorted, so that the order of the faults differs from that of the document.
std::string faultyObject(const ObjectPlan& plan, const std::string& outer, const Paths& repaired) {
    std::map<std::string_view, std::string> members;
    for (const FieldPlan& field : plan.fields) {
        const std::string path = joinedPath(outer, field.key);
        const bool isRepaired = repaired.contains(path);
        std::string& value = members[field.key];
        if (field.role == RowRole::object && (isRepaired || field.presence == Presence::lenient)) {
            value = faultyObject(*field.inner, path, repaired);
        } else if (isRepaired) {
            value = test::sampleDocument(*field.type);
        } else {
            value = field.kind == mapping::ValueKind::list ? "{}" : "[]";
        }
    }
    std::string text;
    for (const auto& [key, value] : members) {
        text += (text.empty() ? "" : ",") + quotedText(key) + ":" + value;
    }
    return "{" + text + "}";
}

/// The path and the presence of each row, in decode order. A strict row ends decoding, so it is recorded and repaired,
/// until the document decodes. Lenient rows before it are recorded in the same run.
std::string decodeOrderOf(const test::DecodableType& type) {
    const ObjectPlan& plan = *type.plan().object;
    Paths rows;
    addRows(plan, {}, rows);
    std::string order;
    Paths noted;
    Paths repaired;
    std::size_t notedFaults = 0;
    while (true) {
        const std::string document = faultyObject(plan, {}, repaired);
        const std::shared_ptr<void> value = type.make();
        const Diagnosis diagnosis = diagnose(Data(document), type.plan(), value.get());
        test::outcomeOf(type, document);
        for (; notedFaults < diagnosis.faults.size(); ++notedFaults) {
            const Fault& fault = diagnosis.faults[notedFaults];
            const std::string path = pathText(fault.path);
            // A repaired value can have tolerated faults inside it, which belong to another entity.
            if (!rows.contains(path)) continue;
            order += "  " + path + " " + nameOf(fault.presence) + "\n";
            if (!noted.insert(path).second) return order + "  (again)\n";
        }
        if (!diagnosis.error) break;
        // The fault of the strict row does not occur again after its repair.
        --notedFaults;
        if (!repaired.insert(pathText(diagnosis.path)).second) return order + "  (not repaired)\n";
    }
    EXPECT_EQ(noted, rows) << plan.name;
    return order;
}

std::vector<test::NamedType> allEntities() {
    std::vector<test::NamedType> types = test::rootEntities();
    std::erase_if(types, [](const test::NamedType& type) { return type.type.plan().object == nullptr; });
    const auto& nested = test::nestedEntities();
    types.insert(types.end(), nested.begin(), nested.end());
    return types;
}

void addEntities(const TypePlan& type, std::set<const ObjectPlan*>& entities);

void addEntitiesOfRows(const ObjectPlan& plan, std::set<const ObjectPlan*>& entities) {
    for (const FieldPlan& field : plan.fields) {
        if (field.role == RowRole::object) addEntitiesOfRows(*field.inner, entities);
        if (field.role == RowRole::value) addEntities(*field.type, entities);
    }
}

/// Adds the entities that a document of the type can contain.
void addEntities(const TypePlan& type, std::set<const ObjectPlan*>& entities) {
    if (type.wrapped != nullptr) addEntities(*type.wrapped, entities);
    if (type.list != nullptr) addEntities(type.list->element(), entities);
    if (type.choice != nullptr) {
        for (const mapping::Candidate& candidate : type.choice->candidates) {
            addEntities(candidate.type(), entities);
        }
    }
    if (type.object == nullptr || !entities.insert(type.object).second) return;
    addEntitiesOfRows(*type.object, entities);
}

TEST(TheDecodeOrder, IsAsExpectedForEveryEntity) {
    std::string orders;
    for (const test::NamedType& type : allEntities()) {
        orders += std::string(type.name) + "\n" + decodeOrderOf(type.type);
    }
    test::expectGolden(orders, goldenFile);
}

TEST(TheDecodeOrder, IsTestedForEveryEntityInADocument) {
    std::set<const ObjectPlan*> tested;
    for (const test::NamedType& type : allEntities()) tested.insert(type.type.plan().object);
    std::set<const ObjectPlan*> reached;
    for (const test::NamedType& type : test::rootEntities()) addEntities(type.type.plan(), reached);
    for (const ObjectPlan* const entity : reached) EXPECT_TRUE(tested.contains(entity)) << entity->name;
}

}  // namespace
}  // namespace VanticRestKit
