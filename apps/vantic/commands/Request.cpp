#include <VanticRestKit/platform/http/URLRequest.h>
#include <VanticRestKit/platform/json/ValueText.h>

#include "commands/Commands.h"
#include "Failure.h"
#include "operations/Operation.h"
#include "Output.h"

namespace vantic {

using namespace VanticRestKit;

namespace {

/// Stands in for what would run a request: nobody asks it to.
class Unsent final : public Serviceable {
public:
    void fetch(FetchArguments) override {}
    AnyPublisher<Data> fetch() override {
        return AnyPublisher<Data>::create([](Subscriber<Data, Error>) { return Cancellable(); });
    }
};

std::string headersText(const std::map<std::string, std::string>& headers) {
    std::string text = "{";
    for (const auto& [name, value] : headers) {
        text += (text.size() > 1 ? ",\n    " : "\n    ") + jsonText(name) + ": " + jsonText(value);
    }
    return text + (headers.empty() ? "}" : "\n  }");
}

std::string requestText(const URLRequest& request) {
    const std::optional<URL>& url = request.url();
    const std::optional<Data>& body = request.httpBody();
    return "{\n  \"method\": " + jsonText(request.httpMethod().value_or("")) +
           ",\n  \"url\": " + (url ? jsonText(url->absoluteString()) : "null") +
           ",\n  \"headers\": " + headersText(request.allHTTPHeaderFields()) +
           ",\n  \"timeout\": " + numberText(request.timeoutInterval().count()) +
           ",\n  \"body\": " + (body ? jsonText(body->view()) : "null") + "\n}\n";
}

}  // namespace

void runRequest(Words words) {
    const Call call = readCall(words);
    std::optional<URLRequest> built;
    const Host host(CommonOptions::read(call.given), [&](URLRequest request) {
        built = std::move(request);
        return std::make_shared<Unsent>();
    });
    if (!call.operation.call(call.given, host)) throw Failed{"no request can be made of this"};
    print(requestText(*built));
}

}  // namespace vantic
