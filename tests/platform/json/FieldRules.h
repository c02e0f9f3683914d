#pragma once

/// \file
/// Checks an entity against a table of its fields: name, key, strictness and type. The table is the test's own, not the
/// library's, so that a wrong row in the library is found.

#include <platform/json/BothEngines.h>
#include <VanticRestKit/platform/json/PlanDeclaration.h>
#include <VanticRestKit/platform/json/ValueText.h>

#include <string>
#include <utility>
#include <vector>

namespace VanticRestKit::test {

/// JSON that a field does not accept, and the error of a strict field: its kind, and its path after that of the field,
/// such as "/1/href".
struct Unfit {
    std::string json;
    std::string kind = "typeMismatch";
    std::string rest{};
};

/// The type of a field. "$" in the strings stands for the field's path, so that no two fields have the same value.
struct Shape {
    /// The value of the field if its key is absent or its value is not accepted.
    std::string empty;
    /// Accepted JSON, and the resulting value.
    std::vector<std::pair<std::string, std::string>> fits;
    std::vector<Unfit> unfit;
};

/// A string; an unsigned integer; a Boolean that defaults to false; a date in the device's zone, which must be UTC; a
/// list of strings that defaults to `[]`, and an optional list.
const Shape& text();
const Shape& unsignedNumber();
const Shape& flag();
const Shape& deviceDateText();
const Shape& texts();
const Shape& optionalTexts();
/// An enumeration: the raw value `raw` is shown as `name`.
Shape rawText(const std::string& raw, const std::string& name);
/// An object. `unfit` lists objects that do not decode; values that are not objects are added.
Shape objectOf(std::vector<std::pair<std::string, std::string>> fits, std::vector<Unfit> unfit = {});
/// A list of objects. `bad` is an element that does not decode.
Shape listOf(const std::string& empty, std::vector<std::pair<std::string, std::string>> fits,
             const Unfit& bad);

enum class Strictness { required, optional, lenient };

/// A stored field.
struct FieldRule {
    std::string name;
    /// The path of its key in the entity: "_links.self.href".
    std::string path;
    Strictness strictness;
    Shape shape;
};

/// An object in the entity whose keys fill fields of the entity.
struct ContainerRule {
    std::string path;
    Strictness strictness;
};

/// The rules of an entity.
struct EntityRules {
    DecodableType type;
    /// The smallest document that decodes.
    std::string minimal;
    /// In declared order.
    std::vector<FieldRule> fields;
    std::vector<ContainerRule> containers{};
    /// Fields that the value shows a second time: the name, and the path of the second place.
    std::vector<std::pair<std::string, std::string>> mirrors{};
};

/// Expects exactly these field names, declared in this order.
void expectDeclaredFields(const EntityRules& rules);

/// Tests each field absent, null, with every wrong type, and valid: alone, and together with all other fields, which
/// must not be affected.
void expectFieldsInEveryState(const EntityRules& rules);

/// Tests each container absent, null, of every type that is not an object, and with an invalid key.
void expectContainersInEveryState(const EntityRules& rules);

/// The ignored keys of an entity's table, as paths relative to the entity.
std::vector<std::string> ignoredKeys(const TypePlan& plan);

/// Expects that only a JSON object decodes.
void expectAnObjectOnly(const DecodableType& type);

/// Expects that of two faulty values the one listed first in `faults` (path and JSON) determines the error, whatever
/// their order in the document.
void expectErrorsInOrder(const EntityRules& rules,
                         const std::vector<std::pair<std::string, std::string>>& faults);

/// The smallest document with every field added, each with its first valid JSON.
std::string fullDocument(const EntityRules& rules);

}  // namespace VanticRestKit::test
