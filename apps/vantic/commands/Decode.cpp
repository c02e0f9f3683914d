#include "commands/Commands.h"
#include "commands/TypeAndInput.h"
#include "documents/Documents.h"
#include "Output.h"
#include "types/Decoding.h"

namespace vantic {

using VanticRestKit::Data;
using VanticRestKit::ValueLayout;

namespace {

void decodeDocument(const Type& type, Input& input) {
    const auto decoded = decode(type, Data(input.readAll()), ValueLayout::indented);
    if (!decoded) throw Failed{errorText(decoded.error())};
    print(*decoded + "\n");
}

void decodeLines(const Type& type, Input& input) {
    while (const auto line = input.readLine()) {
        const auto decoded = decode(type, Data(*line), ValueLayout::compact);
        print((decoded ? "{\"ok\":" + *decoded + "}" : errorText(decoded.error())) + "\n");
    }
}

}  // namespace

void runDecode(Words words) {
    static constexpr Option options[] = {flag("lines")};
    const Arguments given = Arguments::read(words, options, TypeAndInput::mostWords);
    const TypeAndInput what(given);
    Input input(what.file);
    given.flag("lines") ? decodeLines(what.type, input) : decodeDocument(what.type, input);
}

}  // namespace vantic
