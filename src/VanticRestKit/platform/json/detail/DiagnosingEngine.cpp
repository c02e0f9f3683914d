#include <VanticRestKit/platform/json/detail/DiagnosingEngine.h>

#include <VanticRestKit/platform/date/detail/DeviceDate.h>
#include <VanticRestKit/platform/json/detail/FaultText.h>
#include <VanticRestKit/platform/json/detail/FreeForm.h>
#include <VanticRestKit/platform/json/detail/Scanner.h>
#include <VanticRestKit/platform/text/detail/LetterCase.h>

#include <utility>

namespace VanticRestKit::json {

using Kind = DecodingError::Kind;

namespace {

/// The expectation that is reported for an object with an unreadable key.
constexpr std::string_view readableKeys = "readable keys";
/// The expectation that is reported for a value that exceeds the budget.
constexpr std::string_view withinBudget = "a value within the memory budget";

}  // namespace

DiagnosingEngine::DiagnosingEngine(const Data& document, Report report, std::uint64_t memoryLimit)
    : document_(document), index_(document_), report_(report), memory_(memoryLimit) {}

Diagnosis DiagnosingEngine::run(const TypePlan& plan, void* value) {
    const VanticRestKit::detail::DeviceZoneHold zone;
    Diagnosis diagnosis;
    if (!root(plan, value)) {
        report("failure", failing_.presence);
        diagnosis.error = error();
        diagnosis.path = std::move(failing_.path);
    }
    diagnosis.faults = std::move(faults_);
    return diagnosis;
}

bool DiagnosingEngine::root(const TypePlan& type, void* target) {
    if (!index_.isValid()) return fail(Kind::dataCorrupted, "JSON", "a broken document", Presence::required);
    const bool decoded = value(type, target, index_.root(), false, Presence::required);
    if (!memory_.wasRefused() && !(decoded && memory_.isExceeded())) return decoded;
    path_.clear();
    return fail(Kind::dataCorrupted, withinBudget, "a larger one", Presence::required);
}

// Decodes a value into `target`. `isNamed`: the value belongs to a key, and is not the root or an array element.
bool DiagnosingEngine::value(const TypePlan& type, void* target, Place at, bool isNamed, Presence presence) {
    if (type.kind == ValueKind::object && *at.at == '{') return entity(*type.object, target, at, presence);
    if (type.kind == ValueKind::list && *at.at == '[') return list(*type.list, target, at);
    if (type.wrapped != nullptr) return wrapped(type, target, at, isNamed, presence);
    return leafValue(type, target, at, isNamed, presence);
}

bool DiagnosingEngine::wrapped(const TypePlan& type, void* target, Place at, bool isNamed,
                               Presence presence) {
    if (type.kind == ValueKind::nullable && *at.at == 'n') return true;
    const std::uint64_t memoryBefore = memory_.used();
    if (value(*type.wrapped, type.wrap(target), at, isNamed, presence)) return true;
    if (type.kind != ValueKind::attempted || memory_.wasRefused()) return false;
    type.forget(target);
    memory_.giveBack(memoryBefore);
    ignoreFault("empty");
    return true;
}

// Decodes a value that needs no further recursion. This and the other functions that do not recurse are not inlined,
// which keeps the stack frames of the recursive functions small.
[[gnu::noinline]] bool DiagnosingEngine::leafValue(const TypePlan& type, void* target, Place at, bool isNamed,
                                                   Presence presence) {
    const char* const end = document_.data() + document_.size();
    if (type.kind == ValueKind::dictionary && *at.at == '{') {
        return dictionary(*static_cast<Dictionary*>(target), at, presence);
    }
    if (type.kind == ValueKind::verbatim) {
        type.fromJSON({at.at, static_cast<std::size_t>(skipValue(at.at, end, 0) - at.at)}, target);
        return true;
    }
    ValueReader reader(at.at, end, memory_);
    if (reader.plain(type, target, nullptr) == Fit::fits) return true;
    return failUnfit(type, at, isNamed, presence);
}

[[gnu::noinline]] bool DiagnosingEngine::dictionary(Dictionary& values, Place at, Presence presence) {
    values.clear();
    std::vector<BrokenMember> broken;
    if (!readDictionary(at.at, document_.data() + document_.size(), values, memory_, &broken)) {
        return fail(Kind::dataCorrupted, readableKeys, "object", presence);
    }
    for (const BrokenMember& member : broken) {
        enter(member.key);
        fail(Kind::dataCorrupted, *member.at == '"' ? "String" : "Int or Double", jsonTypeAt(member.at),
             Presence::lenient);
        ignoreFault("dropped");
        path_.pop_back();
    }
    return true;
}

bool DiagnosingEngine::entity(const ObjectPlan& plan, void* target, Place at, Presence presence) {
    std::vector<Place> found;
    const std::size_t resetsBefore = resets_.size();
    if (!open(plan, at, presence, found)) return false;
    if (plan.hasDefaults) setDefaults(plan, target);
    const bool isGood = rows(plan, plan, target, found);
    if (isGood) derive(plan, target, resetsBefore);
    resets_.resize(resetsBefore);
    return isGood;
}

// A derivation may have changed a field after it was reset, so report the value that it holds now.
[[gnu::noinline]] void DiagnosingEngine::derive(const ObjectPlan& plan, void* target,
                                                std::size_t resetsBefore) {
    if (plan.derivations.empty()) return;
    for (const auto derivation : plan.derivations) derivation(target);
    for (std::size_t i = resetsBefore; i < resets_.size(); ++i) {
        faults_[resets_[i].fault].became = currentValue(*resets_[i].field, resets_[i].place);
    }
}

// Finds the value of each row, and fails if any key of the object cannot be read.
[[gnu::noinline]] bool DiagnosingEngine::open(const ObjectPlan& plan, Place at, Presence presence,
                                              std::vector<Place>& found) {
    found.assign(plan.fields.size(), Place{});
    const char* const end = document_.data() + document_.size();
    std::string scratch;
    DocumentIndex::Member member;
    for (bool more = index_.first(at, member); more; more = index_.next(member)) {
        const StringToken token = scanString(member.key, end);
        const std::optional<std::string_view> key = unescape(token, scratch);
        if (!key) return fail(Kind::dataCorrupted, readableKeys, "object", presence);
        const std::uint8_t place = plan.keys.find(*key);
        // The first of several equal keys is used.
        if (place != KeyTable::none && found[place].at == nullptr) found[place] = member.value;
    }
    return true;
}

bool DiagnosingEngine::rows(const ObjectPlan& plan, const ObjectPlan& entity, void* target,
                            const std::vector<Place>& found) {
    for (std::size_t i = 0; i < plan.fields.size(); ++i) {
        const FieldPlan& field = plan.fields[i];
        if (field.role == RowRole::unread) continue;
        enter(field.key);
        const bool isGood = row(field, entity, target, found[i]);
        path_.pop_back();
        if (!isGood) return false;
    }
    return true;
}

[[gnu::noinline]] void DiagnosingEngine::enter(std::string_view key) { path_.emplace_back(std::string(key)); }

bool DiagnosingEngine::row(const FieldPlan& field, const ObjectPlan& entity, void* target, Place at) {
    const bool isRequired = field.presence == Presence::required;
    if (at.at == nullptr) {
        if (!isRequired) return true;
        return fail(Kind::keyNotFound, field.type != nullptr ? field.type->name : "Object", "nothing",
                    field.presence);
    }
    if (*at.at == 'n' && !isRequired) return true;
    switch (field.role) {
        case RowRole::entityCheck: return entityCheck(entity, at);
        case RowRole::object: return innerRow(field, entity, target, at);
        default: return valueRow(field, target, at);
    }
}

[[gnu::noinline]] bool DiagnosingEngine::entityCheck(const ObjectPlan& entity, Place at) {
    ValueReader reader(at.at, document_.data() + document_.size(), memory_);
    std::string_view name;
    bool isPlain = false;
    if (reader.readText(name, isPlain) != Fit::fits) {
        fail(Kind::typeMismatch, "String", jsonTypeAt(at.at), Presence::lenient);
        ignoreFault("no check");
        return true;
    }
    if (VanticRestKit::detail::equalsLowercased(name, entity.entityName)) return true;
    std::string text(name);
    fail(Kind::dataCorrupted, entity.entityName, text, Presence::required);
    failing_.path.pop_back();
    failing_.mismatch = entity.mismatch(std::move(text));
    return false;
}

// A lenient row ignores an object that cannot be opened, but not a failure of a row inside it.
bool DiagnosingEngine::innerRow(const FieldPlan& field, const ObjectPlan& entity, void* target, Place at) {
    std::vector<Place> found;
    const TypePlan object{.kind = ValueKind::object, .name = "Object"};
    const bool isOpen = *at.at == '{' ? open(*field.inner, at, field.presence, found)
                                      : failUnfit(object, at, true, field.presence);
    if (isOpen) return rows(*field.inner, entity, target, found);
    if (field.presence != Presence::lenient) return false;
    ignoreFault("empty");
    return true;
}

bool DiagnosingEngine::valueRow(const FieldPlan& field, void* target, Place at) {
    void* const place = static_cast<std::byte*>(target) + field.offset;
    const std::uint64_t memoryBefore = memory_.used();
    if (valueInto(field, place, at)) return true;
    if (field.presence != Presence::lenient || memory_.wasRefused()) return false;
    ignoreFieldFault(field, place);
    memory_.giveBack(memoryBefore);
    return true;
}

[[gnu::noinline]] void DiagnosingEngine::ignoreFieldFault(const FieldPlan& field, void* place) {
    resetField(field, place);
    ignoreFault(currentValue(field, place));
    if (report_ == Report::everything) resets_.push_back({faults_.size() - 1, &field, place});
}

bool DiagnosingEngine::valueInto(const FieldPlan& field, void* place, Place at) {
    if (field.kind == ValueKind::choice) return choiceInto(*field.type->choice, place, at);
    return value(*field.type, field.ops->open(place), at, true, field.presence);
}

[[gnu::noinline]] bool DiagnosingEngine::choiceInto(const ChoicePlan& plan, void* fieldOrList, Place at) {
    const Candidate* chosen = nullptr;
    void* made = nullptr;
    if (!choice(plan, at, chosen, made)) return false;
    chosen->keep(made, fieldOrList);
    return true;
}

bool DiagnosingEngine::list(const ListPlan& plan, void* target, Place at) {
    std::size_t place = 0;
    Place element{};
    for (bool more = index_.first(at, element); more; more = index_.next(element), ++place) {
        path_.emplace_back(place);
        const bool isGood =
            this->element(plan, target, element, static_cast<std::size_t>(element.at - at.at));
        const bool isDropped = !isGood && plan.tolerant && !memory_.wasRefused();
        if (isDropped) ignoreFault("dropped");
        path_.pop_back();
        if (!isGood && !isDropped) return false;
    }
    return true;
}

bool DiagnosingEngine::element(const ListPlan& plan, void* target, Place at, std::size_t bytesRead) {
    const TypePlan& type = plan.element();
    if (type.kind == ValueKind::choice) return choiceInto(*type.choice, target, at);
    // Check first, so that the list does not grow for a value of the wrong type.
    const bool opens =
        type.kind == ValueKind::object ? *at.at == '{' : type.kind != ValueKind::list || *at.at == '[';
    if (!opens) return failUnfit(type, at, false, Presence::required);
    void* const place = appended(plan, target, at, bytesRead);
    if (place == nullptr) return false;
    const std::uint64_t memoryBefore = memory_.used();
    if (value(type, place, at, false, Presence::required)) return true;
    plan.removeLast(target);
    memory_.giveBack(memoryBefore);
    return false;
}

// Estimates the rest of the list like the fast engine, so that both count the same memory.
[[gnu::noinline]] void* DiagnosingEngine::appended(const ListPlan& plan, void* list, Place at,
                                                   std::size_t bytesRead) {
    const std::size_t bytesLeft =
        path_.size() <= 2 ? document_.size() - static_cast<std::size_t>(at.at - document_.data()) : 0;
    return plan.append(list, bytesRead, bytesLeft, memory_);
}

bool DiagnosingEngine::choice(const ChoicePlan& plan, Place at, const Candidate*& chosen, void*& made) {
    for (std::size_t i = 0; i < plan.candidates.size(); ++i) {
        if ((failedCandidates_.failedAt(at.at, plan) >> i & 1) != 0) continue;
        if (candidate(plan, i, at, made)) {
            chosen = &plan.candidates[i];
            return true;
        }
        if (memory_.wasRefused()) return false;
    }
    return failChoice(plan, at);
}

// Tries one candidate. A failed one leaves no faults and no memory in use.
bool DiagnosingEngine::candidate(const ChoicePlan& plan, std::size_t place, Place at, void*& made) {
    const Candidate& type = plan.candidates[place];
    const std::size_t faultsBefore = faults_.size();
    const std::uint64_t memoryBefore = memory_.used();
    if (!memory_.take(type.size)) return false;
    made = type.make();
    failedCandidates_.begin();
    const bool isGood = value(type.type(), made, at, true, Presence::lenient);
    failedCandidates_.end(at.at, plan, place, !isGood);
    if (isGood) return true;
    type.drop(made);
    memory_.giveBack(memoryBefore);
    faults_.resize(faultsBefore);
    return false;
}

[[gnu::noinline]] bool DiagnosingEngine::failChoice(const ChoicePlan& plan, Place at) {
    std::string names;
    for (const Candidate& candidate : plan.candidates) {
        names += names.empty() ? "" : " or ";
        names += candidate.type().name;
    }
    return fail(Kind::typeMismatch, names, jsonTypeAt(at.at), Presence::lenient);
}

[[gnu::noinline]] bool DiagnosingEngine::fail(Kind kind, std::string_view expected, std::string_view found,
                                              Presence presence) {
    failing_ = {kind, path_, presence, std::string(expected), std::string(found), std::nullopt};
    // Nested types are shown as "Outer.Inner", as in the texts of the errors.
    std::string& name = failing_.expected;
    for (auto at = name.find("::"); at != std::string::npos; at = name.find("::", at))
        name.replace(at, 2, ".");
    return false;
}

[[gnu::noinline]] bool DiagnosingEngine::failUnfit(const TypePlan& type, Place at, bool isNamed,
                                                   Presence presence) {
    const std::string_view found = jsonTypeAt(at.at);
    Kind kind = found == jsonTypeOf(type.kind) ? Kind::dataCorrupted : Kind::typeMismatch;
    // Null in place of an object is a `typeMismatch` at the root and in arrays, and `valueNotFound` under a key.
    if (found == "null" && (isNamed || !isObject(type.kind))) kind = Kind::valueNotFound;
    return fail(kind, kind == Kind::typeMismatch ? expectedType(type) : type.name, found, presence);
}

[[gnu::noinline]] void DiagnosingEngine::ignoreFault(std::string_view became) {
    report(std::string(became), Presence::lenient);
}

void DiagnosingEngine::report(std::string became, Presence presence) {
    if (report_ == Report::error) return;
    faults_.push_back({failing_.path, presence, failing_.expected, failing_.found, std::move(became)});
}

Error DiagnosingEngine::error() const {
    if (failing_.mismatch) return *failing_.mismatch;
    std::string text;
    switch (failing_.kind) {
        case Kind::keyNotFound:
            text = "No value is there for the key \"" + *failing_.path.back().key() + "\".";
            break;
        case Kind::valueNotFound: text = "Expected " + failing_.expected + " but found null instead."; break;
        case Kind::typeMismatch:
            text = "Expected " + failing_.expected + " but found " + failing_.found + " instead.";
            break;
        case Kind::dataCorrupted:
            if (!index_.isValid()) {
                text = "The document is not valid JSON.";
            } else if (failing_.expected == withinBudget) {
                text = "The value takes more than the decoder's memory budget of " +
                       std::to_string(memory_.limit()) + " bytes.";
            } else if (failing_.expected == readableKeys) {
                text = "The object has a key that cannot be read.";
            } else {
                text = "The " + failing_.found + " cannot be read as " + failing_.expected + ".";
            }
            break;
    }
    return DecodingError(failing_.kind, failing_.path, std::move(text));
}

}  // namespace VanticRestKit::json
