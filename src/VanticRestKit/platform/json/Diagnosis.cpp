#include <VanticRestKit/platform/json/Diagnosis.h>

#include <VanticRestKit/platform/json/detail/DiagnosingEngine.h>
#include <VanticRestKit/platform/json/JSONDecoder.h>

namespace VanticRestKit {

Diagnosis diagnose(const Data& document, const TypePlan& plan, void* value) {
    using json::DiagnosingEngine;
    return DiagnosingEngine(document, DiagnosingEngine::Report::everything, JSONDecoder::defaultMemoryBudget)
        .run(plan, value);
}

const char* nameOf(Presence presence) noexcept {
    switch (presence) {
        case Presence::required: return "required";
        case Presence::optional: return "optional";
        case Presence::lenient: return "lenient";
        case Presence::defaulted: return "default";
    }
    return "";
}

}  // namespace VanticRestKit
