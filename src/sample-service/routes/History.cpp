#include <algorithm>
#include <charconv>

#include "routes/UserTable.h"
#include "server/Clock.h"

namespace VanticRestKit::sample {

namespace {

std::optional<std::int64_t> wholeNumber(const std::string& text) {
    std::int64_t number = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, fault] = std::from_chars(text.data(), end, number);
    if (fault != std::errc() || stop != end) return std::nullopt;
    return number;
}

/// The parameters of a request for a history.
struct Wanted {
    std::string slug;
    std::optional<std::int64_t> showId{};
    std::optional<std::string> houseNumber{};
    std::optional<bool> done{};
    std::size_t limit = SIZE_MAX;

    bool holds(const Progress& progress) const {
        return progress.slug == slug && (!showId || *showId == progress.showId) &&
               (!houseNumber || *houseNumber == progress.houseNumber) && (!done || *done == progress.done);
    }
};

/// Parses the query; an error message if it is invalid.
std::optional<std::string> readQuery(const Request& request, Wanted& wanted) {
    const auto slug = queryValue(request, "slug");
    if (!slug) return "The request has no slug";
    wanted.slug = *slug;
    if (const auto done = queryValue(request, "done")) {
        if (*done != "0" && *done != "1") return "done is 0 or 1";
        wanted.done = *done == "1";
    }
    if (const auto limit = queryValue(request, "limit")) {
        const char* const end = limit->data() + limit->size();
        const auto [stop, fault] = std::from_chars(limit->data(), end, wanted.limit);
        if (fault != std::errc() || stop != end) return "limit must be an integer";
    }
    return std::nullopt;
}

Reply list(const Users::All& all, const Asked& asked, const Wanted& wanted) {
    JSON data = JSON::array();
    const auto user = all.find(asked.uid);
    if (user != all.end()) {
        const auto& history = user->second.history;
        for (auto progress = history.rbegin(); progress != history.rend() && data.size() < wanted.limit;
             ++progress) {
            if (wanted.holds(*progress)) data.push_back(written(*progress, asked.uid));
        }
    }
    return records("history", std::move(data));
}

/// Moves the video to the end of the history, as the last one watched.
Reply update(Users::All& all, const Asked& asked, const Wanted& wanted, std::int64_t seconds, Users& users) {
    auto& history = all[asked.uid].history;
    const auto isIt = [&](const Progress& progress) {
        return progress.slug == wanted.slug && progress.houseNumber == *wanted.houseNumber;
    };
    const auto found = std::find_if(history.begin(), history.end(), isIt);
    Progress progress = found != history.end() ? *found : Progress{.oid = users.newId()};
    if (found != history.end()) history.erase(found);
    progress.source = asked.source;
    progress.slug = wanted.slug;
    progress.showId = *wanted.showId;
    progress.houseNumber = *wanted.houseNumber;
    progress.seconds = seconds;
    progress.done = wanted.done.value_or(false);
    progress.lastAccessed = serviceClock().now();
    history.push_back(progress);
    return records("history", JSON::array({written(progress, asked.uid)}));
}

Reply remove(Users::All& all, const Asked& asked, const Wanted& wanted) {
    const auto user = all.find(asked.uid);
    const auto isIt = [&](const Progress& progress) { return wanted.holds(progress); };
    if (user == all.end() || std::erase_if(user->second.history, isIt) == 0) {
        return failure(404, "The user has no history");
    }
    return records("history", JSON::array());
}

/// Handles the history request, once the query is parsed.
using Act = Reply (*)(Users::All& all, const Asked& asked, const Wanted& wanted);

Handler handler(Users& users, Act act) {
    return [&users, act](const Request& request, const Captures& captures) {
        return users.answer(request, [&](Users::All& all, const Asked& asked) {
            Wanted wanted;
            if (const auto wrong = readQuery(request, wanted)) return failure(400, *wrong);
            if (!captures.empty()) {
                wanted.showId = wholeNumber(captures[0]);
                if (!wanted.showId) return failure(400, "The id of a show must be an integer");
            }
            if (captures.size() > 1) wanted.houseNumber = captures[1];
            return act(all, asked, wanted);
        });
    };
}

Handler updater(Users& users) {
    return [&users](const Request& request, const Captures& captures) {
        return users.answer(request, [&](Users::All& all, const Asked& asked) {
            Wanted wanted;
            if (const auto wrong = readQuery(request, wanted)) return failure(400, *wrong);
            wanted.showId = wholeNumber(captures[0]);
            wanted.houseNumber = captures[1];
            const auto seconds = wholeNumber(captures[2]);
            if (!wanted.showId || !seconds || *seconds < 0)
                return failure(400, "Show and progress must be integers");
            return update(all, asked, wanted, *seconds, users);
        });
    };
}

}  // namespace

std::vector<Route> historyRoutes(Users& users) {
    const auto read = [](Users::All& all, const Asked& asked, const Wanted& wanted) {
        return list(all, asked, wanted);
    };
    return {
        {"DELETE", "v2/history", handler(users, remove)},
        {"GET", "v2/history/video", handler(users, read)},
        {"GET", "v2/history/video/recent", handler(users, read)},
        {"GET", "v2/history/show/{show}", handler(users, read)},
        {"GET", "v2/history/show/{show}/video/{houseNumber}", handler(users, read)},
        {"PATCH", "v2/history/show/{show}/video/{houseNumber}/progress/{seconds}", updater(users)},
    };
}

}  // namespace VanticRestKit::sample
