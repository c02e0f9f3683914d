// How the fast engine reads objects, where it spends most of its time.

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

/// The slot index of a field that a key table found; 0, the slot of unknown keys, if it found none.
static_assert(static_cast<std::uint8_t>(KeyTable::none + 1) == 0);
inline std::size_t slotOf(std::uint8_t field) noexcept { return static_cast<std::uint8_t>(field + 1); }

/// Moves from the end of a value to the next key; false if there is none.
inline bool anotherMember(const char*& at) noexcept {
    at = skipSpace(at);
    if (*at != ',') return false;
    at = skipSpace(at + 1);
    return true;
}

/// Reads a plain string whose opening quote is at `at`, and moves past it; false if it is not plain. This is the fast
/// path for most fields. A string that ends within half a block also fits into `std::string` without allocating.
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

/// Reads a number that consists only of digits, as nearly all do, and moves past it.
inline bool plainUnsigned(std::uint64_t& number, const char*& at) noexcept {
    constexpr std::ptrdiff_t maxDigits = 19;
    std::uint64_t value = 0;
    const char* end = at;
    for (; *end >= '0' && *end <= '9'; ++end) {
        value = value * 10 + static_cast<std::uint64_t>(*end - '0');
    }
    const std::ptrdiff_t digits = end - at;
    const bool isOtherSpelling = (*at == '0' && digits != 1) || scanNumber(end) != end;
    if (digits == 0 || digits > maxDigits || isOtherSpelling) return false;
    number = value;
    at = end;
    return true;
}

/// Whether a value of this kind may have changed its field although it did not fit: a dictionary is filled member by
/// member, and a host's conversion function may set the field before it rejects the value.
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

// `objectStep` and `value` are forced inline here: calls between them would cost as much as reading the keys.
bool FastEngine::runFrames() {
    while (depth_ != 0) {
        Frame& top = frames_[depth_ - 1];
        if (!(top.plan != nullptr ? objectStep(top) : listStep(top))) return false;
    }
    return true;
}

// Reads an object until a value in it opens a frame or the object ends. `top` is invalid after a frame was pushed.
[[gnu::always_inline]] inline bool FastEngine::objectStep(Frame& top) {
    const std::size_t depth = depth_;
    const Slot* const slots = top.plan->slots.data();
    const std::uint8_t* const successors = successors_.data() + top.plan->successorsBegin;
    // State that changes with each key is kept in registers.
    std::uint64_t taken = top.hasFailed || top.isIgnored ? everySlot : top.taken;
    std::size_t last = top.last;
    const char* at = skipSpace(at_);
    for (bool more = top.isFresh || anotherMember(at); more; more = anotherMember(at)) {
        std::size_t place = successors[last];
        if (hitRate_ >= perfectHitRate / 2 && isKeyOf(slots[place], at)) {
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
        // The quote is checked first: that does not have to wait for the slot lookup.
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
            // If the root has failed, the diagnosing engine takes over; a failed candidate is given up at once.
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

// A failure inside an inner object makes the entity fail, unless the object itself was ignored.
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
    const std::size_t place = slotOf(plan.keys.candidateIndex({at + 1, size}));
    if (!isQuotedKeyOf(plan.slots[place], at)) return unusualKey(top, at);
    recordSuccessor(top, place);
    return {skipSpace(at + size + 2), place};
}

// Reads any key, including unknown, escaped, malformed and long ones.
FastEngine::Key FastEngine::unusualKey(Frame& top, const char* at) {
    if (*at != '"') return {end_, 0};
    const StringToken token = scanString(at, end_);
    if (token.close == nullptr) return {end_, 0};
    std::string_view name(token.inside, static_cast<std::size_t>(token.close - token.inside));
    Key key{skipSpace(token.close + 1), 0};
    if (!token.isPlain) {
        const std::optional<std::string_view> text = unescape(token, scratch_);
        if (!text) {
            failUnreadableKey(top);
            return key;
        }
        name = *text;
    }
    key.place = slotOf(top.plan->keys.find(name));
    if (key.place != 0) recordSuccessor(top, key.place);
    return key;
}

// Records which key followed which, and updates the hit rate. While the recent predictions were mostly wrong,
// `objectStep` does not use them: a prediction is cheap, but a mispredicted branch is not.
void FastEngine::recordSuccessor(Frame& top, std::size_t place) {
    std::uint8_t& successor = successors_[top.plan->successorsBegin + top.last];
    constexpr unsigned memory = 32;
    hitRate_ -= hitRate_ / memory;
    hitRate_ += successor == place ? perfectHitRate / memory : 0;
    successor = static_cast<std::uint8_t>(place);
    top.last = static_cast<std::uint8_t>(place);
}

// An object with an unreadable key counts as one that could not be opened, even if part of it has been read.
void FastEngine::failUnreadableKey(Frame& top) {
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
            return plainBoolean(*static_cast<bool*>(place), at_) || leafValue(top, field);
        case ValueStep::optionalUnsigned: {
            std::uint64_t number = 0;
            if (!plainUnsigned(number, at_)) return leafValue(top, field);
            *static_cast<std::optional<std::uint64_t>*>(place) = number;
            return true;
        }
        case ValueStep::optionalText:
        case ValueStep::leaf: return leafValue(top, field);
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

// Null is an ordinary value only for a required row.
bool FastEngine::anyValue(Frame& top, const FieldPlan& field) {
    if (*at_ == 'n' && field.presence != Presence::required) return unfit(top, field);
    if (field.type->wrapped == nullptr) return leafValue(top, field);
    return wrapped(*field.type, field.ops->open(top.target + field.offset), &field);
}

bool FastEngine::leafValue(Frame& top, const FieldPlan& field) {
    const Fit fit = leaf(*field.type, top.target + field.offset, field.ops->isOptional ? field.ops : nullptr);
    return fit == Fit::fits || (fit == Fit::unfit && unfit(top, field));
}

// Skips a value that does not fit its row.
bool FastEngine::unfit(Frame& top, const FieldPlan& field) {
    const bool isNull = *at_ == 'n';
    const bool isIgnored =
        field.presence == Presence::lenient || (isNull && field.presence != Presence::required);
    if (!isIgnored) {
        top.hasFailed = true;
    } else if (!isNull && mayBeSet(field.kind)) {
        resetField(field, top.target + field.offset);
    }
    return skip();
}

bool FastEngine::checkEntity(Frame& top) {
    std::string_view name;
    bool isPlain = false;
    const Fit fit = readText(name, isPlain);
    if (fit == Fit::broken) return false;
    if (fit == Fit::unfit) return skip();
    if (!VanticRestKit::detail::equalsLowercased(name, top.plan->entityName)) top.hasFailed = true;
    return true;
}

}  // namespace VanticRestKit::json
