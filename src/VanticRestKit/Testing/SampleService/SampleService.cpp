#include <VanticRestKit/Testing/SampleService/SampleService.h>

#include <server/Instance.h>

#include <atomic>
#include <utility>

namespace VanticRestKit::Testing {

namespace {

const char* nameOf(SampleFault::Kind kind) {
    switch (kind) {
        case SampleFault::Kind::delay: return "delay";
        case SampleFault::Kind::stall: return "stall";
        case SampleFault::Kind::reset: return "reset";
        case SampleFault::Kind::malformed: return "malformed";
        case SampleFault::Kind::status: return "status";
        case SampleFault::Kind::unknownEnum: return "unknownEnum";
        case SampleFault::Kind::oddities: return "oddities";
        case SampleFault::Kind::null: return "null";
        case SampleFault::Kind::expiredToken: return "expiredToken";
    }
    return "";
}

sample::JSON written(const SampleFault& fault) {
    sample::JSON json{{"fault", nameOf(fault.kind)},      {"path", fault.path},
                      {"method", fault.method},           {"count", fault.count},
                      {"seconds", fault.seconds.count()}, {"status", fault.status}};
    if (fault.after) json["after"] = *fault.after;
    if (fault.text) json["text"] = *fault.text;
    if (!fault.at.empty()) json["at"] = fault.at;
    return json;
}

}  // namespace

struct SampleService::State {
    explicit State(const Options& options)
        : instance({.port = options.port, .tls = options.tls, .tokenSeconds = options.tokensLast.count()},
                   [] {}),
          isRunning(instance.start()) {}

    sample::Instance instance;
    std::atomic<bool> isRunning;
};

SampleService::SampleService() : SampleService(Options{}) {}

SampleService::SampleService(const Options& options) : state_(std::make_unique<State>(options)) {}

SampleService::~SampleService() { stop(); }

bool SampleService::isRunning() const { return state_->isRunning; }

void SampleService::stop() {
    if (state_->isRunning.exchange(false)) state_->instance.stop();
}

URL SampleService::baseURL() const {
    const std::optional<URL> url = port() == 0 ? std::nullopt : URL::make(state_->instance.baseURL());
    return url ? *url : URL("http://127.0.0.1:1");
}

std::uint16_t SampleService::port() const {
    const int port = state_->instance.port();
    return port > 0 ? static_cast<std::uint16_t>(port) : std::uint16_t{0};
}

std::string SampleService::authority() const { return state_->instance.authority(); }

bool SampleService::add(const SampleFault& fault) {
    sample::Fault read;
    if (sample::readFault(written(fault), read)) return false;
    state_->instance.faults().add(std::move(read));
    return true;
}

void SampleService::clearFaults() { state_->instance.faults().clear(); }

std::vector<std::string> SampleService::log() const {
    std::vector<std::string> lines;
    for (const auto& request : state_->instance.log().written()) {
        lines.push_back(request.value("method", "") + " " + request.value("target", ""));
    }
    return lines;
}

std::string SampleService::logDocument() const {
    return state_->instance.log().written().dump(-1, ' ', false, sample::JSON::error_handler_t::replace);
}

void SampleService::clearLog() { state_->instance.log().clear(); }

void SampleService::expireTokens() { state_->instance.users().expireTokens(); }

void SampleService::clearUsers() { state_->instance.users().clear(); }

}  // namespace VanticRestKit::Testing
