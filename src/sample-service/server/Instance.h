#pragma once

#include <functional>
#include <optional>
#include <string>

#include "server/Certificate.h"
#include "server/Faults.h"
#include "server/RequestLog.h"
#include "server/Scenario.h"
#include "server/Service.h"
#include "users/Users.h"

namespace VanticRestKit::sample {

struct Settings {
    int port = 0;  // 0: any free port
    bool tls = false;
    double tokenSeconds = 3600;
    bool ownStreams = false;  // URLs of streams and captions refer to this service
    bool scenarios = false;   // enables the routes under "control/", see Scenario.h
};

/// A complete service: routes, users, faults, log and server.
class Instance {
public:
    /// `ended` is called, on any thread, after a client's request to shut down has been answered.
    Instance(const Settings& settings, std::function<void()> ended);

    /// Listens on 127.0.0.1 and returns. False if the port is not available.
    bool start();
    void stop() { service_.stop(); }

    int port() const { return service_.port(); }
    /// "http://127.0.0.1:41417"
    std::string baseURL() const;
    /// With TLS, the certificate that a client must trust, as PEM; otherwise empty.
    std::string authority() const { return certificate_ ? certificate_->authority : std::string(); }

    Faults& faults() { return faults_; }
    RequestLog& log() { return log_; }
    Users& users() { return users_; }

private:
    Settings settings_;
    std::optional<Certificate> certificate_;
    Faults faults_;
    RequestLog log_;
    Users users_;
    Scenario scenario_;
    Service service_;
};

}  // namespace VanticRestKit::sample
