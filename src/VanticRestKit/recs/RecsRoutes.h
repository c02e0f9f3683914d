#pragma once

/// \file
/// `RecsModuleURI`: the route to recommendations.

#include <VanticRestKit/Core/Required.h>
#include <VanticRestKit/platform/data/Data.h>
#include <VanticRestKit/platform/json/JSONEncoder.h>
#include <VanticRestKit/recs/RecsModuleContext.h>
#include <VanticRestKit/Visibility.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace VanticRestKit {

/// Asks for the recommendations of a module. What they are to be made from travels in the body.
struct VRK_EXPORT RecsModuleURI {
    /// The arguments, by label.
    struct Arguments {
        /// The id of the module.
        Required<std::string> withModuleId;
        /// The id of the user; left out of the body if empty.
        Required<std::optional<std::string>> userId;
        /// The id of the account; left out of the body if empty.
        Required<std::optional<std::string>> accountId;
        /// The id of the profile; left out of the body if empty.
        Required<std::optional<std::string>> subprofileId;
        /// How many recommendations are asked for.
        Required<std::int64_t> limit;
        /// The method of the request.
        Required<std::string> httpMethod;
        /// Content that is not to be recommended.
        Required<std::vector<RecsModuleContext>> exclude;
        /// Content to choose from.
        Required<std::vector<RecsModuleContext>> include;
        /// The content that is on the screen; empty for none.
        Required<std::optional<RecsModuleContext>> andModuleContext;
    };
    /// Made of its arguments.
    explicit RecsModuleURI(Arguments arguments);

    /// The id of the module.
    std::string moduleId;
    /// The id of the user; left out of the body if empty.
    std::optional<std::string> userId;
    /// The id of the account; left out of the body if empty.
    std::optional<std::string> accountId;
    /// The id of the profile; left out of the body if empty.
    std::optional<std::string> subprofileId;
    /// The content that is shown when the recommendations are asked for.
    std::optional<RecsModuleContext> moduleContext;
    /// How many at most.
    std::int64_t limit;
    /// Content that is not to be recommended.
    std::vector<RecsModuleContext> excludeFilter;
    /// Content to choose from.
    std::vector<RecsModuleContext> includeFilter;
    /// The method of the request.
    std::optional<std::string> httpMethod;

    /// The path below the base URL.
    std::string path() const { return "api/v2/recommendations/" + moduleId; }
    /// The encoding of this value; empty where a text is not UTF-8.
    std::optional<Data> postData() const;

    /// Writes the members in the order of the keys.
    void encode(JSONObjectWriter& writer) const;

    friend bool operator==(const RecsModuleURI&, const RecsModuleURI&) = default;
};

}  // namespace VanticRestKit
