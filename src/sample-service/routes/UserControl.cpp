#include "routes/UserTable.h"

namespace VanticRestKit::sample {

namespace {

Reply with(JSON body) {
    Reply reply;
    reply.body = std::move(body);
    return reply;
}

Reply done() { return with({{"done", true}}); }

Reply setTokens(const Request& request, Users& users) {
    const JSON json = JSON::parse(request.body, nullptr, false);
    if (json.is_discarded()) return failure(400, "the body is not JSON");
    if (const auto wrong = users.set(json)) return failure(400, *wrong);
    return done();
}

}  // namespace

std::vector<Route> userControlRoutes(Users& users) {
    return {
        {"GET", "_control/users",
         [&users](const Request&, const Captures&) { return with(users.writtenUsers()); }},
        {"DELETE", "_control/users",
         [&users](const Request&, const Captures&) { return users.clear(), done(); }},
        {"GET", "_control/tokens",
         [&users](const Request&, const Captures&) { return with(users.writtenSettings()); }},
        {"POST", "_control/tokens",
         [&users](const Request& request, const Captures&) { return setTokens(request, users); }},
        {"POST", "_control/tokens/expire",
         [&users](const Request&, const Captures&) { return users.expireTokens(), done(); }},
    };
}

}  // namespace VanticRestKit::sample
