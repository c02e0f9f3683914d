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
    struct Arguments {
        Required<std::string> withModuleId;
        Required<std::optional<std::string>> userId;
        Required<std::optional<std::string>> accountId;
        Required<std::optional<std::string>> subprofileId;
        Required<std::int64_t> limit;
        Required<std::string> httpMethod;
        Required<std::vector<RecsModuleContext>> exclude;
        Required<std::vector<RecsModuleContext>> include;
        Required<std::optional<RecsModuleContext>> andModuleContext;
    };
    explicit RecsModuleURI(Arguments arguments);

    std::string moduleId;
    std::optional<std::string> userId;
    std::optional<std::string> accountId;
    std::optional<std::string> subprofileId;
    /// The content that is shown when the recommendations are asked for.
    std::optional<RecsModuleContext> moduleContext;
    /// How many at most.
    std::int64_t limit;
    std::vector<RecsModuleContext> excludeFilter;
    std::vector<RecsModuleContext> includeFilter;
    std::optional<std::string> httpMethod;

    std::string path() const { return "api/v2/recommendations/" + moduleId; }
    /// The encoding of this value; empty where a text is not UTF-8.
    std::optional<Data> postData() const;

    void encode(JSONObjectWriter& writer) const;

    friend bool operator==(const RecsModuleURI&, const RecsModuleURI&) = default;
};

}  // namespace VanticRestKit
