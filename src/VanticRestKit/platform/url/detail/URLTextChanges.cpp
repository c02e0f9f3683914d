#include <VanticRestKit/platform/url/detail/PathRules.h>
#include <VanticRestKit/platform/url/detail/URLText.h>

#include <utility>

namespace VanticRestKit::detail {

namespace {

/// If the part is present, appends it after its delimiter and records its position.
void append(URLText& url, URLPart& part, char before, std::optional<std::string_view> content) {
    part = {};
    if (!content) return;
    url.text += before;
    part = {.begin = url.text.size(), .length = content->size(), .present = true};
    url.text += *content;
}

/// Copies all of `url` before its path, with the positions of the parts there; the rest must be appended.
std::shared_ptr<URLText> headOf(const URLText& url, std::size_t extraCapacity) {
    const auto head = std::make_shared<URLText>();
    head->text.reserve(url.text.size() + extraCapacity);
    head->text.assign(url.text, 0, url.path.begin);
    head->schemeEnd = url.schemeEnd;
    head->scheme = url.scheme;
    head->user = url.user;
    head->password = url.password;
    head->host = url.host;
    head->port = url.port;
    return head;
}

void appendTail(URLText& url, std::string_view path, std::optional<std::string_view> query,
                std::optional<std::string_view> fragment) {
    url.path = {.begin = url.text.size(), .length = path.size(), .present = true};
    url.text += path;
    append(url, url.query, '?', query);
    append(url, url.fragment, '#', fragment);
}

/// The path of a relative reference merged with the base path.
std::string merged(const URLText& reference, const URLText& base) {
    const std::string_view path = reference.view(reference.path);
    if (path.starts_with('/')) return std::string(path);
    const std::string_view before = base.view(base.path);
    if (before.empty() && base.host.present) return "/" + std::string(path);
    const std::size_t slash = before.rfind('/');
    const std::string_view folder = before.substr(0, slash == std::string_view::npos ? 0 : slash + 1);
    return std::string(folder) + std::string(path);
}

}  // namespace

SharedURLText replacingPath(const URLText& url, std::string_view path) {
    const auto changed = headOf(url, path.size());
    appendTail(*changed, unmistakablePath(*changed, std::string(path)), url.find(url.query),
               url.find(url.fragment));
    return changed;
}

SharedURLText replacingQuery(const URLText& url, std::optional<std::string_view> query) {
    const auto changed = headOf(url, query ? query->size() + 1 : 0);
    appendTail(*changed, url.view(url.path), query, url.find(url.fragment));
    return changed;
}

SharedURLText resolved(const URLText& reference, const URLText& base) {
    if (reference.scheme.present || reference.host.present) {
        const std::string head = base.text.substr(0, reference.scheme.present ? 0 : base.schemeEnd);
        const SharedURLText absolute = readURLText(head + reference.text, LeadingColon::endsAnEmptyScheme);
        if (absolute == nullptr) return nullptr;
        return replacingPath(*absolute, withoutDotSegments(absolute->view(absolute->path)));
    }
    std::optional<std::string_view> query = reference.find(reference.query);
    std::string path;
    if (reference.path.length > 0) {
        path = withoutDotSegments(merged(reference, base));
    } else {
        path = base.view(base.path);
        if (!query) query = base.find(base.query);
    }
    const auto relative = headOf(base, reference.text.size());
    appendTail(*relative, unmistakablePath(*relative, std::move(path)), query,
               reference.find(reference.fragment));
    return relative;
}

}  // namespace VanticRestKit::detail
