#pragma once

/// \file
/// `KAVROSegmentsURI`: the route to the segments of a subprofile.

#include <VanticRestKit/Core/Required.h>
#include <VanticRestKit/platform/data/Data.h>
#include <VanticRestKit/platform/json/JSONEncoder.h>
#include <VanticRestKit/Visibility.h>

#include <optional>
#include <string>
#include <utility>

namespace VanticRestKit {

/// Asks for the audiences and badges of a subprofile.
struct VRK_EXPORT KAVROSegmentsURI {
    /// The arguments, by label.
    struct Arguments {
        /// The id of the profile.
        Required<std::string> withSubprofileID;
    };
    /// `KAVROSegmentsURI({.withSubprofileID = "12"})`
    explicit KAVROSegmentsURI(Arguments arguments)
        : subprofileid(std::move(arguments.withSubprofileID).value()) {}

    /// The method of the request.
    std::optional<std::string> httpMethod = "POST";
    /// The id of the profile.
    std::string subprofileid;

    /// The path below the base URL.
    std::string path() const { return "api/v1/gigya/segments"; }
    /// An object of the subprofile's id alone; empty where that is not UTF-8.
    std::optional<Data> postData() const;

    /// This value itself. The body is another one, and nothing in the library uses this.
    void encode(JSONObjectWriter& writer) const;

    friend bool operator==(const KAVROSegmentsURI&, const KAVROSegmentsURI&) = default;
};

}  // namespace VanticRestKit
