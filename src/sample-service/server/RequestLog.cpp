#include "server/RequestLog.h"

namespace VanticRestKit::sample {

namespace {

constexpr std::size_t kept = 20'000;

JSON written(const Request& request) {
    JSON query = JSON::array();
    for (const auto& item : request.query) {
        query.push_back({{"name", item.name}, {"value", item.value ? JSON(*item.value) : JSON(nullptr)}});
    }
    JSON headers = JSON::array();
    for (const auto& [name, value] : request.headers) {
        headers.push_back({{"name", name}, {"value", value}});
    }
    return JSON{{"method", request.method}, {"path", request.path()}, {"target", request.target},
                {"query", query},           {"headers", headers},     {"body", request.body}};
}

}  // namespace

void RequestLog::add(const Request& request) {
    const std::lock_guard lock(mutex_);
    ++total_;
    requests_.push_back(request);
    if (requests_.size() > kept) requests_.pop_front();
}

void RequestLog::clear() {
    const std::lock_guard lock(mutex_);
    requests_.clear();
    total_ = 0;
}

JSON RequestLog::written() const {
    const std::lock_guard lock(mutex_);
    JSON result = JSON::array();
    for (const auto& request : requests_) result.push_back(sample::written(request));
    return result;
}

std::size_t RequestLog::total() const {
    const std::lock_guard lock(mutex_);
    return total_;
}

}  // namespace VanticRestKit::sample
