#include <VanticRestKit/platform/http/URLRequest.h>
#include <VanticRestKit/platform/json/ValueText.h>
#include <VanticRestKit/trelvo/detail/TrelvoProbe.h>

#include <algorithm>
#include <chrono>

#include "commands/Commands.h"
#include "Failure.h"
#include "operations/Operation.h"
#include "Output.h"
#include "user/UserHost.h"
#include "user/UserOperation.h"

namespace vantic {

using namespace VanticRestKit;

namespace {

/// A service that sends nothing and has no outcome.
class Unsent final : public Serviceable {
public:
    void fetch(FetchArguments) override {}
    AnyPublisher<Data> fetch() override {
        return AnyPublisher<Data>::create([](Subscriber<Data, Error>) { return Cancellable(); });
    }
};

/// The requests that the library has built, in order.
using Requests = std::vector<URLRequest>;

Serve collectingInto(Requests& requests) {
    return [&requests](URLRequest request) {
        requests.push_back(std::move(request));
        return std::make_shared<Unsent>();
    };
}

std::string headersText(const std::map<std::string, std::string>& headers, const std::string& margin) {
    std::string text = "{";
    for (const auto& [name, value] : headers) {
        text += (text.size() > 1 ? ",\n" : "\n") + margin + "    " + jsonText(name) + ": " + jsonText(value);
    }
    return text + (headers.empty() ? "}" : "\n" + margin + "  }");
}

std::string requestText(const URLRequest& request, const std::string& margin = "") {
    const std::optional<URL>& url = request.url();
    const std::optional<Data>& body = request.httpBody();
    const std::string next = ",\n" + margin + "  ";
    return margin + "{\n" + margin + "  \"method\": " + jsonText(request.httpMethod().value_or("")) + next +
           "\"url\": " + (url ? jsonText(url->absoluteString()) : "null") + next +
           "\"headers\": " + headersText(request.allHTTPHeaderFields(), margin) + next +
           "\"timeout\": " + numberText(request.timeoutInterval().count()) + next +
           "\"body\": " + (body ? jsonText(body->view()) : "null") + "\n" + margin + "}";
}

std::string listText(const Requests& requests) {
    std::string text;
    for (const URLRequest& request : requests)
        text += (text.empty() ? "[\n" : ",\n") + requestText(request, "  ");
    return text + "\n]";
}

/// A token that does not expire, because the clock of the client is fixed.
Auth lasting(const std::string& token) {
    return {.accessToken = token, .expiry = Date(std::chrono::hours(1)), .refreshToken = {}, .tokenType = {}};
}

void requestForUser(Words words) {
    const UserCall call = readUserCall(words, tokenOption());
    Trelvo trelvo = TrelvoProbe::make([] { return 0.0; });
    TrelvoProbe::state(trelvo).auth.store(lasting(call.given.text("token")));
    Requests requests;
    const auto watch = std::make_shared<RequestWatch>();
    const UserHost host(CommonOptions::read(call.given), call.given.optionalText("uid"),
                        collectingInto(requests));
    call.run(trelvo, host, watch);
    if (const auto outcome = watch->outcomeSoFar(); requests.empty() && outcome && !*outcome) {
        throw Failed{outcome->error().localizedDescription()};
    }
    if (requests.empty()) throw Failed{noRequest};
    print((requests.size() == 1 ? requestText(requests.front()) : listText(requests)) + "\n");
}

bool isUserOperation(const std::string& name) {
    const auto all = allUserOperations();
    return std::any_of(all.begin(), all.end(),
                       [&](const UserOperation& operation) { return operation.name == name; });
}

}  // namespace

void runRequest(Words words) {
    if (!words.empty() && isUserOperation(words.front())) return requestForUser(words);
    const Call call = readCall(words);
    Requests requests;
    const Host host(CommonOptions::read(call.given), collectingInto(requests));
    if (!call.operation.call(call.given, host)) throw Failed{noRequest};
    print(requestText(requests.back()) + "\n");
}

}  // namespace vantic
