#include "commands/Commands.h"
#include "commands/TypeAndInput.h"
#include "documents/BrokenPlace.h"
#include "documents/Documents.h"
#include "Output.h"
#include "types/Decoding.h"

namespace vantic {

using VanticRestKit::Data;
using VanticRestKit::ValueLayout;

namespace {

std::string errorTextWithPlace(const DecodeFailure& failure, const Data& document) {
    const auto place = breakIn(document.view());
    return errorText(failure, place ? " It breaks at " + textOf(*place) + "." : std::string());
}

void decodeDocument(const Type& type, Input& input, bool isQuiet) {
    const Data document(input.readAll());
    const auto decoded = decode(type, document, ValueLayout::indented);
    if (!decoded) throw Failed{errorTextWithPlace(decoded.error(), document)};
    if (!isQuiet) print(*decoded + "\n");
}

void decodeLines(const Type& type, Input& input) {
    while (const auto line = input.readLine()) {
        const auto decoded = decode(type, Data(*line), ValueLayout::compact);
        print((decoded ? "{\"ok\":" + *decoded + "}" : errorText(decoded.error())) + "\n");
    }
}

/// Prints one line for each file. Continues after a file that fails.
void decodeFiles(const Type& type, const std::vector<std::string>& files, bool isQuiet) {
    bool allDecoded = true;
    for (const std::string& file : files) {
        try {
            const Data document(Input(file).readAll());
            const auto decoded = decode(type, document, ValueLayout::compact);
            allDecoded = allDecoded && decoded;
            const std::string answer = decoded ? "\"ok\":" + *decoded + "}"
                                               : errorTextWithPlace(decoded.error(), document).substr(1);
            if (!isQuiet || !decoded) print("{\"file\":" + jsonText(file) + "," + answer + "\n");
        } catch (const Failed& failure) {
            report(failure.message);
            allDecoded = false;
        }
    }
    if (!allDecoded) {
        flush();
        throw FailedAndReported{};
    }
}

}  // namespace

std::span<const Option> decodeOptions() {
    static constexpr Option options[] = {
        flag("lines", "reads one document per line, and prints a line for each"),
        flag("all", "reads any number of files, and prints a line for each"),
        flag("quiet", "prints no value, only errors")};
    return options;
}

void runDecode(Words words) {
    constexpr std::size_t anyNumber = static_cast<std::size_t>(-1);
    const Arguments given = Arguments::read(words, decodeOptions(), anyNumber);
    const TypeAndInput what(given);
    const std::vector<std::string>& positionals = given.positionals();
    if (given.flag("all")) {
        if (given.flag("lines")) throw UsageError{"--all and --lines exclude each other"};
        if (positionals.size() < 2) throw UsageError{"--all needs the names of files"};
        return decodeFiles(what.type, {positionals.begin() + 1, positionals.end()}, given.flag("quiet"));
    }
    if (positionals.size() > TypeAndInput::maxWords) {
        throw UsageError{"unexpected argument " + positionals[TypeAndInput::maxWords] +
                         "; --all takes several files"};
    }
    if (given.flag("lines") && given.flag("quiet"))
        throw UsageError{"--lines and --quiet exclude each other"};
    Input input(what.file);
    given.flag("lines") ? decodeLines(what.type, input)
                        : decodeDocument(what.type, input, given.flag("quiet"));
}

}  // namespace vantic
