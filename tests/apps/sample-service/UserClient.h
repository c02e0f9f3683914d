#pragma once

#include "Client.h"

#include <utility>

namespace VanticRestKit::test {

/// A user of the service, signed in with a token.
class UserClient {
public:
    UserClient(const SampleService& service, std::string uid) : service_(service), uid_(std::move(uid)) {
        token_ = get(service, "/v2/token?UID=" + uid_ + "&source=lumeno")["auth"].value("access_token", "");
    }

    const std::string& token() const { return token_; }

    /// Sends a request with the token. `query` must begin with "&". Returns null without a JSON response.
    nlohmann::json ask(const std::string& method, const std::string& path, const std::string& query = {},
                       const std::string& body = {}) {
        httplib::Request request;
        request.method = method;
        request.path = "/v2/" + path + "?UID=" + uid_ + "&source=lumeno" + query;
        request.body = body;
        request.set_header("Authorization", "Bearer " + token_);
        request.set_header("Content-Type", "application/x-www-form-urlencoded");
        const auto answer = clientOf(service_).send(request);
        status = answer ? answer->status : 0;
        return answer ? nlohmann::json::parse(answer->body, nullptr, false) : nlohmann::json();
    }

    /// The status of the last response.
    int status = 0;

private:
    const SampleService& service_;
    std::string uid_;
    std::string token_;
};

/// The values of one key in a list of objects.
inline nlohmann::json column(const nlohmann::json& list, const char* key) {
    nlohmann::json values = nlohmann::json::array();
    for (const auto& item : list) values.push_back(item.value(key, nlohmann::json()));
    return values;
}

}  // namespace VanticRestKit::test
