#include "Case.h"

#include <support/Loading.h>
#include <VanticRestKit/platform/http/cache/detail/CacheAccess.h>
#include <VanticRestKit/platform/http/cache/detail/CacheCore.h>

#include <algorithm>
#include <map>

namespace VanticRestKit::test {

namespace {

using nlohmann::json;
using Kind = CaseResult::Kind;
using std::chrono::milliseconds;

/// One request of a case: sends it and judges what came of it.
class Step {
public:
    Step(CaseServer& server, MovedClock& clock, const json& testCase, std::size_t number)
        : server_(server),
          clock_(clock),
          case_(testCase),
          entry_(testCase["requests"][number - 1]),
          number_(number) {}

    URLRequest request() const {
        std::string path = "/test/" + case_["id"].get<std::string>();
        if (entry_.contains("filename")) path += "/" + entry_["filename"].get<std::string>();
        if (entry_.contains("query_arg")) path += "?" + entry_["query_arg"].get<std::string>();
        URLRequest request = requestOf(server_.url(path), entry_.value("request_method", "GET"));
        // So that an unknown coding is left as it is.
        request.setValue("identity", "Accept-Encoding");
        request.setValue(std::to_string(number_), "Req-Num");
        request.setValue(case_["id"].get<std::string>(), "Test-ID");
        for (const json& field : entry_.value("request_headers", json::array())) {
            request.addValue(fieldValue(field), field[0].get<std::string>());
        }
        if (entry_.contains("request_body")) {
            request.setHTTPBody(Data(entry_["request_body"].get<std::string>()));
        }
        const std::string mode = entry_.value("cache", "");
        if (mode == "no-cache") request.setCachePolicy(URLRequestCachePolicy::reloadRevalidatingCacheData);
        if (mode == "no-store") request.setValue("no-store", "Cache-Control");
        return request;
    }

    CaseResult judge(const Loaded& loaded) {
        loaded_ = &loaded;
        checkStatus();
        if (!entry_.contains("expected_status") || !entry_["expected_status"].is_null()) {
            if (!loaded.succeeded()) fail("expected_status", "an answer, not " + loaded.story());
        }
        checkType();
        checkRequest();
        checkFields();
        checkBody();
        return result_;
    }

private:
    std::string fieldValue(const json& field) const {
        if (!field[1].is_number()) return field[1].get<std::string>();
        const bool isMagic = entry_.value("magic_ims", false) && lowerCase(field[0]) == "if-modified-since";
        return dateText(isMagic ? server_.timeBefore(number_) : clock_.now(), field[1].get<double>());
    }

    /// Notes that an expectation was not met. An expectation named in `setup_tests`, every one of a set-up request, and
    /// those that no case states, are preconditions.
    void fail(const std::string& expectation, const std::string& what, bool isDefault = false) {
        const json setUp = entry_.value("setup_tests", json::array());
        const bool isPrecondition = isDefault || entry_.value("setup", false) ||
                                    std::find(setUp.begin(), setUp.end(), expectation) != setUp.end();
        if (result_.kind == Kind::notRun || (result_.kind == Kind::failed && !isPrecondition)) return;
        result_ = {isPrecondition ? Kind::notRun : Kind::failed,
                   "request " + std::to_string(number_) + ", " + expectation + ": " + what};
    }

    bool reachedServer() const { return server_.request(number_).has_value(); }

    void checkStatus() {
        const bool isStated = entry_.contains("expected_status");
        if (isStated && entry_["expected_status"].is_null()) return;
        std::int64_t expected = 200;
        if (isStated) {
            expected = entry_["expected_status"];
        } else if (entry_.contains("response_status")) {
            expected = entry_["response_status"][0];
        }
        if (loaded_->status() == expected) return;
        // A 304 that the cache made itself is what a case may expect of it.
        if (loaded_->status() == 304 && entry_.value("expected_type", "") == "cached" && !isStated) return;
        fail("expected_status", "got " + std::to_string(loaded_->status()), !isStated);
    }

    void checkType() {
        if (!entry_.contains("expected_type")) return;
        const std::string type = entry_["expected_type"];
        const std::string text = loaded_->header("Server-Request-Count");
        const std::size_t count = text.empty() ? 0 : std::stoul(text);
        const bool isOwn304 = loaded_->status() == 304 && !reachedServer();
        bool holds = true;
        if (type == "cached") holds = (count > 0 && count < number_) || isOwn304;
        if (type == "not_cached") holds = count == number_;
        if (type.ends_with("validated")) {
            const auto seen = server_.request(number_);
            const char* const name = type == "etag_validated" ? "if-none-match" : "if-modified-since";
            holds = seen && seen->has(name) && loaded_->succeeded();
        }
        if (!holds) fail("expected_type", type + ", count " + text + " " + loaded_->story());
    }

    void checkRequest() {
        const auto seen = server_.request(number_);
        if (entry_.contains("expected_method")) {
            const std::string method = entry_["expected_method"];
            if (!seen || seen->method != method) fail("expected_method", method);
        }
        for (const json& field : entry_.value("expected_request_headers", json::array())) {
            const bool isName = field.is_string();
            const std::string name = lowerCase(isName ? field : field[0]);
            const bool holds = seen && seen->has(name) && (isName || seen->header(name) == fieldValue(field));
            if (!holds) fail("expected_request_headers", field.dump());
        }
        for (const json& field : entry_.value("expected_request_headers_missing", json::array())) {
            const bool isName = field.is_string();
            const std::string name = lowerCase(isName ? field : field[0]);
            const bool isThere =
                seen && seen->has(name) && (isName || seen->header(name) == fieldValue(field));
            if (isThere) fail("expected_request_headers_missing", field.dump());
        }
    }

    void checkFields() {
        if (reachedServer() && entry_.value("expected_type", "") != "cached" && loaded_->succeeded()) {
            std::map<std::string, std::string> sent;
            for (const json& field : entry_.value("response_headers", json::array())) {
                const std::string name = field[0];
                const bool isUnchecked = field.size() > 2 && !field[2].get<bool>();
                if (isUnchecked || lowerCase(name) == "date" || field[1].is_number()) continue;
                if (lowerCase(name).ends_with("location")) continue;
                std::string& joined = sent[name];
                joined += (joined.empty() ? "" : ", ") + field[1].get<std::string>();
            }
            for (const auto& [name, value] : sent) {
                if (loaded_->header(name) != value) fail("response_headers", name, true);
            }
        }
        for (const json& field : entry_.value("expected_response_headers", json::array())) {
            if (!hasField(field)) fail("expected_response_headers", field.dump());
        }
        for (const json& field : entry_.value("expected_response_headers_missing", json::array())) {
            if (hasField(field)) fail("expected_response_headers_missing", field.dump());
        }
    }

    bool hasField(const json& field) const {
        const auto answer = loaded_->response();
        const auto value = [&](const std::string& name) -> std::optional<std::string> {
            return answer && answer->asHTTP() ? answer->asHTTP()->value(name) : std::nullopt;
        };
        if (field.is_string()) return value(field).has_value();
        const auto own = value(field[0]);
        if (!own) return false;
        if (field.size() > 2 && field[1] == "=") return own == value(field[2]);
        if (field.size() > 2 && field[1] == ">") return std::stod(*own) > field[2].get<double>();
        if (!field[1].is_number()) return *own == field[1].get<std::string>();
        const milliseconds then(std::stoll(value("Server-Now").value_or("0")));
        return *own == dateText(then, field[1].get<double>());
    }

    void checkBody() {
        if (!entry_.value("check_body", true) || !loaded_->succeeded()) return;
        const bool isStated = entry_.contains("expected_response_text");
        if (!isStated && (loaded_->status() == 304 || entry_.value("request_method", "GET") == "HEAD"))
            return;
        std::string expected = CaseServer::usualBody(case_);
        if (isStated) {
            if (entry_["expected_response_text"].is_null()) return;
            expected = entry_["expected_response_text"];
        } else if (entry_.contains("response_body")) {
            expected = entry_["response_body"].is_null() ? "" : entry_["response_body"].get<std::string>();
        }
        if (loaded_->body() != expected) fail("expected_response_text", loaded_->body(), !isStated);
    }

    CaseServer& server_;
    MovedClock& clock_;
    const json& case_;
    const json& entry_;
    const std::size_t number_;
    const Loaded* loaded_ = nullptr;
    CaseResult result_;
};

}  // namespace

CaseResult runCase(CaseServer& server, MovedClock& clock, const json& testCase) {
    server.use(testCase);
    URLSessionConfiguration configuration;
    configuration.urlCache = detail::CacheAccess::make(
        URLCache::defaultMemoryCapacity, nullptr,
        [&clock]() -> detail::CacheTime { return {.wall = clock.now(), .steady = clock.now()}; });
    // Some cases have answers set cookies, and expect them to be used for requests that then bear others.
    configuration.httpCookieAcceptPolicy = HTTPCookieAcceptPolicy::never;
    const json& requests = testCase["requests"];
    const bool followsNone = std::any_of(requests.begin(), requests.end(), [](const json& each) {
        return each.value("redirect", "") == "manual";
    });
    if (followsNone) configuration.redirectPolicy.follow = URLSessionRedirectPolicy::Follow::never;
    const auto session = URLSession::make(configuration);
    const std::size_t count = requests.size();
    for (std::size_t number = 1; number <= count; ++number) {
        Step step(server, clock, testCase, number);
        const Loaded loaded = load(*session, step.request());
        const CaseResult result = step.judge(loaded);
        // A case goes on after a request only if it was as expected.
        if (result.kind != CaseResult::Kind::passed) return result;
        if (!detail::CacheAccess::core(configuration.urlCache)->waitUntilQuiet(std::chrono::seconds(30))) {
            return {CaseResult::Kind::failed, "the question in the background never ended"};
        }
        if (requests[number - 1].value("pause_after", false)) clock.move(std::chrono::seconds(3));
    }
    return {};
}

}  // namespace VanticRestKit::test
