#include <platform/json/Decoding.h>

#include <VanticRestKit/platform/json/detail/DiagnosingEngine.h>
#include <VanticRestKit/platform/json/detail/FastEngine.h>
#include <VanticRestKit/platform/json/ValueText.h>

namespace VanticRestKit::test {

namespace {

std::string pathText(const CodingPath& path) {
    std::string text = "[";
    for (const CodingKey& step : path) {
        if (text.size() > 1) text += ',';
        text += step.key() != nullptr ? quotedText(*step.key()) : std::to_string(*step.index());
    }
    return text + ']';
}

std::string failureText(const Error& error) {
    const DecodingError* const fault = error.as<DecodingError>();
    if (fault == nullptr) return error.localizedDescription();
    return nameOf(fault->kind()) + (' ' + pathText(fault->codingPath()));
}

}  // namespace

Outcome decodeByBoth(const DecodableType& type, const Data& document, std::uint64_t memoryBudget) {
    const TypePlan& plan = type.plan();
    const std::shared_ptr<void> fast = type.make();
    json::FastEngine fastEngine(document, memoryBudget);
    const bool fastDecoded = fastEngine.decode(plan, fast.get());

    const std::shared_ptr<void> slow = type.make();
    using json::DiagnosingEngine;
    DiagnosingEngine slowEngine(document, DiagnosingEngine::Report::everything, memoryBudget);
    const Diagnosis everything = slowEngine.run(plan, slow.get());

    Outcome outcome;
    outcome.path = pathText(everything.path);
    if (everything.error) {
        outcome.failure = failureText(*everything.error);
        if (everything.faults.empty() || everything.faults.back().became != "failure") {
            outcome.difference = "a failure that is not a fault";
        }
        const std::shared_ptr<void> again = type.make();
        const Diagnosis error =
            DiagnosingEngine(document, DiagnosingEngine::Report::error, memoryBudget).run(plan, again.get());
        if (!error.error || failureText(*error.error) != outcome.failure) {
            outcome.difference = "the failure depends on what is reported";
        }
    } else {
        outcome.value = valueText(plan, slow.get(), ValueLayout::compact);
    }
    if (fastDecoded == everything.error.has_value()) {
        outcome.difference =
            fastDecoded ? "only the fast engine decodes it" : "only the diagnosing engine decodes it";
    } else if (fastDecoded) {
        const std::string value = valueText(plan, fast.get(), ValueLayout::compact);
        if (value != outcome.value) outcome.difference = value + " is not " + outcome.value;
        outcome.memory = fastEngine.memoryUsed();
        if (outcome.memory != slowEngine.memoryUsed()) {
            outcome.difference = "the fast engine counts " + std::to_string(outcome.memory) +
                                 " bytes, the diagnosing engine " + std::to_string(slowEngine.memoryUsed());
        }
    }
    return outcome;
}

}  // namespace VanticRestKit::test
