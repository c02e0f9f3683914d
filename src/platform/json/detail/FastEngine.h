#pragma once

// The fast engine: one pass over the bytes, values stored in place, nothing allocated or thrown for what is
// swallowed. It says only whether the document became a value; the diagnosing engine says why not.

#include <VanticRestKit/platform/data/Data.h>
#include <VanticRestKit/platform/json/detail/ValueReader.h>
#include <VanticRestKit/platform/json/TypePlan.h>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace VanticRestKit::json {

class FastEngine : private ValueReader {
public:
    explicit FastEngine(const Data& document);
    ~FastEngine();
    FastEngine(const FastEngine&) = delete;
    FastEngine& operator=(const FastEngine&) = delete;

    /// Decodes the document into `value`, which is fresh. Where this gives false, `value` may hold anything.
    bool decode(const TypePlan& plan, void* value);

private:
    /// An array or object that is open. No recursion: frames lie in a vector.
    struct Frame {
        const ObjectPlan* plan = nullptr;  // null for an array
        const ListPlan* list = nullptr;
        std::byte* target = nullptr;         // the entity, or the list
        const FieldPlan* field = nullptr;    // of the object around it; null at the root and in an array
        const ChoicePlan* choice = nullptr;  // where `target` is the try of one candidate
        const char* start = nullptr;         // the opening bracket
        std::uint64_t seen = 0;              // a bit for each field whose key has come
        std::uint8_t candidate = 0;
        std::uint8_t last = 0;   // 1 + the field whose key came last
        bool isInner = false;    // an object that fills the entity around it
        bool isFresh = true;     // nothing read behind the opening bracket yet
        bool hasFailed = false;
        bool isIgnored = false;  // an inner object that could not be opened, which is swallowed
    };

    bool root(const TypePlan& plan, void* value);
    bool runFrames();

    bool objectStep(Frame& top);
    bool key(Frame& top, const char*& at, const FieldPlan*& field);
    bool plainText(const Frame& top, const FieldPlan& field, const char*& at);
    bool scannedKey(Frame& top, const FieldPlan*& field);
    void keyCannotBeRead(Frame& top);
    bool fieldValue(Frame& top, const FieldPlan& field);
    bool unfit(Frame& top, const FieldPlan& field);
    bool checkEntity(Frame& top);

    bool listStep(Frame& top);
    bool element(Frame& top);

    Frame* push(const ObjectPlan* plan, void* target, const FieldPlan* field);
    bool open(const TypePlan& type, void* target, const FieldPlan* field);
    bool openInner(const FieldPlan& field, void* target);
    bool openCandidate(const ChoicePlan& choice, std::size_t candidate, const FieldPlan* field);
    bool endFrame();
    bool endCandidate(const Frame& ended, bool hasFailed);
    void deliver(const FieldPlan* field, bool isStored, bool hasFailed);

    Fit held(const TypePlan& type, void* place, const FieldOps* optional);
    Fit dictionary(const char* start, void* value);
    bool skip();

    Data document_;
    std::vector<Frame> frames_;  // the first `depth_` are open
    std::size_t depth_ = 0;
    std::vector<std::uint8_t> successors_;
    bool rootDecoded_ = false;
};

}  // namespace VanticRestKit::json
