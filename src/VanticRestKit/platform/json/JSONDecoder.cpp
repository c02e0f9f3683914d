#include <VanticRestKit/platform/json/JSONDecoder.h>

#include <VanticRestKit/platform/date/detail/DeviceDate.h>
#include <VanticRestKit/platform/json/detail/DiagnosingEngine.h>
#include <VanticRestKit/platform/json/detail/FastEngine.h>

namespace VanticRestKit {

bool JSONDecoder::decode(const Data& document, const TypePlan& plan, void* value) const {
    const detail::DeviceZoneHold zone;
    return json::FastEngine(document, memoryBudget_).decode(plan, value);
}

std::optional<Error> JSONDecoder::whyNot(const Data& document, const TypePlan& plan, void* value) const {
    using json::DiagnosingEngine;
    return DiagnosingEngine(document, DiagnosingEngine::Report::error, memoryBudget_).run(plan, value).error;
}

}  // namespace VanticRestKit
