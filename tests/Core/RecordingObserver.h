#pragma once

/// \file
/// An observer that records everything reported to it.

#include <VanticRestKit/Core/ObservableContext.h>
#include <VanticRestKit/Core/RequestObserver.h>

#include <support/Event.h>

#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace VanticRestKit::test {

class RecordingObserver final : public RequestObserver {
public:
    explicit RecordingObserver(ObserverOptions options = {}) : RequestObserver(std::move(options)) {}

    void requestEnded(const RequestMetrics& metrics) override { keep(requests_, metrics, requestsChanged); }
    void decodingFailed(const DecodingFailure& failure) override {
        keep(failures_, failure, failuresChanged);
    }
    void documentExplained(const ExplainedDocument& document) override {
        keep(documents_, document, documentsChanged);
    }

    void loadStateChanged(const LoadStateChange& change) override { keep(changes_, change, changesChanged); }
    void operationWillNeverReturn(std::string_view operation) override {
        keep(endless_, std::string(operation), endlessChanged);
    }

    std::vector<RequestMetrics> requests() const { return copy(requests_); }
    std::vector<DecodingFailure> failures() const { return copy(failures_); }
    std::vector<ExplainedDocument> documents() const { return copy(documents_); }

    std::vector<LoadStateChange> changes() const { return copy(changes_); }
    std::vector<std::string> endless() const { return copy(endless_); }

    const Event requestsChanged;
    const Event failuresChanged;
    const Event documentsChanged;
    const Event changesChanged;
    const Event endlessChanged;

private:
    template <class T>
    void keep(std::vector<T>& all, const T& one, const Event& changed) {
        {
            const std::lock_guard lock(mutex_);
            all.push_back(one);
        }
        changed.signal();
    }
    template <class T>
    std::vector<T> copy(const std::vector<T>& all) const {
        const std::lock_guard lock(mutex_);
        return all;
    }

    mutable std::mutex mutex_;
    std::vector<RequestMetrics> requests_;
    std::vector<DecodingFailure> failures_;
    std::vector<ExplainedDocument> documents_;
    std::vector<LoadStateChange> changes_;
    std::vector<std::string> endless_;
};

/// A test context `Base` with an observer.
template <class Base>
class Observed final : public Base, public ObservableContext {
public:
    using Base::Base;
    std::shared_ptr<RequestObserver> observer() const override { return recorder; }

    std::shared_ptr<RecordingObserver> recorder = std::make_shared<RecordingObserver>();
};

}  // namespace VanticRestKit::test
