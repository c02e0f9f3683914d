#pragma once

/// \file
/// A check that applies to most routes of the catalogue.

#include <gtest/gtest.h>
#include <VanticRestKit/Core/ResourceURI.h>

#include <string>
#include <vector>

namespace VanticRestKit::test {

/// Expects a GET without a body, with this path and these query items.
inline void expectAGet(const ResourceURI& route, const std::string& path,
                       const std::vector<URLQueryItem>& items = {}) {
    EXPECT_EQ(route.path(), path);
    EXPECT_EQ(route.queryItems(), items);
    EXPECT_EQ(route.postData(), std::nullopt);
    EXPECT_EQ(route.httpMethod(), std::nullopt);
}

}  // namespace VanticRestKit::test
