#include <VanticRestKit/platform/url/detail/PercentCoding.h>
#include <VanticRestKit/platform/url/detail/URLText.h>
#include <VanticRestKit/platform/url/URL.h>

#include <charconv>

namespace VanticRestKit {

namespace {

using detail::LeadingColon;
using detail::SharedURLText;
using detail::URLCharacters;
using detail::URLPart;
using detail::URLText;

/// Escapes that stay encoded: a decoded slash would separate segments, and a decoded NUL would end a C string.
constexpr std::string_view keptInPath("/\0", 2);

std::optional<std::string> decoded(const URLText& url, const URLPart& part) {
    if (!part.present) return std::nullopt;
    return detail::decodedText(url.view(part));
}

std::optional<std::string> asWritten(const URLText& url, const URLPart& part) {
    if (!part.present) return std::nullopt;
    return std::string(url.view(part));
}

}  // namespace

std::optional<URL> URL::make(std::string_view text) {
    if (text.empty()) return std::nullopt;
    SharedURLText read = detail::readURLText(text, LeadingColon::endsAnEmptyScheme);
    if (read == nullptr) return std::nullopt;
    return URL(std::move(read));
}

std::optional<URL> URL::make(std::string_view text, const URL& relativeTo) {
    const SharedURLText reference = detail::readURLText(text, LeadingColon::belongsToThePath);
    if (reference == nullptr) return std::nullopt;
    SharedURLText outcome = detail::resolved(*reference, *relativeTo.text_);
    if (outcome == nullptr || outcome->text.empty()) return std::nullopt;
    return URL(std::move(outcome));
}

const std::string& URL::absoluteString() const noexcept { return text_->text; }

std::optional<std::string> URL::scheme() const { return asWritten(*text_, text_->scheme); }

std::optional<std::string> URL::user() const { return decoded(*text_, text_->user); }

std::optional<std::string> URL::password() const { return decoded(*text_, text_->password); }

std::optional<std::string> URL::host() const {
    std::string_view host = text_->view(text_->host);
    if (host.empty()) return std::nullopt;
    if (host.front() == '[') host = host.substr(1, host.size() - 2);
    return detail::decodedText(host);
}

std::optional<std::int64_t> URL::port() const {
    const std::string_view digits = text_->view(text_->port);
    std::int64_t number = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (error != std::errc()) return std::nullopt;
    return number;
}

std::string URL::path() const {
    std::string_view path = text_->view(text_->path);
    if (path.size() > 1 && path.back() == '/') path.remove_suffix(1);
    return detail::decodedText(path, keptInPath);
}

std::optional<std::string> URL::query() const { return asWritten(*text_, text_->query); }

std::optional<std::string> URL::fragment() const { return asWritten(*text_, text_->fragment); }

std::string URL::percentEncodedPath() const { return std::string(text_->view(text_->path)); }

std::string URL::requestTarget() const {
    std::string target(text_->view(text_->path));
    if (target.empty()) target += '/';
    if (text_->query.present) {
        target += '?';
        target += text_->view(text_->query);
    }
    return target;
}

URL URL::appendingPathComponent(std::string_view component) const {
    if (component.empty()) return *this;
    const std::string_view before = text_->view(text_->path);
    std::string path;
    path.reserve(before.size() + 1 + component.size());
    path += before;
    const bool needsSeparator = !before.empty() || text_->host.present;
    if (needsSeparator) {
        if (component.front() == '/') component.remove_prefix(1);
        if (before.empty() || before.back() != '/') path += '/';
    }
    detail::appendEncoded(path, component, URLCharacters::path);
    return URL(detail::replacingPath(*text_, path));
}

}  // namespace VanticRestKit
