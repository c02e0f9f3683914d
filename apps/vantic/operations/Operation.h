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

/// One way of calling an operation of the library. An operation with alternatives has an entry for each.
struct Operation {
    std::string_view name;
    /// One line of help: what it loads.
    std::string_view summary;
    /// Its own options, without the common ones.
    std::vector<Option> options;
    /// Calls the library. Empty if it can make no request.
    std::optional<Loadable> (*call)(const Arguments& given, const Host& host);
};

/// All operations, those of one name one after another.
std::span<const Operation> allOperations();

/// An operation as it was asked for.
struct Call {
    const Operation& operation;
    Arguments given;
};

/// Reads "OPERATION --option value ...", with `more` options beside the usual ones. Throws `UsageError` if that is wrong
/// and `HelpRequested` if it asks for help.
Call readCall(Words words, std::span<const Option> more = {});

// The entries, file by file.
std::vector<Operation> videoOperations();
std::vector<Operation> showOperations();
std::vector<Operation> screenOperations();
std::vector<Operation> noticeOperations();
std::vector<Operation> serviceOperations();

}  // namespace vantic
