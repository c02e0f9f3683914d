#pragma once

#include <httplib.h>

#include <functional>
#include <memory>
#include <string>
#include <thread>

#include "server/Certificate.h"
#include "server/Connections.h"
#include "server/Faults.h"
#include "server/RequestLog.h"
#include "server/Router.h"
#include "server/Scenario.h"

namespace VanticRestKit::sample {

/// The parts that change and record the answers of a service.
struct Steering {
    Faults& faults;
    RequestLog& log;
    Scenario* scenario = nullptr;  // null: there are no scenarios
    bool ownStreams = false;       // URLs of streams refer to this service
};

/// The HTTP server: passes requests to the table of routes and applies faults to answers.
class Service {
public:
    /// The routes under "_control/", and "control/" if there are scenarios, take precedence; they are not logged and
    /// not affected by faults. `ended` is called, on any thread, after the last answer.
    Service(Router routes, Router control, Steering steering, std::function<void()> ended);
    ~Service();

    /// Listens on 127.0.0.1 and returns; port 0 selects a free one. False if the port is not available.
    bool start(int port, const Certificate* certificate);
    int port() const { return port_; }

    /// Ends once the answers in progress are written. Delayed ones are dropped.
    void stop();

private:
    void handle(const httplib::Request& raw, httplib::Response& response, const httplib::ContentReader* body);
    bool isControl(const Request& request) const;
    /// How a request ended, for the records of scenarios.
    struct Outcome {
        int status = 0;  // 0: without an answer
        bool clientLeft = false;
    };

    void answer(const Request& request, httplib::Response& response);
    Outcome reply(const Request& request, httplib::Response& response);
    void cutShort(const Request& request, const Fault& fault, std::string text, httplib::Response& response);

    Router routes_;
    Router control_;
    Steering steering_;
    std::function<void()> ended_;
    std::unique_ptr<httplib::Server> server_;
    std::unique_ptr<Connections> connections_;
    std::thread listening_;
    int port_ = 0;
    bool secure_ = false;
};

}  // namespace VanticRestKit::sample
