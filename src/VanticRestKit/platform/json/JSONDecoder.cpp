#include <VanticRestKit/platform/json/JSONDecoder.h>

#include <VanticRestKit/platform/date/detail/DeviceDate.h>
#include <VanticRestKit/platform/json/detail/DiagnosingEngine.h>
#include <VanticRestKit/platform/json/detail/FastEngine.h>

namespace VanticRestKit {

bool JSONDecoder::decode(const Data& document, const TypePlan& plan, void* value) const {
    const detail::DeviceZoneHold zone;
    return json::FastEngine(document).decode(plan, value);
}

std::optional<Error> JSONDecoder::whyNot(const Data& document, const TypePlan& plan, void* value) {
    return json::DiagnosingEngine(document, json::DiagnosingEngine::Report::error).run(plan, value).error;
}

}  // namespace VanticRestKit
