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

/// The recommendations of a module. The body contains the data that they are based on.
struct VRK_EXPORT RecsModuleURI {
    /// The arguments of the constructor.
    struct Arguments {
        /// The id of the module.
        Required<std::string> withModuleId;
        /// The id of the user; omitted from the body if empty.
        Required<std::optional<std::string>> userId;
        /// The id of the account; omitted from the body if empty.
        Required<std::optional<std::string>> accountId;
        /// The id of the profile; omitted from the body if empty.
        Required<std::optional<std::string>> subprofileId;
        /// The maximum number of recommendations.
        Required<std::int64_t> limit;
        /// The method of the request.
        Required<std::string> httpMethod;
        /// Content that must not be recommended.
        Required<std::vector<RecsModuleContext>> exclude;
        /// Content to choose from.
        Required<std::vector<RecsModuleContext>> include;
        /// The content that is currently displayed; empty for none.
        Required<std::optional<RecsModuleContext>> andModuleContext;
    };
    /// Creates the route from its arguments.
    explicit RecsModuleURI(Arguments arguments);

    /// The id of the module.
    std::string moduleId;
    /// The id of the user; omitted from the body if empty.
    std::optional<std::string> userId;
    /// The id of the account; omitted from the body if empty.
    std::optional<std::string> accountId;
    /// The id of the profile; omitted from the body if empty.
    std::optional<std::string> subprofileId;
    /// The content that is currently displayed; empty for none.
    std::optional<RecsModuleContext> moduleContext;
    /// The maximum number of recommendations.
    std::int64_t limit;
    /// Content that must not be recommended.
    std::vector<RecsModuleContext> excludeFilter;
    /// Content to choose from.
    std::vector<RecsModuleContext> includeFilter;
    /// The method of the request.
    std::optional<std::string> httpMethod;

    /// The path below the base URL.
    std::string path() const { return "api/v2/recommendations/" + moduleId; }
    /// This value, encoded; empty if a string is not UTF-8.
    std::optional<Data> postData() const;

    /// Writes the members in the order of the keys.
    void encode(JSONObjectWriter& writer) const;

    friend bool operator==(const RecsModuleURI&, const RecsModuleURI&) = default;
};

}  // namespace VanticRestKit
