#include "Routes.h"

#include "pages/Pages.h"

#include <algorithm>
#include <utility>

namespace living_room {

using namespace VanticRestKit;

namespace {

constexpr const char* cookieName = "living-room";

struct Route {
    std::string_view method;
    /// A whole path, or the front of one if it ends with a slash.
    std::string_view path;
    Page page;
};

constexpr Route routes[] = {
    {"GET", "/", homePage},
    {"GET", "/home/screen", homeScreen},
    {"GET", "/row", row},
    {"GET", "/notice", notice},
    {"GET", "/show", showPage},
    {"GET", "/show/screen", showScreen},
    {"GET", "/show/series", seriesPart},
    {"GET", "/show/related", relatedRow},
    {"GET", "/show/save", savePart},
    {"POST", "/save", save},
    {"GET", "/video", videoPage},
    {"GET", "/video/screen", videoScreen},
    {"POST", "/progress", keepProgress},
    {"GET", "/search", searchPage},
    {"GET", "/search/results", searchResults},
    {"GET", "/live", livePage},
    {"GET", "/live/now", liveNow},
    {"GET", "/live/row", liveRow},
    {"GET", "/continue", continueRow},
    {"GET", "/me", mePage},
    {"GET", "/me/people", profiles},
    {"GET", "/me/list", myList},
    {"GET", "/me/history", history},
    {"GET", "/me/recommendations", recommendations},
    {"POST", "/sign-in", signIn},
    {"POST", "/sign-out", signOut},
    {"POST", "/profile", chooseProfile},
    {"GET", "/panel", panelLists},
    {"POST", "/fault", setFault},
    {"GET", "/picture", picture},
    {"GET", "/stream/", stream},
    {"GET", "/hls.js", hostFile},
    {"GET", "/living-room.css", hostFile},
    {"GET", "/living-room.js", hostFile},
    {"GET", "/living-room.svg", hostFile},
};

bool fits(const Route& route, const std::string& path) {
    const bool isFront = route.path.size() > 1 && route.path.ends_with('/');
    return isFront ? path.starts_with(route.path) : path == route.path;
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

bool Routes::isFromThisSite(const Request& request) const {
    return request.header("origin") == "http://" + request.header("host");
}

Task<Answer> Routes::answer(Request request) {
    int problem = 0;
    const auto path = [&](const Route& route) { return fits(route, request.path); };
    const auto route = [&](const Route& one) { return path(one) && one.method == request.method; };
    const Route* const found = std::find_if(std::begin(routes), std::end(routes), route);
    if (request.problem != 0) {
        problem = request.problem;
    } else if (!isNameOfThisHost(request.header("host"))) {
        problem = 421;
    } else if (found == std::end(routes)) {
        problem = std::any_of(std::begin(routes), std::end(routes), path) ? 405 : 404;
    } else if (request.method == "POST" && !isFromThisSite(request)) {
        problem = 403;
    }
    Answer answer;
    if (problem != 0) {
        answer = problemPage(problem);
    } else {
        const std::string session = request.cookie(cookieName);
        const auto user = users_.user(session);
        Visit visit{service_, settings_.hlsFile, std::move(request), user};
        answer = co_await found->page(std::move(visit));
        if (user->session() != session) {
            answer.headers.emplace_back("Set-Cookie", std::string(cookieName) + "=" + user->session() +
                                                          "; Path=/; HttpOnly; SameSite=Strict");
        }
    }
    secure(answer);
    co_return answer;
}

}  // namespace living_room
