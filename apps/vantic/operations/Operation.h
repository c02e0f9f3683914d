#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "arguments/Arguments.h"
#include "operations/Host.h"
#include "operations/Loadable.h"

namespace vantic {

/// One form of an operation of the library. An operation with several forms has an entry for each.
struct Operation {
    std::string_view name;
    /// One line of help that says what is loaded.
    std::string_view summary;
    /// Its own options, without the common ones.
    std::vector<Option> options;
    /// Calls the library. Empty if no request can be built.
    std::optional<Loadable> (*call)(const Arguments& given, const Host& host);
};

/// All operations; the forms of an operation follow each other.
std::span<const Operation> allOperations();

/// A parsed command line for an operation.
struct Call {
    const Operation& operation;
    Arguments given;
};

/// Parses "OPERATION --option value ...", with `more` options in addition to the usual ones. Throws `UsageError` for
/// wrong usage and `HelpRequested` for `--help`.
Call readCall(Words words, std::span<const Option> more = {});

// The entries of each source file.
std::vector<Operation> videoOperations();
std::vector<Operation> showOperations();
std::vector<Operation> screenOperations();
std::vector<Operation> noticeOperations();
std::vector<Operation> serviceOperations();

}  // namespace vantic
