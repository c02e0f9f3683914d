// How candidates open, and how arrays, objects and candidates end in the fast engine.

#include <VanticRestKit/platform/json/detail/EntityAhead.h>
#include <VanticRestKit/platform/json/detail/FastEngine.h>
#include <VanticRestKit/platform/text/detail/LetterCase.h>

#include <bit>
#include <optional>
#include <string_view>

namespace VanticRestKit::json {

// What the object calls itself rules candidates out before a value is read for them in vain, wherever in the
// object it stands.
unsigned FastEngine::ruledOut(const ChoicePlan& choice) {
    // To look for the name costs a walk over all that the object holds, and each level around it does the same.
    constexpr std::size_t maxLevels = 4;
    unsigned named = 0;
    for (std::size_t i = 0; i < choice.candidates.size(); ++i) {
        if (!choice.candidates[i].type().object->entityName.empty()) named |= 1U << i;
    }
    if (named == 0 || failedCandidates_.depth() >= maxLevels) return 0;
    const std::optional<std::string_view> name = entityAhead(at_, end_, depth_, scratch_);
    if (!name) return 0;
    unsigned others = 0;
    for (std::size_t i = 0; i < choice.candidates.size(); ++i) {
        const std::string_view checked = choice.candidates[i].type().object->entityName;
        if (!VanticRestKit::detail::equalsLowercased(*name, checked)) others |= 1U << i;
    }
    return others & named;
}

// Opens the first candidate that the object ahead may be.
bool FastEngine::openChoice(const ChoicePlan& choice, const FieldPlan* field) {
    unsigned possible = (1U << choice.candidates.size()) - 1U;
    possible &= ~failedCandidates_.failedAt(at_, choice);
    if (possible != 0) possible &= ~ruledOut(choice);
    if (possible != 0) return openCandidate(choice, static_cast<std::uint8_t>(possible), field);
    deliver(field, false, true);
    return skip();
}

// Opens the first of the candidates that the object ahead may be.
bool FastEngine::openCandidate(const ChoicePlan& choice, std::uint8_t possible, const FieldPlan* field) {
    const auto candidate = static_cast<std::uint8_t>(std::countr_zero(possible));
    const Candidate& type = choice.candidates[candidate];
    const std::uint64_t memoryBefore = memory_.used();
    if (!memory_.take(type.size)) return false;
    void* const made = type.make();
    Frame* const top = push(type.type().object, made, field);
    if (top == nullptr) {
        type.drop(made);
        return false;
    }
    top->memoryBefore = memoryBefore;
    top->choice = &choice;
    top->candidate = candidate;
    top->possible = possible;
    failedCandidates_.begin();
    return true;
}

bool FastEngine::endFrame() {
    // What lies above the depth stays as it is until something opens.
    const Frame& ended = frames_[--depth_];
    bool hasFailed = ended.hasFailed;
    if (ended.plan != nullptr) {
        hasFailed = hasFailed || (ended.taken & ended.plan->required) != ended.plan->required;
        if (!hasFailed) {
            for (const auto derive : ended.plan->derivations) derive(ended.target);
        }
    }
    // Nothing more is made until what has failed is dropped, whatever it is a part of.
    if (hasFailed) memory_.giveBack(ended.memoryBefore);
    if (ended.choice != nullptr) return endCandidate(ended, hasFailed);
    if (ended.isAttempt) endAttempt(hasFailed);
    deliver(ended.field, true, hasFailed && !ended.isAttempt);
    return true;
}

// What failed under an attempt goes, and the attempt itself is a value.
void FastEngine::endAttempt(bool hasFailed) {
    const Attempt attempt = attempts_.back();
    attempts_.pop_back();
    if (hasFailed) attempt.type->forget(attempt.place);
}

// A candidate that decoded is kept; else the next one begins at the same place.
bool FastEngine::endCandidate(const Frame& ended, bool hasFailed) {
    const Candidate& type = ended.choice->candidates[ended.candidate];
    failedCandidates_.end(ended.start, *ended.choice, ended.candidate, hasFailed);
    if (!hasFailed) {
        Frame& around = frames_[depth_ - 1];
        type.keep(ended.target, around.target + (ended.field != nullptr ? ended.field->offset : 0));
        return true;
    }
    type.drop(ended.target);
    at_ = ended.start;
    const auto others = static_cast<std::uint8_t>(ended.possible & (ended.possible - 1U));
    const ChoicePlan& choice = *ended.choice;
    const FieldPlan* const field = ended.field;
    if (others != 0) return openCandidate(choice, others, field);
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
