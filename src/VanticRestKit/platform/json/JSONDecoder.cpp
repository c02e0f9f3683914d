#include <VanticRestKit/platform/json/JSONDecoder.h>

#include <VanticRestKit/platform/date/DeviceDate.h>
#include <VanticRestKit/platform/json/detail/DiagnosingEngine.h>
#include <VanticRestKit/platform/json/detail/FastEngine.h>
#include <VanticRestKit/platform/json/Diagnosis.h>
#include <VanticRestKit/platform/json/Table.h>

namespace VanticRestKit {

bool JSONDecoder::decode(const Data& document, const TypePlan& plan, void* value) const {
    const DeviceZoneHold zone;
    return json::FastEngine(document).decode(plan, value);
}

std::optional<Error> JSONDecoder::whyNot(const Data& document, const TypePlan& plan, void* value) {
    return json::DiagnosingEngine(document, json::DiagnosingEngine::Report::error).run(plan, value).error;
}

Diagnosis diagnose(const Data& document, const TypePlan& plan, void* value) {
    return json::DiagnosingEngine(document, json::DiagnosingEngine::Report::everything).run(plan, value);
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

bool mapping::deviceDate(std::string_view text, Date& value) {
    const std::optional<Date> date = VanticRestKit::deviceDate(text);
    if (date) value = *date;
    return date.has_value();
}

}  // namespace VanticRestKit
