#pragma once

/// \file
/// Helpers shared by the tests of bad networks.

#include <VanticRestKit/Core/ErrorAdvice.h>
#include <VanticRestKit/platform/http/URLSession.h>

#include <gtest/gtest.h>
#include <support/Certificates.h>
#include <support/Loading.h>
#include <support/PlainOrigin.h>

#include <chrono>
#include <cstdint>
#include <string>

namespace VanticRestKit::test {

/// The category of a load's error, or "success".
inline std::string outcomeOf(const Loaded& loaded) {
    const auto& error = loaded.error();
    return error ? nameOf(categoryOf(*error)) : "success";
}

/// A GET of a target with `size` bytes from a port of a host.
inline URLRequest requestFor(const std::string& host, std::uint16_t port, std::uint64_t id,
                             std::chrono::duration<double> interval = std::chrono::seconds(30),
                             std::size_t size = 200) {
    URLRequest request = requestOf(host + ":" + std::to_string(port) + targetFor(size, id));
    request.setTimeoutInterval(interval);
    return request;
}

/// Whether a load received the complete response to its own request.
inline testing::AssertionResult isAnswered(const Loaded& loaded, std::uint64_t id, std::size_t size = 200) {
    if (loaded.body() == bodyFor(targetFor(size, id))) return testing::AssertionSuccess();
    return testing::AssertionFailure() << "load " << id << ": " << loaded.story();
}

}  // namespace VanticRestKit::test
