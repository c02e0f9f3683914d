#include "RequestLog.h"

#include <algorithm>

namespace living_room {

namespace {

constexpr std::size_t maxLines = 60;

std::string targetOf(const std::string& address) {
    const auto url = URL::make(address);
    return url ? url->requestTarget() : address;
}

std::string textOf(const CodingPath& path) {
    std::string text;
    for (const CodingKey& step : path) {
        text += "/" + (step.key() != nullptr ? *step.key() : std::to_string(*step.index()));
    }
    return text.empty() ? "/" : text;
}

}  // namespace

// Every document is explained: this host serves few browsers, and its panel is there to show it.
RequestLog::RequestLog()
    : RequestObserver(
          {.revealsAddresses = true, .explainedShare = 1, .explainedBytesPerMinute = 64 * 1024 * 1024}) {}

void RequestLog::requestEnded(const RequestMetrics& metrics) {
    const auto total = std::chrono::duration_cast<std::chrono::milliseconds>(metrics.total);
    Value::Object line{{"method", metrics.method},
                       {"target", targetOf(metrics.url)},
                       {"outcome", metrics.status ? std::to_string(*metrics.status) : "no answer"},
                       {"milliseconds", total.count()},
                       {"source", nameOf(metrics.source)}};
    const std::lock_guard lock(mutex_);
    requests_.push_front(std::move(line));
    if (requests_.size() > maxLines) requests_.pop_back();
}

void RequestLog::decodingFailed(const DecodingFailure& failure) {
    addSwallowed(targetOf(failure.url) + ": " + failure.error.localizedDescription() + " The whole " +
                 failure.typeName + " is lost.");
}

void RequestLog::documentExplained(const ExplainedDocument& document) {
    for (const Fault& fault : document.faults) {
        addSwallowed(targetOf(document.url) + " at " + textOf(fault.path) + ": " + fault.expected +
                     " expected, " + fault.found + " found, became " + fault.became);
    }
}

void RequestLog::addSwallowed(std::string line) {
    const std::lock_guard lock(mutex_);
    if (std::find(swallowed_.begin(), swallowed_.end(), line) != swallowed_.end()) return;
    swallowed_.push_front(std::move(line));
    if (swallowed_.size() > maxLines) swallowed_.pop_back();
}

Value::List RequestLog::requests() const {
    const std::lock_guard lock(mutex_);
    return {requests_.begin(), requests_.end()};
}

Value::List RequestLog::swallowed() const {
    const std::lock_guard lock(mutex_);
    return {swallowed_.begin(), swallowed_.end()};
}

void RequestLog::clear() {
    const std::lock_guard lock(mutex_);
    requests_.clear();
    swallowed_.clear();
}

}  // namespace living_room
