#pragma once

// The fast engine: one pass over the bytes, values stored in place, nothing allocated or thrown for what is
// swallowed. It says only whether the document became a value; the diagnosing engine says why not.

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
    /// `memoryLimit` is the budget of what it makes, in bytes.
    FastEngine(const Data& document, std::uint64_t memoryLimit);
    ~FastEngine();
    FastEngine(const FastEngine&) = delete;
    FastEngine& operator=(const FastEngine&) = delete;

    /// Decodes the document into `value`, which is fresh. Where this gives false, `value` may hold anything.
    bool decode(const TypePlan& plan, void* value);

    /// What the value holds, as the budget counts it.
    std::uint64_t memoryUsed() const noexcept { return memory_.used(); }

private:
    static constexpr unsigned alwaysRight = 1024;

    /// An array or object that is open. No recursion: frames lie in a row.
    struct alignas(64) Frame {
        const ObjectPlan* plan;    // null for an array
        std::byte* target;         // the entity, or the list
        const FieldPlan* field;    // of the object around it; null at the root and in an array
        const ChoicePlan* choice;  // where `target` is the try of one candidate
        const char* start;         // the opening bracket
        union {
            std::uint64_t taken;   // of an object: a bit for each slot whose further values are nobody's
            const ListPlan* list;  // of an array
        };
        std::uint64_t memoryBefore;  // what was used when it opened
        std::uint8_t candidate;
        std::uint8_t possible;  // a bit for each candidate that it may be, this one and those to be tried
        std::uint8_t last;      // the slot whose key came last
        bool isInner;           // an object that fills the entity around it
        bool isFresh;           // nothing read behind the opening bracket yet
        bool hasFailed;
        bool isIgnored;  // an inner object that could not be opened, which is swallowed
        bool isAttempt;  // what fails in it leaves an absent value, the last of `attempts_`
    };

    /// A wrapper that is empty if what lies under it fails.
    struct Attempt {
        const TypePlan* type;
        void* place;
    };

    /// A key that was read: its slot, that of nobody where it has none, and where its colon must be.
    struct Key {
        const char* colon;
        std::size_t place;
    };

    bool root(const TypePlan& plan, void* value);
    bool runFrames();

    bool objectStep(Frame& top);
    Key scannedKey(Frame& top, const char* at);
    Key unusualKey(Frame& top, const char* at);
    void remember(Frame& top, std::size_t place);
    void keyCannotBeRead(Frame& top);
    bool value(Frame& top, const Slot& slot);
    bool anyValue(Frame& top, const FieldPlan& field);
    bool heldValue(Frame& top, const FieldPlan& field);
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

    Fit held(const TypePlan& type, void* place, const FieldOps* optional);
    Fit dictionary(const char* start, void* value);
    bool skip();

    void endInner(const Frame& ended);

    void makeRoom();

    /// Deeper than documents of the service go.
    static constexpr std::size_t usualDepth = 24;

    Data document_;
    MemoryBudget memory_;
    std::vector<Attempt> attempts_;
    FailedCandidates failedCandidates_;
    Frame usualFrames_[usualDepth];
    std::unique_ptr<Frame[]> manyFrames_;
    /// The first `depth_` are open, and there is room for `room_`.
    Frame* frames_ = usualFrames_;
    std::size_t depth_ = 0;
    std::size_t room_ = usualDepth;
    /// For each object and each slot of it, the slot whose key came next the last time.
    std::vector<std::uint8_t> successors_;
    /// How often that was right lately, of `alwaysRight`.
    unsigned rightness_ = alwaysRight;
    bool rootDecoded_ = false;
};

// Opens the array or object ahead. Frames are filled where they lie: a copy of one that was just written
// waits for the writes to arrive.
inline FastEngine::Frame* FastEngine::push(const ObjectPlan* plan, void* target, const FieldPlan* field) {
    if (depth_ == room_) {
        if (room_ == deepest) return nullptr;
        makeRoom();
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
    // A plan made on first use during this decode has its memory behind all that was known when it began.
    if (successors_.size() < plan->memoryEnd) successors_.resize(plan->memoryEnd, 0);
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
