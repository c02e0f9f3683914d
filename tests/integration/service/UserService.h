#pragma once

/// \file
/// A signed-in user of the sample service, and functions that wait for operations.

#include "ServiceContext.h"

#include "support/SampleService.h"

#include <VanticRestKit/trelvo/detail/TrelvoProbe.h>

#include <chrono>
#include <future>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace VanticRestKit::test {

class UserContext : public ServiceContext, public TrelvoContext {
public:
    explicit UserContext(const std::string& base, const std::string& authorityFile = {})
        : ServiceContext(base, authorityFile) {}

    std::optional<std::string> uid() const override { return user; }
    SourceSystem source() const override { return SourceSystem::lumeno; }

    std::optional<std::string> user = "ann";
};

/// A separate client that uses the system clock.
inline Trelvo newClient() {
    return TrelvoProbe::make([] {
        return std::chrono::duration<double>(std::chrono::system_clock::now().time_since_epoch()).count();
    });
}

/// The outcome of an operation, which `start` runs with the given completion. Fails the test if there is no outcome
/// within a minute.
template <class T, class Start>
Result<T, TrelvoError> outcomeOfOperation(Start start) {
    const auto arrived = std::make_shared<std::promise<Result<T, TrelvoError>>>();
    auto outcome = arrived->get_future();
    start(Trelvo::Completion<T>(
        [arrived](Result<T, TrelvoError> result) { arrived->set_value(std::move(result)); }));
    if (outcome.wait_for(std::chrono::minutes(1)) == std::future_status::ready) return outcome.get();
    ADD_FAILURE() << "no outcome within a minute";
    return Failure(TrelvoError::unknown("no outcome within a minute"));
}

/// Runs the operations of a client for one context and waits for each.
class User {
public:
    using Records = Result<std::vector<HistoryData>, TrelvoError>;
    using Shows = Result<std::vector<SavedData>, TrelvoError>;
    using Profile = Result<Subprofile, TrelvoError>;
    using Profiles = Result<std::vector<Subprofile>, TrelvoError>;
    using Nothing = Result<void, TrelvoError>;

    User(Trelvo& client, const TrelvoContext& context) : client_(client), context_(context) {}

    Profiles profiles(bool isPrivate, bool isFamily) const {
        return outcomeOfOperation<std::vector<Subprofile>>([&](auto completion) {
            client_.getSubprofiles({.includePrivateData = isPrivate,
                                    .includeFamilyData = isFamily,
                                    .completionHandler = std::move(completion)},
                                   context_);
        });
    }
    Profile create(const Dictionary& dataset) const {
        return outcomeOfOperation<Subprofile>([&](auto completion) {
            client_.createSubprofile({.dataset = dataset, .completionHandler = std::move(completion)},
                                     context_);
        });
    }
    Profile update(const Dictionary& dataset) const {
        return outcomeOfOperation<Subprofile>([&](auto completion) {
            client_.updateSubprofile({.dataset = dataset, .completionHandler = std::move(completion)},
                                     context_);
        });
    }
    Nothing deleteProfile() const {
        return outcomeOfOperation<void>([&](auto completion) {
            client_.deleteSubprofile({.completionHandler = std::move(completion)}, context_);
        });
    }
    Nothing deleteHistory() const {
        return outcomeOfOperation<void>([&](auto completion) {
            client_.deleteHistory({.completionHandler = std::move(completion)}, context_);
        });
    }
    Records history(std::uint64_t limit) const {
        return outcomeOfOperation<std::vector<HistoryData>>([&](auto completion) {
            client_.viewingHistory({.limit = limit, .completionHandler = std::move(completion)}, context_);
        });
    }
    Records recent(std::uint64_t limit, bool isDone) const {
        return outcomeOfOperation<std::vector<HistoryData>>([&](auto completion) {
            client_.listRecentVideos(
                {.limit = limit, .markedAsDone = isDone, .completionHandler = std::move(completion)},
                context_);
        });
    }
    Records ofShow(std::int64_t showId, std::optional<bool> isDone) const {
        return outcomeOfOperation<std::vector<HistoryData>>([&](auto completion) {
            client_.listVideosForShow(
                {.showId = showId, .markedAsDone = isDone, .completionHandler = std::move(completion)},
                context_);
        });
    }
    Records progress(std::int64_t showId, const std::string& houseNumber) const {
        return outcomeOfOperation<std::vector<HistoryData>>([&](auto completion) {
            client_.getVideoProgress(
                {.showId = showId, .houseNumber = houseNumber, .completionHandler = std::move(completion)},
                context_);
        });
    }
    Records watch(std::int64_t showId, const std::string& houseNumber, std::int64_t seconds,
                  bool isDone) const {
        return outcomeOfOperation<std::vector<HistoryData>>([&](auto completion) {
            client_.updateVideoProgress({.showId = showId,
                                         .houseNumber = houseNumber,
                                         .progress = seconds,
                                         .isDone = isDone,
                                         .completionHandler = std::move(completion)},
                                        context_);
        });
    }
    Shows saved() const {
        return outcomeOfOperation<std::vector<SavedData>>([&](auto completion) {
            client_.listWatchlistShowIds({.completionHandler = std::move(completion)}, context_);
        });
    }
    Shows save(std::int64_t showId) const {
        return outcomeOfOperation<std::vector<SavedData>>([&](auto completion) {
            client_.addWatchlistShow({.showId = showId, .completionHandler = std::move(completion)},
                                     context_);
        });
    }
    Nothing unsave(std::int64_t showId) const {
        return outcomeOfOperation<void>([&](auto completion) {
            client_.deleteShow({.showId = showId, .completionHandler = std::move(completion)}, context_);
        });
    }

private:
    Trelvo& client_;
    const TrelvoContext& context_;
};

/// Changes how the service issues tokens.
inline void setTokens(const SampleService& service, const nlohmann::json& settings) {
    EXPECT_FALSE(service.control("POST", "/_control/tokens", settings.dump()).is_null()) << settings;
}

/// The value of a header of a logged request, empty if it has none.
inline std::optional<std::string> loggedHeader(const nlohmann::json& request, const std::string& name) {
    for (const auto& header : request["headers"]) {
        if (header["name"] == name) return header["value"].get<std::string>();
    }
    return std::nullopt;
}

/// Waits at most a minute until the service has received `count` requests. Returns its log.
inline nlohmann::json logOf(const SampleService& service, std::size_t count) {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::minutes(1);
    auto log = service.log();
    while (log.size() < count && std::chrono::steady_clock::now() < deadline) log = service.log();
    EXPECT_EQ(log.size(), count);
    return log;
}

}  // namespace VanticRestKit::test
