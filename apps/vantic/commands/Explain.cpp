#include <VanticRestKit/platform/json/Diagnosis.h>

#include "commands/Commands.h"
#include "commands/TypeAndInput.h"
#include "documents/BrokenPlace.h"
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
    const TypeAndInput what(Arguments::read(words, {}, TypeAndInput::maxWords));
    Input input(what.file);
    const Type::Value value = what.type.make();
    const VanticRestKit::Data document(input.readAll());
    if (const auto place = breakIn(document.view()))
        report("vantic: the document is broken at " + textOf(*place));
    const auto diagnosis = VanticRestKit::diagnose(document, what.type.plan(), value.get());
    std::string text = "{\"faults\":[";
    const char* separator = "";
    for (const VanticRestKit::Fault& fault : diagnosis.faults) {
        text += separator + faultText(fault);
        separator = ",";
    }
    print(text + "]}\n");
}

}  // namespace vantic
