#include <VanticRestKit/platform/json/detail/FastEngine.h>

#include <VanticRestKit/platform/json/detail/FreeForm.h>
#include <VanticRestKit/platform/json/detail/Scanner.h>
#include <VanticRestKit/platform/json/detail/StoreText.h>
#include <VanticRestKit/platform/text/LetterCase.h>

#include <cstring>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace VanticRestKit::json {

namespace {

/// Whether the quoted key at `at` is that of `field`. Never where the key is too long to be compared in place.
inline bool isKeyOf(const FieldPlan& field, const char* at) noexcept {
#if defined(__SSE2__)
    const auto equal = [&](std::size_t from) {
        const __m128i here = _mm_loadu_si128(reinterpret_cast<const __m128i*>(at + from));
        const __m128i there = _mm_loadu_si128(reinterpret_cast<const __m128i*>(field.quoted + from));
        return static_cast<std::uint64_t>(_mm_movemask_epi8(_mm_cmpeq_epi8(here, there)));
    };
    // Both halves whatever the length: a branch on it would be guessed wrong for every other key.
    const std::uint64_t same = equal(0) | equal(16) << 16;
    const std::uint64_t wanted = (std::uint64_t{1} << field.quotedSize) - 1;
    return field.quotedSize != 0 && (same & wanted) == wanted;
#else
    return field.quotedSize != 0 && std::memcmp(at, field.quoted, field.quotedSize) == 0;
#endif
}

}  // namespace

FastEngine::FastEngine(const Data& document)
    : ValueReader(documentStart(document.data(), document.data() + document.size()),
                  document.data() + document.size()),
      document_(document),
      successors_(successorMemory(), KeyTable::none) {
    frames_.resize(16);
}

FastEngine::~FastEngine() {
    // What a broken document leaves half done.
    for (std::size_t i = 0; i < depth_; ++i) {
        const Frame& frame = frames_[i];
        if (frame.choice != nullptr) frame.choice->candidates[frame.candidate].drop(frame.target);
    }
}

bool FastEngine::decode(const TypePlan& plan, void* value) {
    return root(plan, value) && runFrames() && rootDecoded_ && skipSpace(at_) == end_;
}

bool FastEngine::root(const TypePlan& plan, void* value) {
    switch (plan.kind) {
        case ValueKind::nullable: {
            const char* const behind = *at_ == 'n' ? scanLiteral(at_, end_) : nullptr;
            if (behind == nullptr) return root(*plan.wrapped, plan.wrap(value));
            at_ = behind;
            rootDecoded_ = true;
            return true;
        }
        case ValueKind::object: return *at_ == '{' && open(plan, value, nullptr);
        case ValueKind::list: return *at_ == '[' && open(plan, value, nullptr);
        default: rootDecoded_ = held(plan, value, nullptr) == Fit::fits; return rootDecoded_;
    }
}

bool FastEngine::runFrames() {
    while (depth_ != 0) {
        Frame& top = frames_[depth_ - 1];
        if (!(top.plan != nullptr ? objectStep(top) : listStep(top))) return false;
    }
    return true;
}

// Reads on in an object until something inside it opens or it ends. `top` is gone once a frame was pushed.
bool FastEngine::objectStep(Frame& top) {
    const std::size_t depth = depth_;
    bool isFirst = top.isFresh;
    top.isFresh = false;
    const char* at = skipSpace(at_);
    for (;; isFirst = false) {
        if (!isFirst) {
            if (*at == ',') {
                at = skipSpace(at + 1);
            } else if (*at != '}') {
                return false;
            }
        }
        if (*at == '}') {
            at_ = at + 1;
            return endFrame();
        }
        const FieldPlan* field = nullptr;
        if (!key(top, at, field)) return false;
        if (field != nullptr && plainText(top, *field, at)) continue;
        at_ = at;
        if (!(field != nullptr ? fieldValue(top, *field) : skip())) return false;
        if (depth_ != depth) return true;
        if (top.hasFailed) {
            // A root that has failed is the diagnosing engine's, and a failed candidate is given up at once.
            if (depth == 1) return false;
            if (top.choice != nullptr) return endFrame();
        }
        at = skipSpace(at_);
    }
}

// Reads a key and the colon behind it. `field` is the row to fill, or stays null where the value is nobody's.
inline bool FastEngine::key(Frame& top, const char*& at, const FieldPlan*& field) {
    const FieldPlan* const fields = top.plan->fields.data();
    const std::uint8_t guess = successors_[top.plan->memory + top.last];
    if (guess != KeyTable::none && isKeyOf(fields[guess], at)) {
        field = fields + guess;
        at += field->quotedSize;
        top.last = static_cast<std::uint8_t>(guess + 1);
    } else {
        at_ = at;
        if (!scannedKey(top, field)) return false;
        at = at_;
    }
    at = skipSpace(at);
    if (*at != ':') return false;
    at = skipSpace(at + 1);
    if (field == nullptr) return true;

    // The first of two equal keys counts.
    const std::uint64_t bit = std::uint64_t{1} << (top.last - 1);
    const bool isTaken = (top.seen & bit) != 0;
    top.seen |= bit;
    if (isTaken || top.hasFailed || top.isIgnored || field->role == RowRole::unread) field = nullptr;
    return true;
}

// By far the most fields are texts, and by far the most texts need no second look. Reads one of those; then
// `at` is at what follows it.
inline bool FastEngine::plainText(const Frame& top, const FieldPlan& field, const char*& at) {
    if (field.kind != ValueKind::text || *at != '"') return false;
    const StringToken token = scanString(at, end_);
    if (!token.isPlain) return false;
    const auto size = static_cast<std::size_t>(token.close - token.inside);
    storeText(top.target + field.offset, field.isOptional, {token.inside, size}, true);
    at = skipSpace(token.close + 1);
    return true;
}

bool FastEngine::scannedKey(Frame& top, const FieldPlan*& field) {
    if (*at_ != '"') return false;
    const StringToken token = scanString(at_, end_);
    if (token.close == nullptr) return false;
    at_ = token.close + 1;
    std::string_view name(token.inside, static_cast<std::size_t>(token.close - token.inside));
    if (!token.isPlain) {
        const std::optional<std::string_view> text = unescape(token, scratch_);
        if (!text) {
            keyCannotBeRead(top);
            return true;
        }
        name = *text;
    }
    const std::uint8_t place = top.plan->keys.likely(name);
    if (place == KeyTable::none) return true;
    const FieldPlan& likely = top.plan->fields[place];
    const bool isLikely = token.isPlain && likely.quotedSize != 0 ? isKeyOf(likely, token.inside - 1)
                                                                  : likely.key == name;
    if (!isLikely) return true;
    field = &likely;
    successors_[top.plan->memory + top.last] = place;
    top.last = static_cast<std::uint8_t>(place + 1);
    return true;
}

// The opening of the object fails, although much of it may have been read: as if it had never been opened.
void FastEngine::keyCannotBeRead(Frame& top) {
    if (top.isIgnored) return;
    if (top.isInner && top.field->presence == Presence::lenient) {
        resetFields(*top.plan, top.target);
        top.isIgnored = true;
    } else {
        top.hasFailed = true;
    }
}

bool FastEngine::fieldValue(Frame& top, const FieldPlan& field) {
    if (field.role == RowRole::entityCheck) return checkEntity(top);
    if (field.role == RowRole::object) {
        if (*at_ != '{') return unfit(top, field);
        return openInner(field, top.target);
    }
    std::byte* const place = top.target + field.offset;
    switch (field.kind) {
        case ValueKind::object:
            if (*at_ != '{') return unfit(top, field);
            return open(*field.type, field.ops->open(place), &field);
        case ValueKind::list:
            if (*at_ != '[') return unfit(top, field);
            return open(*field.type, field.ops->open(place), &field);
        case ValueKind::choice:
            if (*at_ != '{') return unfit(top, field);
            return openCandidate(*field.type->choice, 0, &field);
        default: {
            const Fit fit = held(*field.type, place, field.isOptional ? field.ops : nullptr);
            if (fit == Fit::fits) return true;
            return fit == Fit::unfit && unfit(top, field);
        }
    }
}

// Steps over a value that does not fit its row.
bool FastEngine::unfit(Frame& top, const FieldPlan& field) {
    const bool isNull = *at_ == 'n';
    const bool isSwallowed =
        field.presence == Presence::lenient || (isNull && field.presence != Presence::required);
    if (!isSwallowed) {
        top.hasFailed = true;
    } else if (field.kind == ValueKind::dictionary) {
        // Of all unfit values only a dictionary may have been filled in part.
        resetField(field, top.target + field.offset);
    } else if (field.setDefault != nullptr) {
        field.setDefault(top.target + field.offset);
    }
    return skip();
}

bool FastEngine::checkEntity(Frame& top) {
    std::string_view name;
    bool mayReadOn = false;
    const Fit fit = readText(name, mayReadOn);
    if (fit == Fit::broken) return false;
    if (fit == Fit::unfit) return skip();
    if (!equalsLowercased(name, top.plan->entityName)) top.hasFailed = true;
    return true;
}

// Reads on in an array until an element opens or it ends. `top` is gone once a frame was pushed.
bool FastEngine::listStep(Frame& top) {
    const std::size_t depth = depth_;
    for (;;) {
        at_ = skipSpace(at_);
        if (top.isFresh) {
            top.isFresh = false;
        } else if (*at_ == ',') {
            at_ = skipSpace(at_ + 1);
        } else if (*at_ != ']') {
            return false;
        }
        if (*at_ == ']') {
            ++at_;
            return endFrame();
        }
        if (top.hasFailed) {
            if (depth == 1 || !skip()) return false;
        } else {
            if (!element(top)) return false;
            if (depth_ != depth) return true;
        }
    }
}

bool FastEngine::element(Frame& top) {
    const TypePlan& type = top.list->element();
    if (type.kind == ValueKind::choice && *at_ == '{') return openCandidate(*type.choice, 0, nullptr);

    const bool opens = (type.kind == ValueKind::object && *at_ == '{') ||
                       (type.kind == ValueKind::list && *at_ == '[');
    const bool isPlain = type.kind != ValueKind::object && type.kind != ValueKind::list &&
                         type.kind != ValueKind::choice;
    if (opens || isPlain) {
        // What is left of the document tells something about a list at its top, and nothing about the others.
        const auto bytesLeft = depth_ <= 2 ? static_cast<std::size_t>(end_ - at_) : 0;
        void* const place =
            top.list->append(top.target, static_cast<std::size_t>(at_ - top.start), bytesLeft);
        if (opens) return open(type, place, nullptr);
        const Fit fit = held(type, place, nullptr);
        if (fit == Fit::fits) return true;
        top.list->removeLast(top.target);
        if (fit == Fit::broken) return false;
    }
    if (!top.list->tolerant) top.hasFailed = true;
    return skip();
}

// A value that holds no others, or one whose inside nobody looks at.
Fit FastEngine::held(const TypePlan& type, void* place, const FieldOps* optional) {
    const bool isSkipped = type.kind == ValueKind::anything || type.kind == ValueKind::attempted ||
                           (type.kind == ValueKind::dictionary && *at_ == '{');
    if (!isSkipped) return plain(type, place, optional);
    const char* const start = at_;
    if (!skip()) return Fit::broken;
    if (type.kind == ValueKind::dictionary) return dictionary(start, optional != nullptr ? optional->open(place) : place);
    if (type.attempt != nullptr) {
        type.attempt({start, static_cast<std::size_t>(at_ - start)}, optional != nullptr ? optional->open(place) : place);
    }
    return Fit::fits;
}

// The free-form object that begins at `start` and was stepped over.
Fit FastEngine::dictionary(const char* start, void* value) {
    auto& values = *static_cast<Dictionary*>(value);
    values.clear();
    if (readDictionary(start, end_, values)) return Fit::fits;
    values.clear();
    at_ = start;
    return Fit::unfit;
}

bool FastEngine::skip() {
    const char* const behind = skipValue(at_, end_, depth_);
    if (behind == nullptr) return false;
    at_ = behind;
    return true;
}

}  // namespace VanticRestKit::json
