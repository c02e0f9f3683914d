// How candidates open, and how arrays, objects and candidates end in the fast engine.

#include <VanticRestKit/platform/json/detail/FastEngine.h>

namespace VanticRestKit::json {

bool FastEngine::openCandidate(const ChoicePlan& choice, std::size_t candidate, const FieldPlan* field) {
    const Candidate& type = choice.candidates[candidate];
    void* const made = type.make();
    Frame* const top = push(type.type().object, made, field);
    if (top == nullptr) {
        type.drop(made);
        return false;
    }
    top->choice = &choice;
    top->candidate = static_cast<std::uint8_t>(candidate);
    return true;
}

bool FastEngine::endFrame() {
    // What lies above the depth stays as it is until something opens.
    const Frame& ended = frames_[--depth_];
    if (ended.plan == nullptr) {
        deliver(ended.field, true, ended.hasFailed);
        return true;
    }
    const bool isComplete = (ended.taken & ended.plan->required) == ended.plan->required;
    const bool hasFailed = ended.hasFailed || !isComplete;
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
        Frame& around = frames_[depth_ - 1];
        type.keep(ended.target, around.target + (ended.field != nullptr ? ended.field->offset : 0));
        return true;
    }
    type.drop(ended.target);
    at_ = ended.start;
    const std::size_t next = std::size_t{ended.candidate} + 1;
    const ChoicePlan& choice = *ended.choice;
    const FieldPlan* const field = ended.field;
    if (next < choice.candidates.size()) return openCandidate(choice, next, field);
    deliver(field, false, true);
    return skip();
}

// Tells what lies around a value how it ended. `isStored`: a failed value lies in its place and must go.
void FastEngine::deliver(const FieldPlan* field, bool isStored, bool hasFailed) {
    if (depth_ == 0) {
        rootDecoded_ = !hasFailed;
        return;
    }
    if (!hasFailed) return;
    Frame& around = frames_[depth_ - 1];
    const bool isSwallowed = field != nullptr ? field->presence == Presence::lenient : around.list->tolerant;
    if (!isSwallowed) {
        around.hasFailed = true;
    } else if (!isStored) {
        return;
    } else if (field == nullptr) {
        around.list->removeLast(around.target);
    } else {
        resetField(*field, around.target + field->offset);
    }
}

}  // namespace VanticRestKit::json
