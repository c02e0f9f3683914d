// Files: pictures, streams and captions of the service, which browsers get through the host, and the host's own files.

#include "Pages.h"

#include <fstream>
#include <iterator>

namespace living_room {
namespace {

Answer fileAnswer(const std::string& path, Data body, const char* caching) {
    constexpr std::pair<std::string_view, const char*> types[] = {{".svg", "image/svg+xml"},
                                                                  {".css", "text/css; charset=utf-8"},
                                                                  {".js", "text/javascript; charset=utf-8"},
                                                                  {".m3u8", "application/vnd.apple.mpegurl"},
                                                                  {".m4s", "video/mp4"},
                                                                  {".mp4", "video/mp4"},
                                                                  {".vtt", "text/vtt; charset=utf-8"}};
    Answer answer{.body = std::move(body), .headers = {{"Cache-Control", caching}}};
    answer.type = "application/octet-stream";
    for (const auto& [ending, type] : types) {
        if (path.ends_with(ending)) answer.type = type;
    }
    return answer;
}

}  // namespace

/// Its path is relative to the base URL, so that no other server can be asked.
Task<Answer> serviceFile(Visit visit) {
    const std::string& path = visit.request.path;
    if (!isFilePath(path)) co_return problemPage(404);
    const HrefURI route({.withHref = path.substr(1), .andQueryItems = std::vector<URLQueryItem>()});
    auto resource = Resource<Data>::make({.with = route}, visit.catalogue());
    const auto file = co_await load(std::move(resource), visit.options());
    if (file) co_return fileAnswer(path, *file, "private, max-age=300");
    Answer answer;
    answer.status = categoryOf(file.error()) == ErrorCategory::notFound ? 404 : 502;
    co_return answer;
}

Task<Answer> hostFile(Visit visit) {
    const std::string& path = visit.request.path;
    const std::string_view text = asset(path.substr(1));
    co_return text.empty() ? problemPage(404) : fileAnswer(path, Data(text), "no-cache");
}

Task<Answer> hlsFile(Visit visit) {
    std::ifstream file(visit.hlsFile, std::ios::binary);
    if (!file) co_return problemPage(404);
    std::string text(std::istreambuf_iterator<char>(file), {});
    co_return fileAnswer(".js", Data(std::move(text)), "private, max-age=3600");
}

}  // namespace living_room
