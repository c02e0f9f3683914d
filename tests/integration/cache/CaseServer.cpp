#include "CaseServer.h"

#include <algorithm>
#include <array>
#include <ctime>

namespace VanticRestKit::test {

using nlohmann::json;
using std::chrono::milliseconds;

std::string dateText(milliseconds now, double seconds, bool isOldForm) {
    const auto time = static_cast<std::time_t>(now.count() / 1000 + static_cast<std::int64_t>(seconds));
    std::tm fields{};
    gmtime_r(&time, &fields);
    std::array<char, 64> text{};
    // Tests run in the C locale, so the names are English.
    const char* const form = isOldForm ? "%A, %d-%b-%y %H:%M:%S GMT" : "%a, %d %b %Y %H:%M:%S GMT";
    std::strftime(text.data(), text.size(), form, &fields);
    return text.data();
}

std::string lowerCase(std::string name) {
    std::transform(name.begin(), name.end(), name.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    return name;
}

CaseServer::CaseServer(MovedClock& clock)
    : clock_(clock), server_([this](FaultConnection& connection) { serve(connection); }) {}

void CaseServer::use(const json& testCase) {
    const std::lock_guard lock(mutex_);
    case_ = testCase;
    seen_.clear();
    answered_.clear();
}

std::optional<RawRequest> CaseServer::request(std::size_t number) const {
    const std::lock_guard lock(mutex_);
    for (const Seen& seen : seen_) {
        if (seen.number == number) return seen.request;
    }
    return std::nullopt;
}

milliseconds CaseServer::timeBefore(std::size_t number) const {
    const std::lock_guard lock(mutex_);
    const auto found = answered_.find(number - 1);
    return found == answered_.end() ? clock_.now() : found->second;
}

std::string CaseServer::usualBody(const json& testCase) {
    return "the body of " + testCase["id"].get<std::string>();
}

std::string CaseServer::bodyOf(const json& entry) const {
    if (!entry.contains("response_body")) return usualBody(case_);
    return entry["response_body"].is_null() ? std::string() : entry["response_body"].get<std::string>();
}

std::string CaseServer::absolute(const RawRequest& request, const std::string& name) const {
    const std::string path = request.target.substr(0, request.target.find('?'));
    const bool isFolder = std::count(path.begin(), path.end(), '/') < 3;
    return server_.url((isFolder ? path : path.substr(0, path.rfind('/'))) + "/" + name);
}

// 304 if the request contains a validator of the previous response, and 999 if a case expects one that is missing.
std::string CaseServer::statusOf(std::size_t number, const RawRequest& request, bool& hasBody) const {
    const json& entry = case_["requests"][number - 1];
    hasBody = request.method != "HEAD";
    if (entry.value("expected_type", "").ends_with("validated")) {
        hasBody = false;
        const json before = number > 1 ? case_["requests"][number - 2] : json::object();
        for (const json& field : before.value("response_headers", json::array())) {
            const std::string name = lowerCase(field[0]);
            const char* const question = name == "etag"            ? "if-none-match"
                                         : name == "last-modified" ? "if-modified-since"
                                                                   : nullptr;
            if (question == nullptr) continue;
            const auto then = answered_.find(number - 1);
            const std::string value = field[1].is_number() && then != answered_.end()
                                          ? dateText(then->second, field[1].get<double>())
                                      : field[1].is_string() ? field[1].get<std::string>()
                                                             : std::string();
            if (request.has(question) && request.header(question) == value) return "304 Not Modified";
        }
        return "999 Not validated";
    }
    if (!entry.contains("response_status")) return "200 OK";
    const int status = entry["response_status"][0];
    if (status == 204 || status == 304) hasBody = false;
    return std::to_string(status) + ' ' + entry["response_status"][1].get<std::string>();
}

std::string CaseServer::fieldsOf(const json& entry, const RawRequest& request) const {
    std::string lines;
    const json oldForms = entry.value("rfc850date", json::array());
    for (const json& field : entry.value("response_headers", json::array())) {
        const std::string name = field[0];
        const std::string lower = lowerCase(name);
        const bool isOld = std::any_of(oldForms.begin(), oldForms.end(),
                                       [&lower](const json& each) { return lowerCase(each) == lower; });
        std::string value = field[1].is_number() ? dateText(clock_.now(), field[1].get<double>(), isOld)
                                                 : field[1].get<std::string>();
        if (entry.value("magic_locations", false) && lower.ends_with("location")) {
            value = absolute(request, value);
        }
        lines += name + ": " + value + "\r\n";
    }
    return lines;
}

void CaseServer::serve(FaultConnection& connection) {
    while (const auto request = connection.readRequest()) {
        std::string head;
        std::string body;
        double pause = 0;
        {
            const std::lock_guard lock(mutex_);
            const std::size_t number = std::stoul(request->header("req-num"));
            if (request->header("test-id") != case_["id"].get<std::string>()) return;
            const json& entry = case_["requests"][number - 1];
            seen_.push_back({number, *request});
            if (entry.value("disconnect", false)) return;
            for (const json& interim : entry.value("interim_responses", json::array())) {
                head += "HTTP/1.1 " + std::to_string(interim[0].get<int>()) + " Interim\r\n";
                for (const json& field : interim.size() > 1 ? interim[1] : json::array()) {
                    head += field[0].get<std::string>() + ": " + field[1].get<std::string>() + "\r\n";
                }
                head += "\r\n";
            }
            bool hasBody = true;
            head += "HTTP/1.1 " + statusOf(number, *request, hasBody) + "\r\n";
            const std::string fields = fieldsOf(entry, *request);
            head += fields;
            const std::string names = "\n" + lowerCase(fields);
            if (names.find("\ncontent-type:") == std::string::npos) head += "Content-Type: text/plain\r\n";
            if (hasBody) body = bodyOf(entry);
            const auto given = names.find("\ncontent-length:");
            if (given != std::string::npos) {
                body.resize(hasBody ? std::stoul(names.substr(given + 16)) : 0, 'x');
            } else if (hasBody) {
                head += "Content-Length: " + std::to_string(body.size()) + "\r\n";
            }
            head += "Server-Request-Count: " + std::to_string(seen_.size()) + "\r\n";
            head += "Client-Request-Count: " + std::to_string(number) + "\r\n";
            head += "Server-Now: " + std::to_string(clock_.now().count()) + "\r\n\r\n";
            answered_[number] = clock_.now();
            pause = entry.value("response_pause", 0.0);
        }
        if (pause > 0) {
            connection.send(head);
            clock_.move(milliseconds(static_cast<std::int64_t>(pause * 1000)));
            connection.send(body);
        } else {
            connection.send(head + body);
        }
    }
}

}  // namespace VanticRestKit::test
