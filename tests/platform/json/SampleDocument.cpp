#include <platform/json/SampleDocument.h>

#include <VanticRestKit/platform/json/detail/TypePlan.h>
#include <VanticRestKit/platform/json/ValueText.h>

#include <cstddef>
#include <set>
#include <string_view>

namespace VanticRestKit::test {

namespace {

using namespace mapping;

/// A string that the type can be read from: the raw value of a case, or a date in a valid format.
std::string convertible(const TypePlan& type) {
    alignas(std::max_align_t) std::byte value[256] = {};
    for (const char* const text :
         {"2020-01-02 03:04:05", "2020-01-02T03:04:05Z", "2020-01-02T03:04:05.250+0000", "episode", "live",
          "light", "program", "standard", "ONAIR", "lumeno", "watchlist", "audio"}) {
        if (type.fromText(text, value)) return quotedText(text);
    }
    return "\"?\"";
}

/// Writes the document of a type. Each entity is written in full the first time, and then only with its required
/// members: otherwise entities that contain each other would fill megabytes.
class Sample {
public:
    std::string of(const TypePlan& type) {
        switch (type.kind) {
            case ValueKind::text: return quotedText(type.name);
            case ValueKind::boolean: return "true";
            case ValueKind::narrowInteger:
            case ValueKind::integer: return "-7";
            case ValueKind::unsignedInteger:
            case ValueKind::decimalOrText: return "42";
            case ValueKind::number: return "1.5";
            case ValueKind::convertedText: return convertible(type);
            case ValueKind::convertedNumber: return "1600000000";
            case ValueKind::object: return entity(*type.object);
            case ValueKind::list: return elements(type.list->element());
            case ValueKind::choice: return of(type.choice->candidates.front().type());
            case ValueKind::dictionary: return R"({"a":1,"b":"x","c":true,"d":1.5,"e":null})";
            case ValueKind::anything: return R"({"a":[1]})";
            case ValueKind::verbatim: return "{}";
            case ValueKind::attempted:
            case ValueKind::nullable: return of(*type.wrapped);
        }
        return "null";
    }

private:
    std::string entity(const ObjectPlan& plan) {
        const bool isFirst = seen_.insert(&plan).second;
        return "{" + members(plan, plan.entityName, isFirst) + "}";
    }

    std::string members(const ObjectPlan& plan, std::string_view entityName, bool isFull) {
        std::string text;
        for (const FieldPlan& field : plan.fields) {
            if (!isFull && field.presence != Presence::required) continue;
            if (!text.empty()) text += ',';
            text += quotedText(field.key) + ":";
            switch (field.role) {
                case RowRole::value: text += of(*field.type); break;
                case RowRole::object: text += "{" + members(*field.inner, entityName, isFull) + "}"; break;
                case RowRole::entityCheck: text += quotedText(entityName); break;
                default: text += "\"ignored\""; break;
            }
        }
        return text;
    }

    std::string elements(const TypePlan& element) {
        if (element.kind != ValueKind::choice) return "[" + of(element) + "," + of(element) + "]";
        std::string text;
        for (const Candidate& candidate : element.choice->candidates) {
            text += (text.empty() ? "" : ",") + of(candidate.type());
        }
        return "[" + text + "]";
    }

    std::set<const ObjectPlan*> seen_;
};

}  // namespace

std::string sampleDocument(const TypePlan& plan) { return Sample().of(plan); }

}  // namespace VanticRestKit::test
