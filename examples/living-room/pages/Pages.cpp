#include "Pages.h"

namespace living_room {
namespace {

Task<Answer> screenPage(Visit visit) { co_return screenAnswer(visit); }

struct Route {
    /// Method and path. A star at its end stands for the rest of the path.
    std::string_view request;
    Page* page;
};

// Shows, videos and files have the same paths here as at the service.
constexpr Route routes[] = {{"GET /", screenPage},
                            {"GET /show/*", screenPage},
                            {"GET /video/*", screenPage},
                            {"GET /search", screenPage},
                            {"GET /live", livePage},
                            {"GET /me", screenPage},
                            {"GET /part/", homePart},
                            {"GET /part/collection/*", rowPart},
                            {"GET /part/notice", noticePart},
                            {"GET /part/show/*", showPart},
                            {"GET /part/series/*", episodesPart},
                            {"GET /part/related", relatedPart},
                            {"GET /part/video/*", videoPart},
                            {"GET /part/search", searchPart},
                            {"GET /part/live", channelsPart},
                            {"GET /part/live-row", channelRowPart},
                            {"GET /part/me", profilesPart},
                            {"GET /part/list", listPart},
                            {"GET /part/history", historyPart},
                            {"GET /part/recommendations", recommendationsPart},
                            {"GET /part/continue", continuePart},
                            {"GET /part/save", saveButton},
                            {"GET /part/panel", panelPart},
                            {"GET /avatar", avatar},
                            {"GET /pictures/*", serviceFile},
                            {"GET /hls/*", serviceFile},
                            {"GET /captions/*", serviceFile},
                            {"GET /hls.js", hlsFile},
                            {"GET /living-room.*", hostFile},
                            {"POST /sign-in", signIn},
                            {"POST /sign-out", signOut},
                            {"POST /profile", chooseProfile},
                            {"POST /save", save},
                            {"POST /progress", keepProgress},
                            {"POST /fault", setFault}};

constexpr const char* cookieName = "living-room";

/// What pages may load: everything from this host only, and no scripts or styles written in the page.
constexpr const char* contentPolicy =
    "default-src 'none'; script-src 'self'; style-src 'self'; img-src 'self'; media-src 'self' blob:; "
    "connect-src 'self'; worker-src 'self' blob:; form-action 'self'; base-uri 'none'; frame-ancestors "
    "'none'";

/// The page for a request, or the status with which it is refused.
std::variant<Page*, int> pageFor(const Request& request, std::uint16_t port) {
    const std::string suffix = ":" + std::to_string(port);
    if (request.problem != 0) return request.problem;
    // A page of another site could make the name of that site lead here.
    if (request.host != "127.0.0.1" + suffix && request.host != "localhost" + suffix) return 421;
    if (request.method == "POST" && request.origin != "http://" + request.host) return 403;
    if (request.method != "GET" && request.method != "POST") return 405;
    const std::string asked = request.method + " " + request.path;
    for (const auto& [pattern, page] : routes) {
        const std::string_view front = pattern.substr(0, pattern.find('*'));
        if (asked == pattern || (front != pattern && asked.starts_with(front))) return page;
    }
    return 404;
}

}  // namespace

Task<Answer> Pages::answer(Request request) {
    const auto found = pageFor(request, port_);
    Answer answer;
    if (const int* const problem = std::get_if<int>(&found)) {
        answer = problemPage(*problem);
    } else {
        const std::string session = request.cookie(cookieName);
        const auto user = users_.user(session);
        Visit visit{service_, hlsFile_, std::move(request), user};
        answer = co_await std::get<Page*>(found)(std::move(visit));
        if (user->session != session) {
            answer.headers.emplace_back("Set-Cookie", std::string(cookieName) + "=" + user->session +
                                                          "; Path=/; HttpOnly; SameSite=Strict");
        }
    }
    answer.headers.emplace_back("Content-Security-Policy", contentPolicy);
    answer.headers.emplace_back("X-Content-Type-Options", "nosniff");
    answer.headers.emplace_back("Referrer-Policy", "same-origin");
    co_return answer;
}

Answer screenAnswer(const Visit& visit, Value values) {
    visit.user->log->clear();
    const std::string& path = visit.request.path;
    const std::string screen = path == "/" ? "home" : path.substr(1, path.find('/', 1) - 1);
    values["screen"] = screen;
    values[screen] = true;
    values["target"] = visit.request.target;
    values["word"] = visit.field("q");
    values["account"] = visit.user->account();
    values["hasHls"] = !visit.hlsFile.empty();
    return pageAnswer("page", std::move(values));
}

}  // namespace living_room
