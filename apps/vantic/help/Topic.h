#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "arguments/Option.h"

// The contents of the tables of commands and operations, for help texts, manual pages and completion.
namespace vantic {

/// One way to call an operation.
struct Form {
    std::string_view summary;
    std::vector<Option> options;
};

/// An operation of the catalogue, of one of the other services, or for a user.
struct Topic {
    std::string_view name;
    bool isForUser;
    std::vector<Form> forms;
};

/// All operations, without duplicates.
std::span<const Topic> allTopics();

/// The operation with this name; null if there is none.
const Topic* topicNamed(std::string_view name);

/// " --limit N [--markedAsDone]"
std::string synopsisOf(std::span<const Option> options);

/// "the region of the viewer: act, sa or nsw"
std::string helpOf(const Option& option);

/// "--region REGION"
std::string nameAndValue(const Option& option);

}  // namespace vantic
