#pragma once

// The fast engine: one pass over the bytes, with values stored in place and no allocation for ignored faults. It
// reports only whether decoding succeeded; the diagnosing engine finds out why it did not.

#include <VanticRestKit/platform/data/Data.h>
#include <VanticRestKit/platform/json/detail/FailedCandidates.h>
#include <VanticRestKit/platform/json/detail/Scanner.h>
#include <VanticRestKit/platform/json/detail/TypePlan.h>
#include <VanticRestKit/platform/json/detail/ValueReader.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace VanticRestKit::json {

using namespace mapping;  // the plans

class FastEngine : private ValueReader {
public:
    /// `memoryLimit` is the memory budget in bytes.
    FastEngine(const Data& document, std::uint64_t memoryLimit);
    ~FastEngine();
    FastEngine(const FastEngine&) = delete;
    FastEngine& operator=(const FastEngine&) = delete;

    /// Decodes the document into `value`, which must be newly made. If this returns false, `value` is unspecified.
    bool decode(const TypePlan& plan, void* value);

    /// The memory that the value holds, as counted by the budget.
    std::uint64_t memoryUsed() const noexcept { return memory_.used(); }

private:
    static constexpr unsigned perfectHitRate = 1024;

    /// An array or object that is being read. Frames form an explicit stack in place of recursion.
    struct alignas(64) Frame {
        const ObjectPlan* plan;    // null for an array
        std::byte* target;         // the entity, or the list
        const FieldPlan* field;    // the field of the enclosing object; null at the root and in an array
        const ChoicePlan* choice;  // set if `target` is a candidate of this choice
        const char* start;         // the opening bracket
        union {
            std::uint64_t taken;   // of an object: a bit for each slot that ignores further values
            const ListPlan* list;  // of an array
        };
        std::uint64_t memoryBefore;  // the memory in use when it opened
        std::uint8_t candidate;
        std::uint8_t possible;  // a bit for this candidate and each one still to be tried
        std::uint8_t last;      // the slot of the latest key
        bool isInner;           // an object whose rows fill the enclosing entity
        bool isFresh;           // nothing has been read after the opening bracket
        bool hasFailed;
        bool isIgnored;  // a lenient inner object that could not be opened
        bool isAttempt;  // if it fails, the last of `attempts_` becomes empty
    };

    /// A wrapper that becomes empty if the value inside it fails.
    struct Attempt {
        const TypePlan* type;
        void* place;
    };

    /// A key that was read: the index of its slot (0 if unknown), and the position where its colon must be.
    struct Key {
        const char* colon;
        std::size_t place;
    };

    bool root(const TypePlan& plan, void* value);
    bool runFrames();

    bool objectStep(Frame& top);
    Key scannedKey(Frame& top, const char* at);
    Key unusualKey(Frame& top, const char* at);
    void recordSuccessor(Frame& top, std::size_t place);
    void failUnreadableKey(Frame& top);
    bool value(Frame& top, const Slot& slot);
    bool anyValue(Frame& top, const FieldPlan& field);
    bool leafValue(Frame& top, const FieldPlan& field);
    bool unfit(Frame& top, const FieldPlan& field);
    bool checkEntity(Frame& top);

    bool listStep(Frame& top);
    bool element(Frame& top);
    void* appended(const Frame& top);

    Frame* push(const ObjectPlan* plan, void* target, const FieldPlan* field);
    bool open(const TypePlan& type, void* target, const FieldPlan* field);
    bool openInner(const FieldPlan& field, void* target);
    bool wrapped(const TypePlan& type, void* place, const FieldPlan* field);
    unsigned ruledOut(const ChoicePlan& choice);
    bool openChoice(const ChoicePlan& choice, const FieldPlan* field);
    bool openCandidate(const ChoicePlan& choice, std::uint8_t possible, const FieldPlan* field);
    bool endFrame();
    bool endCandidate(const Frame& ended, bool hasFailed);
    void endAttempt(bool hasFailed);
    void deliver(const FieldPlan* field, bool isStored, bool hasFailed);

    Fit leaf(const TypePlan& type, void* place, const FieldOps* optional);
    Fit dictionary(const char* start, void* value);
    bool skip();

    void endInner(const Frame& ended);

    void useHeapFrames();

    /// Deeper than any document of the service.
    static constexpr std::size_t inlineDepth = 24;

    Data document_;
    MemoryBudget memory_;
    std::vector<Attempt> attempts_;
    FailedCandidates failedCandidates_;
    Frame inlineFrames_[inlineDepth];
    std::unique_ptr<Frame[]> heapFrames_;
    /// `depth_` frames are in use, of `capacity_`.
    Frame* frames_ = inlineFrames_;
    std::size_t depth_ = 0;
    std::size_t capacity_ = inlineDepth;
    /// For each slot of each object, the slot of the key that followed it last time.
    std::vector<std::uint8_t> successors_;
    /// The recent hit rate of this prediction; `perfectHitRate` is the maximum.
    unsigned hitRate_ = perfectHitRate;
    bool rootDecoded_ = false;
};

// Pushes a frame for the array or object at `at_`. Frames are filled in place: copying one that has just been written
// would stall on its pending stores.
inline FastEngine::Frame* FastEngine::push(const ObjectPlan* plan, void* target, const FieldPlan* field) {
    if (depth_ == capacity_) {
        if (capacity_ == maxDepth) return nullptr;
        useHeapFrames();
    }
    Frame& top = frames_[depth_++];
    top.plan = plan;
    top.target = static_cast<std::byte*>(target);
    top.field = field;
    top.choice = nullptr;
    top.start = at_++;
    top.candidate = 0;
    top.possible = 0;
    top.last = 0;
    top.isInner = false;
    top.isFresh = true;
    top.hasFailed = false;
    top.isIgnored = false;
    top.isAttempt = false;
    top.memoryBefore = memory_.used();
    if (plan == nullptr) return &top;
    top.taken = plan->unread;
    // A plan made during this decode has its successors past the end of the vector.
    if (successors_.size() < plan->successorsEnd) successors_.resize(plan->successorsEnd, 0);
    if (plan->hasDefaults) setDefaults(*plan, target);
    return &top;
}

inline bool FastEngine::open(const TypePlan& type, void* target, const FieldPlan* field) {
    Frame* const top = push(type.object, target, field);
    if (top == nullptr) return false;
    if (type.object == nullptr) top->list = type.list;
    return true;
}

inline bool FastEngine::openInner(const FieldPlan& field, void* target) {
    Frame* const top = push(field.inner, target, &field);
    if (top == nullptr) return false;
    top->isInner = true;
    return true;
}

}  // namespace VanticRestKit::json
