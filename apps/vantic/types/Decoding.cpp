#include "types/Decoding.h"

#include <VanticRestKit/platform/json/Diagnosis.h>
#include <VanticRestKit/platform/json/JSONDecoder.h>

#include "Output.h"

namespace vantic {

using namespace VanticRestKit;

Result<std::string, DecodeFailure> decode(const Type& type, const Data& document, ValueLayout layout) {
    const TypePlan& plan = type.plan();
    Type::Value value = type.make();
    if (JSONDecoder().decode(document, plan, value.get())) return valueText(plan, value.get(), layout);
    value = type.make();
    Diagnosis diagnosis = diagnose(document, plan, value.get());
    if (!diagnosis.error) return valueText(plan, value.get(), layout);
    return Failure(DecodeFailure{*std::move(diagnosis.error), std::move(diagnosis.path)});
}

std::string errorText(const DecodeFailure& failure, const std::string& addition) {
    // Other errors are specific to an entity.
    const auto* const decodingError = failure.error.as<DecodingError>();
    const std::string kind = decodingError != nullptr ? nameOf(decodingError->kind()) : "entityMismatch";
    const std::string message =
        decodingError != nullptr ? decodingError->debugDescription() : failure.error.localizedDescription();
    return "{\"error\":{\"kind\":\"" + kind + "\",\"path\":" + pathText(failure.path) +
           ",\"message\":" + jsonText(message + addition) + "}}";
}

std::string pathText(const CodingPath& path) {
    std::string text = "[";
    for (const CodingKey& step : path) {
        if (text.size() > 1) text += ',';
        text += step.key() != nullptr ? jsonText(*step.key()) : std::to_string(*step.index());
    }
    return text + "]";
}

}  // namespace vantic
