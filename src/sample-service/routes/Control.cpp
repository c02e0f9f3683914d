#include "routes/Table.h"
#include "server/Clock.h"

namespace VanticRestKit::sample {

namespace {

Reply done() {
    Reply reply;
    reply.body = JSON{{"done", true}};
    return reply;
}

Reply addFault(const Request& request, Faults& faults) {
    const JSON json = JSON::parse(request.body, nullptr, false);
    if (json.is_discarded()) return failure(400, "the body is not JSON");
    Fault fault;
    if (const auto wrong = readFault(json, fault)) return failure(400, *wrong);
    faults.add(std::move(fault));
    return done();
}

Reply setClock(const Request& request) {
    const JSON json = JSON::parse(request.body, nullptr, false);
    if (!json.is_object() || !json.contains("now") || !json["now"].is_number() || json["now"] < 0) {
        return failure(400, "the body is not {\"now\": seconds since 1970}");
    }
    serviceClock().set(json["now"].get<double>());
    return done();
}

}  // namespace

std::vector<Route> controlRoutes(Faults& faults, RequestLog& log) {
    const auto faultList = [&faults](const Request&, const Captures&) {
        Reply reply;
        reply.body = faults.written();
        return reply;
    };
    const auto logList = [&log](const Request&, const Captures&) {
        Reply reply;
        reply.body = log.written();
        return reply;
    };
    const auto state = [&faults, &log](const Request&, const Captures&) {
        Reply reply;
        reply.body = JSON{{"requests", log.total()}, {"faults", faults.written()}};
        return reply;
    };
    const auto clearFaults = [&faults](const Request&, const Captures&) { return faults.clear(), done(); };
    const auto clearLog = [&log](const Request&, const Captures&) { return log.clear(), done(); };
    const auto end = [](const Request&, const Captures&) {
        Reply reply = done();
        reply.last = true;
        return reply;
    };
    return {
        {"GET", "_control/faults", faultList},
        {"POST", "_control/faults",
         [&faults](const Request& request, const Captures&) { return addFault(request, faults); }},
        {"DELETE", "_control/faults", clearFaults},
        {"PUT", "_control/clock", [](const Request& request, const Captures&) { return setClock(request); }},
        {"DELETE", "_control/clock",
         [](const Request&, const Captures&) { return serviceClock().set(std::nullopt), done(); }},
        {"GET", "_control/log", logList},
        {"DELETE", "_control/log", clearLog},
        {"GET", "_control/state", state},
        {"POST", "_control/stop", end},
    };
}

}  // namespace VanticRestKit::sample
