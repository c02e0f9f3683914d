#include "Routes.h"

#include "pages/Pages.h"

#include <variant>

namespace living_room {

namespace {

constexpr const char* cookieName = "living-room";

std::string cookieOf(const std::string& session) {
    return std::string(cookieName) + "=" + session + "; Path=/; HttpOnly; SameSite=Strict";
}

bool fits(const Route& route, const std::string& path) {
    const bool isFront = route.path.size() > 1 && route.path.ends_with('/');
    return isFront ? path.starts_with(route.path) : path == route.path;
}

/// The page that answers, or the status of why there is none.
std::variant<const Route*, int> routeFor(const Request& request) {
    int problem = 404;
    for (const auto& routes : {homeRoutes, showRoutes, videoRoutes, searchRoutes, liveRoutes, meRoutes,
                               userRoutes, panelRoutes, fileRoutes}) {
        for (const Route& route : routes) {
            if (!fits(route, request.path)) continue;
            if (route.method == request.method) return &route;
            problem = 405;
        }
    }
    return problem;
}

/// Which parts of a page a browser may get from where: all from this host, and no script or style in the page itself.
constexpr const char* contentPolicy =
    "default-src 'none'; script-src 'self'; style-src 'self'; img-src 'self'; media-src 'self' blob:; "
    "connect-src 'self'; worker-src 'self' blob:; form-action 'self'; base-uri 'none'; frame-ancestors "
    "'none'";

void secure(Answer& answer) {
    answer.headers.emplace_back("Content-Security-Policy", contentPolicy);
    answer.headers.emplace_back("X-Content-Type-Options", "nosniff");
    answer.headers.emplace_back("Referrer-Policy", "same-origin");
}

}  // namespace

Routes::Routes(const Service& service, Settings settings)
    : service_(service), settings_(std::move(settings)), users_(service) {}

bool Routes::isNameOfThisHost(const std::string& host) const {
    const std::string port = ":" + std::to_string(settings_.port);
    return host == "127.0.0.1" + port || host == "localhost" + port;
}

int Routes::problemOf(const Request& request) const {
    if (request.problem != 0) return request.problem;
    if (!isNameOfThisHost(request.header("host"))) return 421;
    if (request.method == "POST" && request.header("origin") != "http://" + request.header("host"))
        return 403;
    return 0;
}

Task<Answer> Routes::answer(Request request) {
    const int problem = problemOf(request);
    const auto route = problem != 0 ? problem : routeFor(request);
    Answer answer;
    if (const int* const status = std::get_if<int>(&route)) {
        answer = problemPage(*status);
    } else {
        const std::string session = request.cookie(cookieName);
        const auto user = users_.user(session);
        Visit visit{service_, settings_.hlsFile, std::move(request), user};
        answer = co_await (*std::get_if<const Route*>(&route))->page(std::move(visit));
        if (user->session() != session) answer.headers.emplace_back("Set-Cookie", cookieOf(user->session()));
    }
    secure(answer);
    co_return answer;
}

}  // namespace living_room
