// How the fast engine reads objects: where most of its time goes.

#include <VanticRestKit/platform/json/detail/FastEngine.h>

#include <VanticRestKit/platform/json/detail/Scanner.h>
#include <VanticRestKit/platform/json/detail/StoreText.h>
#include <VanticRestKit/platform/text/detail/LetterCase.h>

#include <cstring>
#include <optional>
#include <string_view>
#include <utility>

namespace VanticRestKit::json {

namespace {

constexpr std::uint64_t everySlot = ~std::uint64_t{0};

/// Whether the bytes at `at` are the quoted key of `slot` and the colon after it.
inline bool isKeyOf(const Slot& slot, const char* at) noexcept {
    return scan::startsWith(at, {slot.quoted, slot.quotedSize, slot.quotedBytes});
}

/// Whether the bytes at `at` are the quoted key of `slot`.
inline bool isQuotedKeyOf(const Slot& slot, const char* at) noexcept {
    return scan::startsWith(at, {slot.quoted, slot.quotedSize - std::size_t{1}, slot.quotedBytes >> 1});
}

/// The slot of a field that a key table found, that of nobody where it found none.
static_assert(static_cast<std::uint8_t>(KeyTable::none + 1) == 0);
inline std::size_t slotOf(std::uint8_t field) noexcept { return static_cast<std::uint8_t>(field + 1); }

/// Moves from behind a value to the next key, or stays where there is none.
inline bool anotherMember(const char*& at) noexcept {
    at = skipSpace(at);
    if (*at != ',') return false;
    at = skipSpace(at + 1);
    return true;
}

/// By far the most fields are texts, and by far the most texts need no second look. Reads one of those, whose
/// quote is at `at`, and moves behind it. A text that ends within half a block is also one that a string
/// holds without allocating.
inline bool plainText(std::optional<std::string>& field, const char*& at, const char* end,
                      MemoryBudget& memory) {
    static_assert(shortText + 1 == scan::bytesOfHalf);
    const char* const inside = at + 1;
    const auto stops = scan::stopsOfHalf(inside);
    if (stops != 0) {
        const auto size = scan::firstOfHalf(stops);
        if (inside[size] != '"') return false;
        storeShortText(field, inside, size);
        at = inside + size + 1;
        return true;
    }
    const StringToken token = scanString(inside, inside + scan::bytesOfHalf, end);
    if (!token.isPlain) return false;
    const auto size = static_cast<std::size_t>(token.close - inside);
    memory.note(size);
    storeLongText(field, inside, size);
    at = token.close + 1;
    return true;
}

/// Reads a number of a few digits and nothing else, as nearly all are, and moves behind it.
inline bool plainUnsigned(std::uint64_t& number, const char*& at) noexcept {
    constexpr std::ptrdiff_t mostDigits = 19;
    std::uint64_t value = 0;
    const char* behind = at;
    for (; *behind >= '0' && *behind <= '9'; ++behind) {
        value = value * 10 + static_cast<std::uint64_t>(*behind - '0');
    }
    const std::ptrdiff_t digits = behind - at;
    const bool isSpelledOtherwise = (*at == '0' && digits != 1) || scanNumber(behind) != behind;
    if (digits == 0 || digits > mostDigits || isSpelledOtherwise) return false;
    number = value;
    at = behind;
    return true;
}

/// Whether a value of this kind that does not fit may have changed its field: a dictionary is filled member by member,
/// and the function of a host that reads a value may set the field before it refuses the value.
inline bool mayBeSet(ValueKind kind) noexcept {
    return kind == ValueKind::dictionary || kind == ValueKind::convertedText ||
           kind == ValueKind::convertedNumber;
}

inline bool plainBoolean(bool& truth, const char*& at) noexcept {
    if (std::memcmp(at, "true", 4) == 0) {
        truth = true;
        at += 4;
        return true;
    }
    if (std::memcmp(at, "false", 5) != 0) return false;
    truth = false;
    at += 5;
    return true;
}

}  // namespace

// Everything that an open object needs is in one function: calls between objects would cost as much as their
// keys.
bool FastEngine::runFrames() {
    while (depth_ != 0) {
        Frame& top = frames_[depth_ - 1];
        if (!(top.plan != nullptr ? objectStep(top) : listStep(top))) return false;
    }
    return true;
}

// Reads on in an object until something inside it opens or it ends. `top` is gone once a frame was pushed.
[[gnu::always_inline]] inline bool FastEngine::objectStep(Frame& top) {
    const std::size_t depth = depth_;
    const Slot* const slots = top.plan->slots.data();
    const std::uint8_t* const successors = successors_.data() + top.plan->memory;
    // What changes with each key stays out of memory.
    std::uint64_t taken = top.hasFailed || top.isIgnored ? everySlot : top.taken;
    std::size_t last = top.last;
    const char* at = skipSpace(at_);
    for (bool more = top.isFresh || anotherMember(at); more; more = anotherMember(at)) {
        std::size_t place = successors[last];
        if (rightness_ >= alwaysRight / 2 && isKeyOf(slots[place], at)) {
            at = skipSpace(at + slots[place].quotedSize);
            last = place;
        } else if (*at != '}') {
            top.last = static_cast<std::uint8_t>(last);
            const Key key = scannedKey(top, at);
            if (*key.colon != ':') return false;
            at = skipSpace(key.colon + 1);
            place = key.place;
            last = top.last;
        } else {
            break;
        }
        const Slot& slot = slots[place];
        const bool isTaken = (taken >> place & 1) != 0;
        taken |= std::uint64_t{1} << place;
        // The quote is asked for first: it is there long before it is known whose key this is.
        if (*at == '"' && !isTaken && slot.step == ValueStep::optionalText &&
            plainText(*reinterpret_cast<std::optional<std::string>*>(top.target + slot.offset), at, end_,
                      memory_)) {
            continue;
        }
        at_ = at;
        top.isFresh = false;
        top.taken = taken;
        top.last = static_cast<std::uint8_t>(last);
        if (!(isTaken ? skip() : value(top, slot))) return false;
        if (depth_ != depth) return true;
        if (top.hasFailed || top.isIgnored) {
            taken = everySlot;
            // A root that has failed is the diagnosing engine's, and a failed candidate is given up at once.
            if (top.hasFailed && depth == 1 && !top.isAttempt) return false;
            if (top.hasFailed && top.choice != nullptr) return endFrame();
        }
        at = at_;
    }
    if (*at != '}') return false;
    top.taken = taken;
    at_ = at + 1;
    if (!top.isInner) return endFrame();
    --depth_;
    endInner(top);
    return true;
}

// What fails inside an inner object fails the entity, unless the object could not even be opened.
inline void FastEngine::endInner(const Frame& ended) {
    const bool hasFailed = ended.hasFailed || (ended.taken & ended.plan->required) != ended.plan->required;
    if (hasFailed && !ended.isIgnored) frames_[depth_ - 1].hasFailed = true;
}

// Reads a key that was not the one expected.
FastEngine::Key FastEngine::scannedKey(Frame& top, const char* at) {
    const ObjectPlan& plan = *top.plan;
    const std::uint32_t quotes = scan::quotes(at + 1);
    if (quotes == 0) return unusualKey(top, at);
    const auto size = scan::first(quotes);
    const std::size_t place = slotOf(plan.keys.likely({at + 1, size}));
    if (!isQuotedKeyOf(plan.slots[place], at)) return unusualKey(top, at);
    remember(top, place);
    return {skipSpace(at + size + 2), place};
}

// Any key: one that is nobody's, is spelled with escapes, is broken or is a long one.
FastEngine::Key FastEngine::unusualKey(Frame& top, const char* at) {
    if (*at != '"') return {end_, 0};
    const StringToken token = scanString(at, end_);
    if (token.close == nullptr) return {end_, 0};
    std::string_view name(token.inside, static_cast<std::size_t>(token.close - token.inside));
    Key key{skipSpace(token.close + 1), 0};
    if (!token.isPlain) {
        const std::optional<std::string_view> text = unescape(token, scratch_);
        if (!text) {
            keyCannotBeRead(top);
            return key;
        }
        name = *text;
    }
    key.place = slotOf(top.plan->keys.find(name));
    if (key.place != 0) remember(top, key.place);
    return key;
}

// Notes which key followed which. Where the last guesses were mostly wrong there are no more for a while: a
// guess costs little, but whether it is right then decides a branch that nobody can foresee.
void FastEngine::remember(Frame& top, std::size_t place) {
    std::uint8_t& successor = successors_[top.plan->memory + top.last];
    constexpr unsigned memory = 32;
    rightness_ -= rightness_ / memory;
    rightness_ += successor == place ? alwaysRight / memory : 0;
    successor = static_cast<std::uint8_t>(place);
    top.last = static_cast<std::uint8_t>(place);
}

// The opening of the object fails, although much of it may have been read: as if it had never been opened.
void FastEngine::keyCannotBeRead(Frame& top) {
    if (top.isIgnored) return;
    if (top.isInner && top.field->presence == Presence::lenient) {
        resetFields(*top.plan, top.target);
        memory_.giveBack(top.memoryBefore);
        top.isIgnored = true;
    } else {
        top.hasFailed = true;
    }
}

[[gnu::always_inline]] inline bool FastEngine::value(Frame& top, const Slot& slot) {
    const FieldPlan& field = *slot.field;
    void* const place = top.target + slot.offset;
    switch (slot.step) {
        case ValueStep::boolean:
            return plainBoolean(*static_cast<bool*>(place), at_) || heldValue(top, field);
        case ValueStep::optionalUnsigned: {
            std::uint64_t number = 0;
            if (!plainUnsigned(number, at_)) return heldValue(top, field);
            *static_cast<std::optional<std::uint64_t>*>(place) = number;
            return true;
        }
        case ValueStep::optionalText:
        case ValueStep::held: return heldValue(top, field);
        case ValueStep::inner: return *at_ == '{' ? openInner(field, top.target) : unfit(top, field);
        case ValueStep::object:
            return *at_ == '{' ? open(*field.type, field.ops->open(place), &field) : unfit(top, field);
        case ValueStep::list:
            return *at_ == '[' ? open(*field.type, field.ops->open(place), &field) : unfit(top, field);
        case ValueStep::choice:
            return *at_ == '{' ? openChoice(*field.type->choice, &field) : unfit(top, field);
        case ValueStep::any: return anyValue(top, field);
        case ValueStep::entityCheck: return checkEntity(top);
    }
    return false;
}

// Only to a required row is null a value like any other.
bool FastEngine::anyValue(Frame& top, const FieldPlan& field) {
    if (*at_ == 'n' && field.presence != Presence::required) return unfit(top, field);
    if (field.type->wrapped == nullptr) return heldValue(top, field);
    return wrapped(*field.type, field.ops->open(top.target + field.offset), &field);
}

bool FastEngine::heldValue(Frame& top, const FieldPlan& field) {
    const Fit fit = held(*field.type, top.target + field.offset, field.ops->isOptional ? field.ops : nullptr);
    return fit == Fit::fits || (fit == Fit::unfit && unfit(top, field));
}

// Steps over a value that does not fit its row.
bool FastEngine::unfit(Frame& top, const FieldPlan& field) {
    const bool isNull = *at_ == 'n';
    const bool isSwallowed =
        field.presence == Presence::lenient || (isNull && field.presence != Presence::required);
    if (!isSwallowed) {
        top.hasFailed = true;
    } else if (!isNull && mayBeSet(field.kind)) {
        resetField(field, top.target + field.offset);
    }
    return skip();
}

bool FastEngine::checkEntity(Frame& top) {
    std::string_view name;
    bool mayReadOn = false;
    const Fit fit = readText(name, mayReadOn);
    if (fit == Fit::broken) return false;
    if (fit == Fit::unfit) return skip();
    if (!VanticRestKit::detail::equalsLowercased(name, top.plan->entityName)) top.hasFailed = true;
    return true;
}

}  // namespace VanticRestKit::json
