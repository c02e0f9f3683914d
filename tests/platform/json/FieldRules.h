#pragma once

/// \file
/// Holds an entity to a table of its fields: name, key, strictness and type. The table is the test's own and never
/// the library's, so that a wrong row there shows.

#include <platform/json/BothEngines.h>
#include <VanticRestKit/platform/json/PlanDeclaration.h>
#include <VanticRestKit/platform/json/ValueText.h>

#include <string>
#include <utility>
#include <vector>

namespace VanticRestKit::test {

/// JSON that is not what a field wants, and how it fails a strict one: the kind of the error, and the rest of its
/// path after the field's own, such as "/1/href".
struct Unfit {
    std::string json;
    std::string kind = "typeMismatch";
    std::string rest{};
};

/// What a field holds. "$" in the texts stands for the field's path, so that no two fields hold the same.
struct Shape {
    /// What the field shows where nothing came, or nothing that fits.
    std::string empty;
    /// JSON that fits, and how the value shows it.
    std::vector<std::pair<std::string, std::string>> fits;
    std::vector<Unfit> unfit;
};

/// A text; an unsigned whole number; a truth value that is false where none came; a date in the device's zone,
/// which must be UTC; a list of texts that is `[]` where none came, and one that is empty.
const Shape& text();
const Shape& unsignedNumber();
const Shape& flag();
const Shape& deviceDateText();
const Shape& texts();
const Shape& optionalTexts();
/// The raw text of a case: `raw` is shown as `name`.
Shape rawText(const std::string& raw, const std::string& name);
/// An object; `unfit` are objects that do not decode, beside whatever is no object.
Shape objectOf(std::vector<std::pair<std::string, std::string>> fits, std::vector<Unfit> unfit = {});
/// A list of objects; `bad` is an element that does not decode.
Shape listOf(const std::string& empty, std::vector<std::pair<std::string, std::string>> fits,
             const Unfit& bad);

enum class Word { required, optional, lenient };

/// A stored field.
struct FieldRule {
    std::string name;
    /// Its keys, from the entity down: "_links.self.href".
    std::string path;
    Word word;
    Shape shape;
};

/// An object inside the entity whose keys fill fields of it.
struct ContainerRule {
    std::string path;
    Word word;
};

/// What an entity is held to.
struct EntityRules {
    DecodableType type;
    /// A document without anything that may be left out.
    std::string least;
    /// In declared order.
    std::vector<FieldRule> fields;
    std::vector<ContainerRule> containers{};
    /// Where a field shows a second time: its name, and the path in the value.
    std::vector<std::pair<std::string, std::string>> mirrors{};
};

/// The fields are declared with these names in this order, and there are no others.
void expectDeclaredFields(const EntityRules& rules);

/// Each field absent, null, of every type that does not fit, and right: alone, and among all the others, which must
/// not notice.
void expectFieldsInEveryState(const EntityRules& rules);

/// Each container absent, null, of every type that is no object, and with a key that cannot be read.
void expectContainersInEveryState(const EntityRules& rules);

/// The ignored keys of an entity's table, as paths relative to the entity.
std::vector<std::string> unreadKeys(const TypePlan& plan);

/// Only a JSON object decodes.
void expectAnObjectOnly(const DecodableType& type);

/// Of two values at fault, the one that is earlier in `faults` (path and JSON) decides the error, whichever comes
/// first in the document.
void expectErrorsInOrder(const EntityRules& rules,
                         const std::vector<std::pair<std::string, std::string>>& faults);

/// A document with the least and every field at its first fit.
std::string fullDocument(const EntityRules& rules);

}  // namespace VanticRestKit::test
