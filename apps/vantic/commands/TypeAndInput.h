#pragma once

#include <optional>
#include <string>

#include "arguments/Arguments.h"
#include "Failure.h"
#include "types/Type.h"

namespace vantic {

/// "TYPE [FILE]", the arguments of the commands for documents.
struct TypeAndInput {
    static constexpr std::size_t maxWords = 2;

    explicit TypeAndInput(const Arguments& given)
        : type(given.positionals().empty() ? throw UsageError{"no type is named; vantic types lists them"}
                                           : typeNamed(given.positionals()[0])) {
        if (given.positionals().size() > 1) file = given.positionals()[1];
    }

    const Type& type;
    /// The file; empty for standard input.
    std::optional<std::string> file;
};

}  // namespace vantic
