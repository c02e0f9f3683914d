#pragma once

/// \file
/// A route as one line of text.

#include <VanticRestKit/Core/ResourceURI.h>

#include <string>

namespace VanticRestKit::test {

/// "PATCH v2/x [UID=u, source=lumeno] body", with "-" for no method, no "=" for an item without a value, and nothing at
/// the end without a body.
inline std::string routeText(const ResourceURI& route) {
    std::string text = route.httpMethod().value_or("-") + " " + route.path() + " [";
    for (const URLQueryItem& item : route.queryItems()) {
        if (!text.ends_with('[')) text += ", ";
        text += item.name;
        if (item.value) text += "=" + *item.value;
    }
    text += "]";
    if (route.postData()) text += " " + std::string(route.postData()->view());
    return text;
}

}  // namespace VanticRestKit::test
