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

/// An operation with its arguments: runs it and tells the watch its outcome.
using UserRun = std::function<void(VanticRestKit::Trelvo&, const VanticRestKit::TrelvoContext&,
                                   std::shared_ptr<RequestWatch>)>;

/// An operation of the client of the user data service.
struct UserOperation {
    std::string_view name;
    /// One line of help: what it does.
    std::string_view summary;
    /// Its own options, without the common ones and those of every user operation.
    std::vector<Option> options;
    /// Reads its arguments. Throws `UsageError` where they are none.
    UserRun (*prepare)(const Arguments& given);
};

std::span<const UserOperation> allUserOperations();

/// What every one of them takes beside the common options.
std::span<const Option> userOptions();

/// The access token, which `request` takes beside them.
std::span<const Option> tokenOption();

/// An operation as it was asked for.
struct UserCall {
    Arguments given;
    UserRun run;
};

/// Reads "OPERATION --option value ...", with `more` options beside the usual ones. Throws `UsageError` if
/// that is wrong and `HelpRequested` if it asks for help.
UserCall readUserCall(Words words, std::span<const Option> more = {});

}  // namespace vantic
