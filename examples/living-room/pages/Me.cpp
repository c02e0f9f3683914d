// Me: who is watching. Any name is an account of the sample service; profiles of a family are named after its account.

#include "Pages.h"

namespace living_room {

namespace {

/// "ann" and "ann.tim" are shown as "Ann" and "Tim".
std::string nameOf(const std::string& uid) {
    std::string name = uid.substr(uid.rfind('.') + 1);
    if (!name.empty() && name[0] >= 'a' && name[0] <= 'z') name[0] = static_cast<char>(name[0] - 'a' + 'A');
    return name;
}

/// The addresses of the avatars; none if they cannot be had, since people are known by their names too.
Task<std::vector<std::string>> faces(const Visit& visit) {
    std::vector<std::string> links;
    if (const auto avatars = co_await load(Endpoint::Avatars(visit.catalogue()), visit.options())) {
        for (const Image& avatar : *avatars) links.push_back(pictureLink(avatar.url, visit.service));
    }
    co_return links;
}

Value personOf(const std::string& uid, const std::string& name, const std::vector<std::string>& faces,
               bool isChosen) {
    // The same face for the same name on every screen.
    std::size_t sum = 0;
    for (const char c : uid) sum = sum * 31 + static_cast<unsigned char>(c);
    return Value::Object{{"uid", uid},
                         {"name", name},
                         {"initial", name.substr(0, 1)},
                         {"face", faces.empty() ? std::string() : faces[sum % faces.size()]},
                         {"isChosen", isChosen}};
}

Value::Object signInForm(const std::vector<std::string>& faces) {
    Value::List people;
    for (const char* const uid : {"ann", "ben", "zoe"})
        people.push_back(personOf(uid, nameOf(uid), faces, false));
    return {{"people", people},       {"address", "/sign-in"}, {"action", "sign-in"},
            {"addAction", "sign-in"}, {"addTitle", "Sign in"}, {"hint", "Another name"}};
}

Value::Object profileForm(const std::vector<Subprofile>& profiles, const std::vector<std::string>& faces,
                          const std::optional<std::string>& chosen) {
    Value::List people;
    for (const Subprofile& profile : profiles) {
        const std::string name = profile.displayName().value_or(nameOf(profile.uid()));
        people.push_back(personOf(profile.uid(), name, faces, profile.uid() == chosen));
    }
    return {{"people", people},           {"address", "/profile"}, {"action", "profile"},
            {"addAction", "add-profile"}, {"addTitle", "Add"},     {"hint", "A new profile"}};
}

Task<Answer> page(Visit visit) {
    const auto account = visit.user->account();
    Value::Object values{{"account", account}};
    if (account) {
        Value::List rows{rowOf("My list", "/me/list"), rowOf("History", "/me/history")};
        rows.push_back(rowOf("More for you", "/me/recommendations"));
        values.emplace_back("rows", rows);
    }
    co_return screenAnswer(visit, "me", "Me", values);
}

Task<Answer> people(Visit visit) {
    const auto links = co_await faces(visit);
    if (!visit.user->account()) co_return partAnswer("people", signInForm(links));
    auto operation =
        visit.user->accountClient().getSubprofiles({.includePrivateData = false, .includeFamilyData = true});
    const auto profiles = co_await run(std::move(operation), visit.options());
    if (!profiles) co_return failedPart(profiles.error());
    co_return partAnswer("people", profileForm(*profiles, links, visit.user->profile()));
}

/// Makes a profile of the user who was just signed in or chosen, unless there is one. What fails here is seen on the
/// page that follows, where it can be tried again.
Task<void> makeProfile(const Visit& visit) {
    auto asking =
        visit.user->client().getSubprofiles({.includePrivateData = false, .includeFamilyData = false});
    const auto there = co_await run(std::move(asking), visit.options());
    if (there || categoryOf(there.error()) != ErrorCategory::notFound) co_return;
    const Dictionary dataset{{"displayName", nameOf(visit.user->profile().value_or(""))}, {"isChild", false}};
    auto making = visit.user->client().createSubprofile({.dataset = dataset});
    static_cast<void>(co_await run(std::move(making), visit.options()));
}

Task<Answer> signIn(Visit visit) {
    const std::string name = visit.request.posted("name");
    if (!isAccountName(name)) co_return problemPage(400);
    visit.user->signIn(name);
    co_await makeProfile(visit);
    co_return seeOther("/me");
}

Task<Answer> signOut(Visit visit) {
    visit.user->signOut();
    co_return seeOther("/me");
}

Task<Answer> chooseProfile(Visit visit) {
    const auto account = visit.user->account();
    std::string name = visit.request.posted("name");
    if (!account || !isAccountName(name)) co_return problemPage(400);
    if (name != *account && !name.starts_with(*account + ".")) name = *account + "." + name;
    visit.user->useProfile(name);
    co_await makeProfile(visit);
    co_return seeOther("/me");
}

constexpr Route routes[] = {{"GET", "/me", page},
                            {"GET", "/me/people", people},
                            {"POST", "/sign-in", signIn},
                            {"POST", "/sign-out", signOut},
                            {"POST", "/profile", chooseProfile}};

}  // namespace

const std::span<const Route> meRoutes(routes);

}  // namespace living_room
