#include <future>

#include "commands/Commands.h"
#include "Failure.h"
#include "operations/Operation.h"
#include "operations/Sending.h"
#include "Output.h"

namespace vantic {

namespace {

using VanticRestKit::Data;
using VanticRestKit::URLRequest;
using Body = VanticRestKit::Result<Data, VanticRestKit::Error>;

LoadedText loadValue(const Call& call, const CommonOptions& common) {
    const Host host(common, serveOver(common));
    const std::optional<Loadable> load = call.operation.call(call.given, host);
    if (!load) throw Failed{noRequest};
    auto promise = std::make_shared<std::promise<LoadedText>>();
    (*load)([promise](LoadedText text) { promise->set_value(std::move(text)); });
    return promise->get_future().get();
}

/// The unchanged body, which may be anything.
std::string loadBody(const Call& call, const CommonOptions& common) {
    std::shared_ptr<VanticRestKit::Serviceable> service;
    const Host host(common, [&service, serve = serveOver(common)](URLRequest request) {
        return service = serve(std::move(request));
    });
    if (!call.operation.call(call.given, host)) throw Failed{noRequest};
    auto promise = std::make_shared<std::promise<Body>>();
    service->fetch({.with = [promise](Body body) { promise->set_value(std::move(body)); }});
    const Body body = promise->get_future().get();
    if (!body) throw Failed{body.error().localizedDescription()};
    return std::string(body->view());
}

}  // namespace

std::span<const Option> loadOptions() {
    static constexpr Option options[] = {flag("raw", "prints the response body unchanged"),
                                         flag("quiet", "prints no value, only errors")};
    return options;
}

void runLoad(Words words) {
    const Call call = readCall(words, loadOptions());
    const CommonOptions common = CommonOptions::read(call.given);
    const bool isQuiet = call.given.flag("quiet");
    if (call.given.flag("raw")) {
        const std::string body = loadBody(call, common);
        if (!isQuiet) print(body);
        return;
    }
    const LoadedText text = loadValue(call, common);
    if (!text) throw Failed{text.error().localizedDescription()};
    if (!isQuiet) print(*text + "\n");
}

}  // namespace vantic
