// Files: pictures and streams of the service, which browsers get through the host, and the host's own.

#include "Pages.h"

#include "../Assets.h"

#include <fstream>
#include <iterator>

namespace living_room {

namespace {

constexpr struct {
    std::string_view ending;
    const char* type;
} types[] = {{".svg", "image/svg+xml"},
             {".css", "text/css; charset=utf-8"},
             {".js", "text/javascript; charset=utf-8"},
             {".m3u8", "application/vnd.apple.mpegurl"},
             {".ts", "video/mp2t"},
             {".m4s", "video/mp4"},
             {".mp4", "video/mp4"},
             {".vtt", "text/vtt; charset=utf-8"}};

const char* typeOf(std::string_view path) {
    for (const auto& [ending, type] : types) {
        if (path.ends_with(ending)) return type;
    }
    return "application/octet-stream";
}

Answer fileAnswer(const std::string& path, Data body, const char* caching) {
    return {.type = typeOf(path), .body = std::move(body), .headers = {{"Cache-Control", caching}}};
}

/// A file of the service. Its path is relative to the base URL, so that no other server can be asked.
Task<Answer> fileOfService(Visit visit, std::string path) {
    const HrefURI route({.withHref = path, .andQueryItems = std::vector<URLQueryItem>()});
    auto resource = Resource<Data>::make({.with = route}, visit.catalogue());
    const auto file = co_await load(std::move(resource), visit.options());
    if (!file) {
        const bool isMissing = categoryOf(file.error()) == ErrorCategory::notFound;
        Answer answer;
        answer.status = isMissing ? 404 : 502;
        co_return answer;
    }
    co_return fileAnswer(path, *file, "private, max-age=300");
}

Task<Answer> picture(Visit visit) {
    std::string path = visit.request.queried("at");
    if (!isPicturePath(path)) co_return problemPage(404);
    co_return co_await fileOfService(std::move(visit), std::move(path));
}

Task<Answer> stream(Visit visit) {
    std::string path = visit.request.path.substr(std::string_view("/stream/").size());
    if (!isStreamPath(path)) co_return problemPage(404);
    co_return co_await fileOfService(std::move(visit), std::move(path));
}

Task<Answer> hostFile(Visit visit) {
    const std::string& path = visit.request.path;
    if (path == "/hls.js") {
        std::ifstream file(visit.hlsFile, std::ios::binary);
        if (!file) co_return problemPage(404);
        std::string text(std::istreambuf_iterator<char>(file), {});
        co_return fileAnswer(path, Data(std::move(text)), "private, max-age=3600");
    }
    const std::string_view text = path.ends_with(".css")  ? assets::css
                                  : path.ends_with(".js") ? assets::js
                                                          : assets::svg;
    co_return fileAnswer(path, Data(text), "no-cache");
}

constexpr Route routes[] = {{"GET", "/picture", picture},         {"GET", "/stream/", stream},
                            {"GET", "/hls.js", hostFile},         {"GET", "/living-room.css", hostFile},
                            {"GET", "/living-room.js", hostFile}, {"GET", "/living-room.svg", hostFile}};

}  // namespace

const std::span<const Route> fileRoutes(routes);

}  // namespace living_room
