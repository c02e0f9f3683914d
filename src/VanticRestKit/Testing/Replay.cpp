#include <VanticRestKit/platform/error/NSError.h>
#include <VanticRestKit/Testing/detail/Files.h>
#include <VanticRestKit/Testing/detail/Recorded.h>
#include <VanticRestKit/Testing/detail/TextDistance.h>
#include <VanticRestKit/Testing/Replay.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <mutex>
#include <system_error>
#include <utility>
#include <vector>

namespace VanticRestKit::Testing {

namespace {

/// The number before the extension: 12 in "GET_v2_time.12.txt".
long turnOf(const std::filesystem::path& file) {
    const std::string ending = file.stem().extension().string();
    return ending.empty() ? 0 : std::strtol(ending.c_str() + 1, nullptr, 10);
}

std::vector<std::filesystem::path> recordingsIn(const std::string& folder) {
    std::vector<std::filesystem::path> files;
    std::error_code fault;
    for (std::filesystem::directory_iterator file(folder, fault), end; !fault && file != end;
         file.increment(fault)) {
        if (file->path().extension() == ".txt") files.push_back(file->path());
    }
    std::sort(files.begin(), files.end(), [](const auto& a, const auto& b) {
        return std::pair(turnOf(a), a.string()) < std::pair(turnOf(b), b.string());
    });
    return files;
}

}  // namespace

struct Replay::State {
    State(std::string from, Redaction hidden) : folder(std::move(from)), redaction(std::move(hidden)) {}

    const std::string folder;
    const Redaction redaction;
    std::map<std::string, std::vector<detail::Recorded>> recorded;

    std::mutex mutex;
    std::map<std::string, std::size_t> turns;
    std::string problems;

    void read() {
        for (const auto& file : recordingsIn(folder)) {
            std::optional<detail::Recorded> one =
                detail::Recorded::read(detail::readFile(file.string()).value_or(""));
            if (one) {
                std::string key = one->request.key();
                recorded[std::move(key)].push_back(*std::move(one));
            } else {
                problems += file.string() + " is not a recording\n";
            }
        }
        if (recorded.empty()) problems += folder + " contains no recordings\n";
    }

    /// The error message for a request that was not recorded.
    std::string unknown(const detail::RecordedRequest& request) const {
        std::string text = "No answer to " + request.line + " is recorded in " + folder;
        const detail::RecordedRequest* closest = nullptr;
        const auto distance = [&](const detail::RecordedRequest& other) {
            return detail::textDistance(request.key(), other.key());
        };
        for (const auto& [key, answers] : recorded) {
            const detail::RecordedRequest& other = answers.front().request;
            if (closest == nullptr || distance(other) < distance(*closest)) closest = &other;
        }
        if (closest == nullptr) return text;
        text.append("; the closest is ").append(closest->line);
        return closest->line == request.line ? text + " with another body" : text;
    }
};

Replay::Replay(const std::string& folder, Redaction redaction)
    : state_(std::make_shared<State>(folder, std::move(redaction))) {
    state_->read();
}

Answer Replay::operator()(const AskedRequest& asked) const {
    const auto request = detail::RecordedRequest::of(asked, state_->redaction);
    const std::string key = request.key();
    const auto found = state_->recorded.find(key);
    const std::lock_guard lock(state_->mutex);
    if (found == state_->recorded.end()) {
        const std::string reason = state_->unknown(request);
        state_->problems += reason + "\n";
        return Answer::error(
            NSError(Answer::errorDomain, 3, {{std::string(NSLocalizedDescriptionKey), reason}}));
    }
    const std::vector<detail::Recorded>& answers = found->second;
    return answers[std::min(state_->turns[key]++, answers.size() - 1)].answer;
}

std::size_t Replay::size() const {
    std::size_t count = 0;
    for (const auto& [key, answers] : state_->recorded) count += answers.size();
    return count;
}

std::string Replay::problems() const {
    const std::lock_guard lock(state_->mutex);
    return state_->problems;
}

}  // namespace VanticRestKit::Testing
