#include <VanticRestKit/Testing/SampleAnswers.h>

#include <routes/Table.h>
#include <routes/UserTable.h>
#include <server/Origin.h>
#include <server/Router.h>
#include <users/Users.h>

#include <iterator>
#include <utility>

namespace VanticRestKit::Testing {

namespace {

std::vector<sample::Route> allRoutes(sample::Users& users) {
    std::vector<sample::Route> routes = sample::serviceRoutes();
    std::vector<sample::Route> ofUsers = sample::userRoutes(users);
    std::move(ofUsers.begin(), ofUsers.end(), std::back_inserter(routes));
    return routes;
}

std::string bodyOf(sample::Reply& reply) {
    if (reply.text) return *std::move(reply.text);
    if (!reply.body) return {};
    sample::fillOrigin(*reply.body, "https://service.test");
    return reply.body->dump(-1, ' ', false, sample::JSON::error_handler_t::replace);
}

}  // namespace

struct SampleAnswers::Service {
    sample::Users users{3600};
    sample::Router router{allRoutes(users)};
};

SampleAnswers::SampleAnswers() : service_(std::make_shared<const Service>()) {}

Answer SampleAnswers::operator()(const AskedRequest& asked) const {
    const std::string line = asked.line();
    return ask(asked.method(), line.substr(line.find(' ') + 1), asked.request.allHTTPHeaderFields(),
               asked.body());
}

Answer SampleAnswers::ask(const std::string& method, const std::string& target,
                          const std::map<std::string, std::string>& headers, const std::string& body) const {
    sample::Request request;
    request.method = method;
    sample::readTarget(target, request);
    request.headers.assign(headers.begin(), headers.end());
    request.body = body;
    sample::Reply reply = service_->router.answer(request);
    Answer answer =
        Answer(bodyOf(reply)).withStatus(reply.status).withHeader("Content-Type", reply.contentType);
    for (const auto& [name, value] : reply.headers) answer = answer.withHeader(name, value);
    return answer;
}

}  // namespace VanticRestKit::Testing
