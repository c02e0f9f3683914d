#pragma once

#include "support/SampleService.h"

#include <gtest/gtest.h>
#include <httplib.h>

#include <string>

namespace VanticRestKit::test {

/// A client of another make than the library, so that the service is judged by itself.
inline httplib::Client clientOf(const SampleService& service) {
    httplib::Client client(service.baseURL());
    if (!service.authorityFile().empty()) client.set_ca_cert_path(service.authorityFile());
    return client;
}

/// The answer to a GET as JSON; null where there is none.
inline nlohmann::json get(const SampleService& service, const std::string& path) {
    auto client = clientOf(service);
    const auto answer = client.Get(path);
    return answer ? nlohmann::json::parse(answer->body, nullptr, false) : nlohmann::json();
}

}  // namespace VanticRestKit::test
