#include <VanticRestKit/platform/json/detail/FastEngine.h>

#include <VanticRestKit/platform/json/detail/FreeForm.h>
#include <VanticRestKit/platform/json/detail/Scanner.h>

#include <algorithm>
#include <string>

namespace VanticRestKit::json {

FastEngine::FastEngine(const Data& document)
    : ValueReader(documentStart(document.data(), document.data() + document.size()),
                  document.data() + document.size()),
      document_(document),
      successors_(successorMemory(), 0) {}

FastEngine::~FastEngine() {
    // What a broken document leaves half done.
    for (std::size_t i = 0; i < depth_; ++i) {
        const Frame& frame = frames_[i];
        if (frame.choice != nullptr) frame.choice->candidates[frame.candidate].drop(frame.target);
    }
}

// The frames move to where there is room for as many as a document may need.
void FastEngine::makeRoom() {
    manyFrames_.reset(new Frame[deepest]);
    std::copy(usualFrames_, usualFrames_ + usualDepth, manyFrames_.get());
    frames_ = manyFrames_.get();
    room_ = deepest;
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

// Where the element ahead is to lie.
void* FastEngine::appended(const Frame& top) {
    // What is left of the document tells something about a list at its top, and nothing about the others.
    const auto bytesLeft = depth_ <= 2 ? static_cast<std::size_t>(end_ - at_) : 0;
    return top.list->append(top.target, static_cast<std::size_t>(at_ - top.start), bytesLeft);
}

bool FastEngine::element(Frame& top) {
    const TypePlan& type = top.list->element();
    if (type.kind == ValueKind::text && *at_ == '"') {
        const StringToken token = scanString(at_, end_);
        if (token.isPlain) {
            // Made at its size and moved: an assignment would first reckon with what the text held before.
            *static_cast<std::string*>(appended(top)) = std::string(token.inside, token.close);
            at_ = token.close + 1;
            return true;
        }
    }
    if (type.kind == ValueKind::choice && *at_ == '{') return openChoice(*type.choice, nullptr);

    const bool opens =
        (type.kind == ValueKind::object && *at_ == '{') || (type.kind == ValueKind::list && *at_ == '[');
    const bool isPlain =
        type.kind != ValueKind::object && type.kind != ValueKind::list && type.kind != ValueKind::choice;
    if (opens || isPlain) {
        void* const place = appended(top);
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
    if (type.kind == ValueKind::dictionary)
        return dictionary(start, optional != nullptr ? optional->open(place) : place);
    if (type.attempt != nullptr) {
        type.attempt({start, static_cast<std::size_t>(at_ - start)},
                     optional != nullptr ? optional->open(place) : place);
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
