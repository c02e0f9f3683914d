// How the fast engine opens candidates and ends arrays, objects and candidates.

#include <VanticRestKit/platform/json/detail/EntityAhead.h>
#include <VanticRestKit/platform/json/detail/FastEngine.h>
#include <VanticRestKit/platform/text/detail/LetterCase.h>

#include <bit>
#include <optional>
#include <string_view>

namespace VanticRestKit::json {

// Reads ahead for the object's "_entity" and rules out the candidates with a different name, so that none of them is
// read in vain.
unsigned FastEngine::ruledOut(const ChoicePlan& choice) {
    // Finding the name may scan the whole object, and every enclosing level scans it again.
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

// Opens the first candidate that the next object may be, leaving out those that have failed or are ruled out.
bool FastEngine::openChoice(const ChoicePlan& choice, const FieldPlan* field) {
    unsigned possible = (1U << choice.candidates.size()) - 1U;
    possible &= ~failedCandidates_.failedAt(at_, choice);
    if (possible != 0) possible &= ~ruledOut(choice);
    if (possible != 0) return openCandidate(choice, static_cast<std::uint8_t>(possible), field);
    deliver(field, false, true);
    return skip();
}

// Opens the first of the candidates in `possible` for the next object.
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
    // The popped frame stays intact until the next push.
    const Frame& ended = frames_[--depth_];
    bool hasFailed = ended.hasFailed;
    if (ended.plan != nullptr) {
        hasFailed = hasFailed || (ended.taken & ended.plan->required) != ended.plan->required;
        if (!hasFailed) {
            for (const auto derive : ended.plan->derivations) derive(ended.target);
        }
    }
    // Nothing else is allocated before the failed value is dropped, even if an enclosing value owns it.
    if (hasFailed) memory_.giveBack(ended.memoryBefore);
    if (ended.choice != nullptr) return endCandidate(ended, hasFailed);
    if (ended.isAttempt) endAttempt(hasFailed);
    deliver(ended.field, true, hasFailed && !ended.isAttempt);
    return true;
}

// Empties the attempt if its value failed; the attempt itself never fails.
void FastEngine::endAttempt(bool hasFailed) {
    const Attempt attempt = attempts_.back();
    attempts_.pop_back();
    if (hasFailed) attempt.type->forget(attempt.place);
}

// Keeps a candidate that decoded; otherwise starts the next one at the same position.
bool FastEngine::endCandidate(const Frame& ended, bool hasFailed) {
    const Candidate& type = ended.choice->candidates[ended.candidate];
    failedCandidates_.end(ended.start, *ended.choice, ended.candidate, hasFailed);
    if (!hasFailed) {
        Frame& enclosing = frames_[depth_ - 1];
        type.keep(ended.target, enclosing.target + (ended.field != nullptr ? ended.field->offset : 0));
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

// Reports the end of a value to the enclosing frame. `isStored`: a failed value has been stored and must be removed.
void FastEngine::deliver(const FieldPlan* field, bool isStored, bool hasFailed) {
    if (depth_ == 0) {
        rootDecoded_ = !hasFailed;
        return;
    }
    if (!hasFailed) return;
    Frame& enclosing = frames_[depth_ - 1];
    const bool isIgnored = field != nullptr ? field->presence == Presence::lenient : enclosing.list->tolerant;
    if (!isIgnored) {
        enclosing.hasFailed = true;
    } else if (!isStored) {
        return;
    } else if (field == nullptr) {
        enclosing.list->removeLast(enclosing.target);
    } else {
        resetField(*field, enclosing.target + field->offset);
    }
}

}  // namespace VanticRestKit::json
