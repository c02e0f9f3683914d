#pragma once

#include "support/SampleService.h"

#include <gtest/gtest.h>
#include <httplib.h>

#include <string>

namespace VanticRestKit::test {

/// A client independent of the library, so that only the service is tested.
inline httplib::Client clientOf(const SampleService& service) {
    httplib::Client client(service.baseURL());
    if (!service.authorityFile().empty()) client.set_ca_cert_path(service.authorityFile());
    return client;
}

/// The response to a GET as JSON, null if there is none.
inline nlohmann::json get(const SampleService& service, const std::string& path) {
    auto client = clientOf(service);
    const auto answer = client.Get(path);
    return answer ? nlohmann::json::parse(answer->body, nullptr, false) : nlohmann::json();
}

}  // namespace VanticRestKit::test
