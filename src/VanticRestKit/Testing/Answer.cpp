#include <VanticRestKit/platform/error/NSError.h>
#include <VanticRestKit/platform/http/detail/HeaderName.h>
#include <VanticRestKit/Testing/Answer.h>
#include <VanticRestKit/Testing/detail/Files.h>

#include <map>
#include <string_view>

namespace VanticRestKit::Testing {

namespace {

const char* contentTypeOf(std::string_view path) {
    if (path.ends_with(".json")) return "application/json";
    return "text/plain; charset=utf-8";
}

}  // namespace

Answer::Answer(std::string json)
    : body_(Data(std::move(json))), headers_{{"Content-Type", "application/json"}} {}

Answer Answer::file(const std::string& path) {
    std::optional<std::string> content = detail::readFile(path);
    if (!content) {
        return error(
            NSError(errorDomain, 1,
                    {{std::string(NSLocalizedDescriptionKey), "The file " + path + " cannot be read"}}));
    }
    return Answer(*std::move(content)).withHeader("Content-Type", contentTypeOf(path));
}

Answer Answer::status(std::int64_t status) {
    Answer answer;
    answer.body_.emplace();
    answer.status_ = status;
    return answer;
}

Answer Answer::error(URLErrorCode code) {
    Answer answer;
    answer.failure_ = code;
    return answer;
}

Answer Answer::error(Error error) {
    Answer answer;
    answer.failure_ = std::move(error);
    return answer;
}

Answer Answer::withStatus(std::int64_t status) const {
    Answer changed = *this;
    changed.status_ = status;
    return changed;
}

Answer Answer::withHeader(std::string name, std::string value) const {
    Answer changed = *this;
    std::erase_if(changed.headers_, [&name](const auto& header) {
        return VanticRestKit::detail::sameHeaderName(header.first, name);
    });
    changed.headers_.emplace(std::move(name), std::move(value));
    return changed;
}

Answer Answer::after(Seconds delay) const {
    Answer changed = *this;
    changed.delay_ = delay;
    return changed;
}

Answer Answer::held() const {
    Answer changed = *this;
    changed.isHeld_ = true;
    return changed;
}

}  // namespace VanticRestKit::Testing
