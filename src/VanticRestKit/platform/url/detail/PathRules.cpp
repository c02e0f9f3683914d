#include <VanticRestKit/platform/url/detail/PathRules.h>

namespace VanticRestKit::detail {

std::string unmistakablePath(const URLText& url, std::string path) {
    if (url.host.present) return path;
    if (path.starts_with("//")) return "/." + path;
    if (url.schemeEnd > 0) return path;
    std::string written;
    bool inFirstSegment = true;
    for (const char c : path) {
        inFirstSegment = inFirstSegment && c != '/';
        if (inFirstSegment && c == ':') {
            written += "%3A";
        } else {
            written += c;
        }
    }
    return written;
}

std::string withoutDotSegments(std::string_view path) {
    std::string out;
    while (!path.empty()) {
        // A segment is removed with the slash before it; only the first one may have none.
        const std::string_view segment = path.substr(0, path.find('/', 1));
        path.remove_prefix(segment.size());
        const bool rooted = segment.front() == '/';
        const std::string_view name = rooted ? segment.substr(1) : segment;
        if (name != "." && name != "..") {
            out += segment;
            continue;
        }
        if (name == "..") {
            const std::size_t last = out.rfind('/');
            out.resize(last == std::string::npos ? 0 : last);
        }
        if (path.empty() && rooted) out += '/';
        if (!path.empty() && !rooted) path.remove_prefix(1);
    }
    return out;
}

}  // namespace VanticRestKit::detail
