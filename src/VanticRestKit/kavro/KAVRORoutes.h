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

/// The audiences and badges of a subprofile.
struct VRK_EXPORT KAVROSegmentsURI {
    /// The arguments of the constructor.
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
    /// A JSON object with only the id of the subprofile; empty if the id is not UTF-8.
    std::optional<Data> postData() const;

    /// Encodes this value. The library does not use this; the body of the request is different.
    void encode(JSONObjectWriter& writer) const;

    friend bool operator==(const KAVROSegmentsURI&, const KAVROSegmentsURI&) = default;
};

}  // namespace VanticRestKit
