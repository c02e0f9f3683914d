#include "RequestLog.h"

#include <algorithm>

namespace living_room {
namespace {

constexpr std::size_t maxLines = 60;

void addTo(Value& lines, Value line) {
    lines.insert(lines.begin(), std::move(line));
    if (lines.size() > maxLines) lines.erase(maxLines);
}

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

// Every document is explained, since this host serves few browsers and its panel is there to show the faults.
RequestLog::RequestLog()
    : RequestObserver(
          {.revealsAddresses = true, .explainedShare = 1, .explainedBytesPerMinute = 64 * 1024 * 1024}) {}

void RequestLog::requestEnded(const RequestMetrics& metrics) {
    const auto total = std::chrono::duration_cast<std::chrono::milliseconds>(metrics.total);
    const std::lock_guard lock(mutex_);
    addTo(requests_, {{"method", metrics.method},
                      {"target", targetOf(metrics.url)},
                      {"outcome", metrics.status ? std::to_string(*metrics.status) : "no answer"},
                      {"milliseconds", total.count()},
                      {"source", nameOf(metrics.source)}});
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

void RequestLog::addSwallowed(const std::string& line) {
    const std::lock_guard lock(mutex_);
    const bool isKnown = std::find(swallowed_.begin(), swallowed_.end(), line) != swallowed_.end();
    if (!isKnown) addTo(swallowed_, line);
}

Value RequestLog::lists() const {
    const std::lock_guard lock(mutex_);
    return {{"requests", requests_}, {"swallowed", swallowed_}};
}

void RequestLog::clear() {
    const std::lock_guard lock(mutex_);
    requests_.clear();
    swallowed_.clear();
}

}  // namespace living_room
