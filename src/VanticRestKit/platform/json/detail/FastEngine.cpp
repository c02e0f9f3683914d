#include <VanticRestKit/platform/json/detail/FastEngine.h>

#include <VanticRestKit/platform/json/detail/FreeForm.h>
#include <VanticRestKit/platform/json/detail/Scanner.h>
#include <VanticRestKit/platform/json/detail/StoreText.h>

#include <algorithm>
#include <string>

namespace VanticRestKit::json {

FastEngine::FastEngine(const Data& document, std::uint64_t memoryLimit)
    : ValueReader(documentStart(document.data(), document.data() + document.size()),
                  document.data() + document.size(), memory_),
      document_(document),
      memory_(memoryLimit),
      successors_(successorCount(), 0) {}

FastEngine::~FastEngine() {
    // Frees the candidates that a malformed document leaves unfinished.
    for (std::size_t i = 0; i < depth_; ++i) {
        const Frame& frame = frames_[i];
        if (frame.choice != nullptr) frame.choice->candidates[frame.candidate].drop(frame.target);
    }
}

// Moves the frames to a heap array that is large enough for any document.
void FastEngine::useHeapFrames() {
    heapFrames_.reset(new Frame[maxDepth]);
    std::copy(inlineFrames_, inlineFrames_ + inlineDepth, heapFrames_.get());
    frames_ = heapFrames_.get();
    capacity_ = maxDepth;
}

bool FastEngine::decode(const TypePlan& plan, void* value) {
    return root(plan, value) && runFrames() && rootDecoded_ && skipSpace(at_) == end_ &&
           !memory_.isExceeded();
}

bool FastEngine::root(const TypePlan& plan, void* value) {
    switch (plan.kind) {
        case ValueKind::nullable:
        case ValueKind::attempted: return wrapped(plan, value, nullptr);
        case ValueKind::object: return *at_ == '{' && open(plan, value, nullptr);
        case ValueKind::list: return *at_ == '[' && open(plan, value, nullptr);
        default: rootDecoded_ = leaf(plan, value, nullptr) == Fit::fits; return rootDecoded_;
    }
}

// Reads an array until an element opens a frame or the array ends. `top` is invalid after a frame was pushed.
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
            if ((depth == 1 && !top.isAttempt) || !skip()) return false;
        } else {
            if (!element(top)) return false;
            if (depth_ != depth) return true;
        }
    }
}

// Appends an element and returns its address, or null if the budget does not allow it.
void* FastEngine::appended(const Frame& top) {
    // The remaining size of the document predicts the length of a list near the root, but not of others.
    const auto bytesLeft = depth_ <= 2 ? static_cast<std::size_t>(end_ - at_) : 0;
    return top.list->append(top.target, static_cast<std::size_t>(at_ - top.start), bytesLeft, memory_);
}

bool FastEngine::element(Frame& top) {
    const TypePlan& type = top.list->element();
    if (type.kind == ValueKind::text && *at_ == '"') {
        const StringToken token = scanString(at_, end_);
        if (token.isPlain) {
            // Constructed at its size and moved in: assigning the characters would first check the old contents.
            void* const place = appended(top);
            if (place == nullptr) return false;
            const auto size = static_cast<std::size_t>(token.close - token.inside);
            if (size > shortText) memory_.note(size);
            *static_cast<std::string*>(place) = std::string(token.inside, size);
            at_ = token.close + 1;
            return true;
        }
    }
    if (type.wrapped != nullptr) {
        void* const place = appended(top);
        return place != nullptr && wrapped(type, place, nullptr);
    }
    if (type.kind == ValueKind::choice && *at_ == '{') return openChoice(*type.choice, nullptr);

    const bool opens =
        (type.kind == ValueKind::object && *at_ == '{') || (type.kind == ValueKind::list && *at_ == '[');
    const bool isPlain =
        type.kind != ValueKind::object && type.kind != ValueKind::list && type.kind != ValueKind::choice;
    if (opens || isPlain) {
        void* const place = appended(top);
        if (place == nullptr) return false;
        if (opens) return open(type, place, nullptr);
        const Fit fit = leaf(type, place, nullptr);
        if (fit == Fit::fits) return true;
        top.list->removeLast(top.target);
        if (fit == Fit::broken) return false;
    }
    if (!top.list->tolerant) top.hasFailed = true;
    return skip();
}

// Reads a value inside wrappers. A failure inside an attempt makes the innermost attempt empty.
bool FastEngine::wrapped(const TypePlan& type, void* place, const FieldPlan* field) {
    const TypePlan* inner = &type;
    Attempt attempt{};
    for (; inner->wrapped != nullptr; inner = inner->wrapped) {
        if (inner->kind == ValueKind::nullable && *at_ == 'n') {
            deliver(field, true, false);
            return skip();
        }
        if (inner->kind == ValueKind::attempted) attempt = {inner, place};
        place = inner->wrap(place);
    }
    if ((inner->kind == ValueKind::object && *at_ == '{') ||
        (inner->kind == ValueKind::list && *at_ == '[')) {
        if (!open(*inner, place, field)) return false;
        if (attempt.type != nullptr) {
            attempts_.push_back(attempt);
            frames_[depth_ - 1].isAttempt = true;
        }
        return true;
    }
    const Fit fit = leaf(*inner, place, nullptr);
    if (fit == Fit::broken) return false;
    if (fit == Fit::unfit && attempt.type != nullptr) attempt.type->forget(attempt.place);
    deliver(field, true, fit == Fit::unfit && attempt.type == nullptr);
    return fit == Fit::fits || skip();
}

// Reads a value that contains no others, or one whose contents are skipped.
Fit FastEngine::leaf(const TypePlan& type, void* place, const FieldOps* optional) {
    const bool isSkipped = type.kind == ValueKind::anything || type.kind == ValueKind::verbatim ||
                           (type.kind == ValueKind::dictionary && *at_ == '{');
    if (!isSkipped) return plain(type, place, optional);
    const char* const start = at_;
    if (!skip()) return Fit::broken;
    void* const value = optional != nullptr ? optional->open(place) : place;
    if (type.kind == ValueKind::dictionary) return dictionary(start, value);
    if (type.fromJSON != nullptr) type.fromJSON({start, static_cast<std::size_t>(at_ - start)}, value);
    return Fit::fits;
}

// Reads the free-form object that begins at `start` and has already been skipped.
Fit FastEngine::dictionary(const char* start, void* value) {
    auto& values = *static_cast<Dictionary*>(value);
    values.clear();
    const std::uint64_t memoryBefore = memory_.used();
    if (readDictionary(start, end_, values, memory_)) return Fit::fits;
    if (memory_.wasRefused()) return Fit::broken;
    values.clear();
    memory_.giveBack(memoryBefore);
    at_ = start;
    return Fit::unfit;
}

bool FastEngine::skip() {
    const char* const next = skipValue(at_, end_, depth_);
    if (next == nullptr) return false;
    at_ = next;
    return true;
}

}  // namespace VanticRestKit::json
