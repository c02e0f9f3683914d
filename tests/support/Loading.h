#pragma once

/// \file
/// Runs requests in tests and waits for their outcomes.

#include <VanticRestKit/platform/http/HTTPURLResponse.h>
#include <VanticRestKit/platform/http/URLErrorCode.h>
#include <VanticRestKit/platform/http/URLSession.h>

#include <gtest/gtest.h>

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <utility>

namespace VanticRestKit::test {

/// The arguments of a completion. Copies share one outcome, so a completion may arrive after the end of the test.
class Loaded {
public:
    /// A completion that stores its arguments here.
    URLSession::Completion completion() const {
        return [state = state_](std::optional<Data> data, std::shared_ptr<const URLResponse> response,
                                std::optional<Error> error) {
            const std::lock_guard lock(state->mutex);
            state->data = std::move(data);
            state->response = std::move(response);
            state->error = std::move(error);
            ++state->calls;
            state->changed.notify_all();
        };
    }

    /// Waits for the completion. Returns false after a minute.
    bool wait() const {
        std::unique_lock lock(state_->mutex);
        const bool came =
            state_->changed.wait_for(lock, std::chrono::minutes(1), [this] { return state_->calls > 0; });
        EXPECT_TRUE(came) << "no completion within a minute";
        return came;
    }

    /// The number of calls of the completion so far.
    int calls() const {
        const std::lock_guard lock(state_->mutex);
        return state_->calls;
    }

    // The following functions wait for the completion first.

    bool succeeded() const { return wait() && !state_->error; }
    /// The body, empty if there is none.
    std::string body() const {
        return wait() && state_->data ? std::string(state_->data->view()) : std::string();
    }
    const std::optional<Data>& data() const {
        wait();
        return state_->data;
    }
    const std::optional<Error>& error() const {
        wait();
        return state_->error;
    }
    std::shared_ptr<const URLResponse> response() const {
        wait();
        return state_->response;
    }
    /// The status, 0 without an HTTP response.
    std::int64_t status() const {
        const auto answer = response();
        return answer && answer->asHTTP() != nullptr ? answer->asHTTP()->statusCode() : 0;
    }
    /// A header of the response, empty if there is none.
    std::string header(const std::string& name) const {
        const auto answer = response();
        if (!answer || answer->asHTTP() == nullptr) return {};
        return answer->asHTTP()->value(name).value_or("");
    }
    /// The code of the error, which must be a transport error. Empty if there is none.
    std::optional<URLErrorCode> code() const {
        if (!wait() || !state_->error) return std::nullopt;
        EXPECT_EQ(state_->error->domain(), NSURLErrorDomain);
        return static_cast<URLErrorCode>(state_->error->code());
    }
    /// A description of the error and its causes, for the message of a failed test.
    std::string story() const;

private:
    struct State {
        std::mutex mutex;
        std::condition_variable changed;
        int calls = 0;
        std::optional<Data> data;
        std::shared_ptr<const URLResponse> response;
        std::optional<Error> error;
    };
    std::shared_ptr<State> state_ = std::make_shared<State>();
};

inline std::string Loaded::story() const {
    if (!wait()) return "no completion";
    if (!state_->error) return "success, status " + std::to_string(status());
    std::string text = std::to_string(state_->error->code()) + " " + state_->error->localizedDescription();
    for (const auto& [key, value] : state_->error->userInfo()) {
        if (value.text() != nullptr) text.append("; ").append(key).append(": ").append(*value.text());
        if (value.error() != nullptr) {
            text.append("; ").append(key).append(": ").append(std::to_string(value.error()->code()));
            text.append(" ").append(value.error()->localizedDescription());
        }
    }
    return text;
}

/// A request for `url`, which must be a valid URL.
inline URLRequest requestOf(const std::string& url, const std::string& method = "GET") {
    const auto parsed = URL::make(url);
    EXPECT_TRUE(parsed.has_value()) << url;
    URLRequest request(parsed.value_or(*URL::make("http://127.0.0.1:1/")));
    request.setHTTPMethod(method);
    request.setTimeoutInterval(std::chrono::seconds(30));
    return request;
}

/// Starts a request.
inline Loaded startLoad(URLSession& session, URLRequest request) {
    Loaded loaded;
    session.dataTask(std::move(request), loaded.completion())->resume();
    return loaded;
}

/// Runs a request to its end.
inline Loaded load(URLSession& session, URLRequest request) {
    Loaded loaded = startLoad(session, std::move(request));
    loaded.wait();
    return loaded;
}

inline Loaded load(URLSession& session, const std::string& url) { return load(session, requestOf(url)); }

}  // namespace VanticRestKit::test
