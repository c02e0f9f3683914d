#include <algorithm>
#include <charconv>

#include "routes/UserTable.h"
#include "server/Clock.h"

namespace VanticRestKit::sample {

namespace {

/// The saved shows that a request selects.
struct Wanted {
    std::optional<std::string> slug{};
    std::optional<std::int64_t> showId{};

    bool holds(const Saved& saved) const {
        return (!slug || *slug == saved.slug) && (!showId || *showId == saved.showId);
    }
};

Reply list(Users::All& all, const Asked& asked, const Wanted& wanted, Users&) {
    JSON data = JSON::array();
    const auto user = all.find(asked.uid);
    if (user != all.end()) {
        for (const Saved& saved : user->second.saved) {
            if (wanted.holds(saved)) data.push_back(written(saved));
        }
    }
    return records("saved", std::move(data));
}

// A show that is already on the list keeps its position.
Reply add(Users::All& all, const Asked& asked, const Wanted& wanted, Users& users) {
    auto& saved = all[asked.uid].saved;
    const auto found =
        std::find_if(saved.begin(), saved.end(), [&](const Saved& one) { return wanted.holds(one); });
    if (found != saved.end()) return records("saved", JSON::array({written(*found)}));
    const std::int64_t order = saved.empty() ? 0 : saved.back().order + 1;
    saved.push_back({.oid = users.newId(),
                     .source = asked.source,
                     .slug = *wanted.slug,
                     .showId = *wanted.showId,
                     .order = order,
                     .created = serviceClock().now()});
    return records("saved", JSON::array({written(saved.back())}));
}

Reply removeOne(Users::All& all, const Asked& asked, const Wanted& wanted, Users&) {
    const auto user = all.find(asked.uid);
    const auto isIt = [&](const Saved& saved) { return wanted.holds(saved); };
    if (user == all.end() || std::erase_if(user->second.saved, isIt) == 0) {
        return failure(404, "The user has not saved this show");
    }
    return records("saved", JSON::array());
}

// A list without shows counts as deleted.
Reply removeAll(Users::All& all, const Asked& asked, const Wanted& wanted, Users& users) {
    removeOne(all, asked, wanted, users);
    return records("saved", JSON::array());
}

using Act = Reply (*)(Users::All& all, const Asked& asked, const Wanted& wanted, Users& users);

Handler handler(Users& users, Act act) {
    return [&users, act](const Request& request, const Captures& captures) {
        return users.answer(request, [&](Users::All& all, const Asked& asked) {
            Wanted wanted;
            if (!captures.empty()) wanted.slug = captures[0];
            if (captures.size() > 1) {
                std::int64_t showId = 0;
                const char* const end = captures[1].data() + captures[1].size();
                const auto [stop, fault] = std::from_chars(captures[1].data(), end, showId);
                if (fault != std::errc() || stop != end)
                    return failure(400, "The id of a show must be an integer");
                wanted.showId = showId;
            }
            return act(all, asked, wanted, users);
        });
    };
}

}  // namespace

std::vector<Route> savedRoutes(Users& users) {
    return {
        {"GET", "v2/saved", handler(users, list)},
        {"GET", "v2/saved/{slug}/show", handler(users, list)},
        {"POST", "v2/saved/{slug}/show/{show}", handler(users, add)},
        {"DELETE", "v2/saved/{slug}/show/{show}", handler(users, removeOne)},
        {"DELETE", "v2/saved/{slug}", handler(users, removeAll)},
        {"DELETE", "v2/saved", handler(users, removeAll)},
    };
}

}  // namespace VanticRestKit::sample
