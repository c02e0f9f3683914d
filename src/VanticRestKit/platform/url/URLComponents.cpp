#include <VanticRestKit/platform/url/detail/PercentCoding.h>
#include <VanticRestKit/platform/url/detail/URLText.h>
#include <VanticRestKit/platform/url/URLComponents.h>

namespace VanticRestKit {

namespace {

using detail::LeadingColon;
using detail::SharedURLText;
using detail::URLCharacters;

/// A string that begins with ":" is parsed differently as a `URL` and as components.
bool readsDifferently(std::string_view text) { return text.empty() || text.front() == ':'; }

URLQueryItem itemFrom(std::string_view text) {
    const std::size_t equals = text.find('=');
    URLQueryItem item{.name = detail::decodedBytes(text.substr(0, equals))};
    if (equals != std::string_view::npos) item.value = detail::decodedBytes(text.substr(equals + 1));
    return item;
}

std::string queryFrom(const std::vector<URLQueryItem>& items) {
    std::string query;
    bool first = true;
    for (const URLQueryItem& item : items) {
        if (!first) query += '&';
        first = false;
        detail::appendEncoded(query, item.name, URLCharacters::queryItem);
        if (!item.value) continue;
        query += '=';
        detail::appendEncoded(query, *item.value, URLCharacters::queryItem);
    }
    return query;
}

}  // namespace

std::optional<URLComponents> URLComponents::make(std::string_view text) {
    SharedURLText read = detail::readURLText(text, LeadingColon::belongsToThePath);
    if (read == nullptr) return std::nullopt;
    return URLComponents(std::move(read));
}

std::optional<URLComponents> URLComponents::make(const URL& url, bool /*resolvingAgainstBaseURL*/) {
    if (readsDifferently(url.absoluteString())) return make(url.absoluteString());
    return URLComponents(url.text_);
}

std::optional<std::string> URLComponents::scheme() const {
    if (!text_->scheme.present) return std::nullopt;
    return std::string(text_->view(text_->scheme));
}

std::optional<std::string> URLComponents::host() const {
    if (!text_->host.present) return std::nullopt;
    return detail::decodedText(text_->view(text_->host));
}

std::string URLComponents::path() const { return detail::decodedText(text_->view(text_->path)); }

std::optional<std::string> URLComponents::query() const {
    if (!text_->query.present) return std::nullopt;
    return detail::decodedText(text_->view(text_->query));
}

std::optional<std::vector<URLQueryItem>> URLComponents::queryItems() const {
    if (!text_->query.present) return std::nullopt;
    std::vector<URLQueryItem> items;
    std::string_view rest = text_->view(text_->query);
    if (rest.empty()) return items;
    for (;;) {
        const std::size_t end = rest.find('&');
        items.push_back(itemFrom(rest.substr(0, end)));
        if (end == std::string_view::npos) return items;
        rest.remove_prefix(end + 1);
    }
}

void URLComponents::setQueryItems(const std::optional<std::vector<URLQueryItem>>& items) {
    if (!items) {
        text_ = detail::replacingQuery(*text_, std::nullopt);
    } else {
        text_ = detail::replacingQuery(*text_, queryFrom(*items));
    }
}

std::optional<URL> URLComponents::url() const {
    if (readsDifferently(text_->text)) return URL::make(text_->text);
    return URL(text_);
}

bool URLComponents::equals(const URLComponents& other) const noexcept {
    return text_->text == other.text_->text;
}

}  // namespace VanticRestKit
