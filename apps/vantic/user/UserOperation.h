#pragma once

#include <VanticRestKit/trelvo/Trelvo.h>

#include <functional>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

#include "arguments/Arguments.h"
#include "user/RequestWatch.h"

namespace vantic {

/// Runs an operation with its arguments and passes its outcome to the watch.
using UserRun = std::function<void(VanticRestKit::Trelvo&, const VanticRestKit::TrelvoContext&,
                                   std::shared_ptr<RequestWatch>)>;

/// An operation of the client for user data.
struct UserOperation {
    std::string_view name;
    /// One line of help that says what it does.
    std::string_view summary;
    /// The options of this operation only.
    std::vector<Option> options;
    /// Parses the arguments. Throws `UsageError` if they are wrong.
    UserRun (*prepare)(const Arguments& given);
};

std::span<const UserOperation> allUserOperations();

/// The options of every user operation, in addition to the common ones.
std::span<const Option> userOptions();

/// The option for the access token, which only `request` has.
std::span<const Option> tokenOption();

/// An operation as it was asked for.
struct UserCall {
    Arguments given;
    UserRun run;
};

/// Parses "OPERATION --option value ...", with `more` options in addition to the usual ones. Throws `UsageError` for
/// wrong usage and `HelpRequested` for `--help`.
UserCall readUserCall(Words words, std::span<const Option> more = {});

}  // namespace vantic
