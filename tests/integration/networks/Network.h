#pragma once

/// \file
/// What the tests of bad networks share.

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

/// The category of what a load ended with; "success" if it succeeded.
inline std::string outcomeOf(const Loaded& loaded) {
    const auto& error = loaded.error();
    return error ? nameOf(categoryOf(*error)) : "success";
}

/// A GET of a target of `size` bytes from a port of a host.
inline URLRequest requestFor(const std::string& host, std::uint16_t port, std::uint64_t id,
                             std::chrono::duration<double> interval = std::chrono::seconds(30),
                             std::size_t size = 200) {
    URLRequest request = requestOf(host + ":" + std::to_string(port) + targetFor(size, id));
    request.setTimeoutInterval(interval);
    return request;
}

/// Whether a load brought the answer to its own request, whole.
inline testing::AssertionResult isAnswered(const Loaded& loaded, std::uint64_t id, std::size_t size = 200) {
    if (loaded.body() == bodyFor(targetFor(size, id))) return testing::AssertionSuccess();
    return testing::AssertionFailure() << "load " << id << ": " << loaded.story();
}

}  // namespace VanticRestKit::test
