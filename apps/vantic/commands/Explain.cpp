#include <VanticRestKit/platform/json/Diagnosis.h>

#include "commands/Commands.h"
#include "commands/TypeAndInput.h"
#include "documents/Documents.h"
#include "Output.h"
#include "types/Decoding.h"

namespace vantic {

namespace {

std::string faultText(const VanticRestKit::Fault& fault) {
    return "{\"path\":" + pathText(fault.path) + ",\"presence\":\"" + nameOf(fault.presence) +
           "\",\"expected\":" + jsonText(fault.expected) + ",\"found\":" + jsonText(fault.found) +
           ",\"became\":" + jsonText(fault.became) + "}";
}

}  // namespace

void runExplain(Words words) {
    const TypeAndInput what(Arguments::read(words, {}, TypeAndInput::mostWords));
    Input input(what.file);
    const Type::Value value = what.type.make();
    const auto diagnosis =
        VanticRestKit::diagnose(VanticRestKit::Data(input.readAll()), what.type.plan(), value.get());
    std::string text = "{\"faults\":[";
    const char* separator = "";
    for (const VanticRestKit::Fault& fault : diagnosis.faults) {
        text += separator + faultText(fault);
        separator = ",";
    }
    print(text + "]}\n");
}

}  // namespace vantic
