#include <VanticRestKit/platform/json/detail/FastEngine.h>

#include <VanticRestKit/platform/json/detail/Scanner.h>
#include <VanticRestKit/platform/text/LetterCase.h>

#include <cstring>

namespace VanticRestKit::json {

namespace {

/// Whether the quoted key at `at` is that of `field`.
inline bool isKeyOf(const FieldPlan& field, const char* at) noexcept {
    return field.quotedSize != 0 && std::memcmp(at, field.quoted, field.quotedSize) == 0;
}

}  // namespace

FastEngine::FastEngine(const Data& document)
    : ValueReader(documentStart(document.data(), document.data() + document.size()),
                  document.data() + document.size()),
      document_(document),
      successors_(successorMemory(), KeyTable::none) {
    frames_.reserve(16);
}

FastEngine::~FastEngine() {
    // What a broken document leaves half done.
    for (const Frame& frame : frames_) {
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
        case ValueKind::object: return *at_ == '{' && push(childOf(plan, value, nullptr));
        case ValueKind::list: return *at_ == '[' && push(childOf(plan, value, nullptr));
        default: rootDecoded_ = held(plan, value, nullptr) == Fit::fits; return rootDecoded_;
    }
}

bool FastEngine::runFrames() {
    while (!frames_.empty()) {
        Frame& top = frames_.back();
        if (!(top.plan != nullptr ? objectStep(top) : listStep(top))) return false;
    }
    return true;
}

// Reads on in an object until something inside it opens or it ends. `top` is gone once a frame was pushed.
bool FastEngine::objectStep(Frame& top) {
    const std::size_t depth = frames_.size();
    for (;;) {
        at_ = skipSpace(at_);
        if (top.isFresh) {
            top.isFresh = false;
        } else if (*at_ == ',') {
            at_ = skipSpace(at_ + 1);
        } else if (*at_ != '}') {
            return false;
        }
        if (*at_ == '}') {
            ++at_;
            return endFrame();
        }
        const FieldPlan* field = nullptr;
        if (!key(top, field)) return false;
        if (field == nullptr) {
            if (!skip()) return false;
        } else {
            if (!fieldValue(top, *field)) return false;
            if (frames_.size() != depth) return true;
        }
        if (top.hasFailed) {
            // A root that has failed is the diagnosing engine's, and a failed candidate is given up at once.
            if (depth == 1) return false;
            if (top.choice != nullptr) return endFrame();
        }
    }
}

// Reads a key and the colon behind it. `field` is the row to fill, or stays null where the value is nobody's.
bool FastEngine::key(Frame& top, const FieldPlan*& field) {
    const std::uint8_t guess = successors_[top.plan->memory + top.last];
    if (guess != KeyTable::none && isKeyOf(top.plan->fields[guess], at_)) {
        field = &top.plan->fields[guess];
        at_ += field->quotedSize;
        top.last = static_cast<std::uint8_t>(guess + 1);
    } else if (!scannedKey(top, field)) {
        return false;
    }
    at_ = skipSpace(at_);
    if (*at_ != ':') return false;
    at_ = skipSpace(at_ + 1);
    if (field == nullptr) return true;

    // The first of two equal keys counts.
    const std::uint64_t bit = std::uint64_t{1} << (top.last - 1);
    const bool isTaken = (top.seen & bit) != 0;
    top.seen |= bit;
    if (isTaken || top.hasFailed || top.isIgnored || field->role == RowRole::unread) field = nullptr;
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
    const std::uint8_t place = top.plan->keys.find(name);
    if (place == KeyTable::none) return true;
    field = &top.plan->fields[place];
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
        Frame inner;
        inner.plan = field.inner;
        inner.target = top.target;
        inner.field = &field;
        inner.isInner = true;
        return push(inner);
    }
    std::byte* const place = top.target + field.offset;
    switch (field.kind) {
        case ValueKind::object:
            if (*at_ != '{') return unfit(top, field);
            return push(childOf(*field.type, field.ops->open(place), &field));
        case ValueKind::list:
            if (*at_ != '[') return unfit(top, field);
            return push(childOf(*field.type, field.ops->open(place), &field));
        case ValueKind::choice:
            if (*at_ != '{') return unfit(top, field);
            return pushCandidate(*field.type->choice, 0, &field);
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
    const std::size_t depth = frames_.size();
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
            if (frames_.size() != depth) return true;
        }
    }
}

bool FastEngine::element(Frame& top) {
    const TypePlan& type = top.list->element();
    if (type.kind == ValueKind::choice && *at_ == '{') return pushCandidate(*type.choice, 0, nullptr);

    const bool opens = (type.kind == ValueKind::object && *at_ == '{') ||
                       (type.kind == ValueKind::list && *at_ == '[');
    const bool isPlain = type.kind != ValueKind::object && type.kind != ValueKind::list &&
                         type.kind != ValueKind::choice;
    if (opens || isPlain) {
        void* const place = top.list->append(top.target, static_cast<std::size_t>(at_ - top.start),
                                             static_cast<std::size_t>(end_ - at_));
        if (opens) return push(childOf(type, place, nullptr));
        const Fit fit = held(type, place, nullptr);
        if (fit == Fit::fits) return true;
        top.list->removeLast(top.target);
        if (fit == Fit::broken) return false;
    }
    if (!top.list->tolerant) top.hasFailed = true;
    return skip();
}

FastEngine::Frame FastEngine::childOf(const TypePlan& type, void* target, const FieldPlan* field) const {
    Frame frame;
    frame.plan = type.object;
    frame.list = type.list;
    frame.target = static_cast<std::byte*>(target);
    frame.field = field;
    return frame;
}

bool FastEngine::push(const Frame& frame) {
    if (frames_.size() == deepest) return false;
    frames_.push_back(frame);
    Frame& top = frames_.back();
    top.start = at_++;
    if (top.plan == nullptr) return true;
    // A plan made on first use during this decode has its memory behind all that was known when it began.
    const std::size_t needed = top.plan->memory + top.plan->fields.size() + 1;
    if (successors_.size() < needed) successors_.resize(needed, KeyTable::none);
    if (top.plan->hasDefaults) setDefaults(*top.plan, top.target);
    return true;
}

bool FastEngine::pushCandidate(const ChoicePlan& choice, std::size_t candidate, const FieldPlan* field) {
    const Candidate& type = choice.candidates[candidate];
    Frame frame = childOf(type.type(), type.make(), field);
    frame.choice = &choice;
    frame.candidate = static_cast<std::uint8_t>(candidate);
    if (push(frame)) return true;
    type.drop(frame.target);
    return false;
}

bool FastEngine::endFrame() {
    const Frame ended = frames_.back();
    frames_.pop_back();
    if (ended.plan == nullptr) {
        deliver(ended.field, true, ended.hasFailed);
        return true;
    }
    const bool isComplete = (ended.seen & ended.plan->required) == ended.plan->required;
    const bool hasFailed = ended.hasFailed || !isComplete;
    if (ended.isInner) {
        if (hasFailed && !ended.isIgnored) frames_.back().hasFailed = true;
        return true;
    }
    if (!hasFailed) {
        for (const auto derive : ended.plan->derivations) derive(ended.target);
    }
    if (ended.choice != nullptr) return endCandidate(ended, hasFailed);
    deliver(ended.field, true, hasFailed);
    return true;
}

// A candidate that decoded is kept; else the next one begins at the same place.
bool FastEngine::endCandidate(const Frame& ended, bool hasFailed) {
    const Candidate& type = ended.choice->candidates[ended.candidate];
    if (!hasFailed) {
        Frame& around = frames_.back();
        type.keep(ended.target, around.target + (ended.field != nullptr ? ended.field->offset : 0));
        return true;
    }
    type.drop(ended.target);
    at_ = ended.start;
    const std::size_t next = std::size_t{ended.candidate} + 1;
    if (next < ended.choice->candidates.size()) return pushCandidate(*ended.choice, next, ended.field);
    deliver(ended.field, false, true);
    return skip();
}

// Tells what lies around a value how it ended. `isStored`: a failed value lies in its place and must go.
void FastEngine::deliver(const FieldPlan* field, bool isStored, bool hasFailed) {
    if (frames_.empty()) {
        rootDecoded_ = !hasFailed;
        return;
    }
    if (!hasFailed) return;
    Frame& around = frames_.back();
    const bool isSwallowed = field != nullptr ? field->presence == Presence::lenient : around.list->tolerant;
    if (!isSwallowed) {
        around.hasFailed = true;
    } else if (!isStored) {
        return;
    } else if (field == nullptr) {
        around.list->removeLast(around.target);
    } else {
        std::byte* const place = around.target + field->offset;
        field->ops->reset(place);
        if (field->setDefault != nullptr) field->setDefault(place);
    }
}

// A value that holds no others, or one whose inside nobody looks at.
Fit FastEngine::held(const TypePlan& type, void* place, const FieldOps* optional) {
    if (type.kind != ValueKind::anything) return plain(type, place, optional);
    return skip() ? Fit::fits : Fit::broken;
}

bool FastEngine::skip() {
    const char* const behind = skipValue(at_, end_, frames_.size());
    if (behind == nullptr) return false;
    at_ = behind;
    return true;
}

}  // namespace VanticRestKit::json
