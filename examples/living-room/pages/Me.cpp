// Me: who is watching. Any name is an account of the sample service; profiles of a family are named after its account.

#include "Pages.h"

namespace living_room {
namespace {

bool isAccountName(const std::string& text) {
    return !text.empty() && text.size() <= 40 && isPlain(text, "-.");
}

/// "tim" for "ann.tim". The style sheet shows it with a capital letter.
std::string nameOf(const std::string& uid) { return uid.substr(uid.rfind('.') + 1); }

/// Creates a profile for the user who has just signed in or was chosen, unless there is one. If this fails, the page
/// that follows shows the failure and offers to try again.
Task<void> createProfile(const Visit& visit) {
    const UserClient& client = *visit.user->client;
    const auto asking = client.getSubprofiles({.includePrivateData = false, .includeFamilyData = false});
    const auto known = co_await asking.value(visit.options());
    if (known || categoryOf(known.error()) != ErrorCategory::notFound) co_return;
    const Dictionary dataset{{"displayName", nameOf(visit.user->profile().value_or(""))}, {"isChild", false}};
    const auto creating = client.createSubprofile({.dataset = dataset});
    static_cast<void>(co_await creating.value(visit.options()));
}

}  // namespace

Task<Answer> profilesPart(Visit visit) {
    if (!visit.user->account()) co_return partAnswer("sign-in", {{"names", {"ann", "ben", "zoe"}}});
    auto operation =
        visit.user->accountClient->getSubprofiles({.includePrivateData = false, .includeFamilyData = true});
    const auto profiles = co_await operation.value(visit.options());
    if (!profiles) co_return failedPart(profiles.error());
    Value people;
    for (const Subprofile& profile : *profiles) {
        people.push_back({{"uid", profile.uid()},
                          {"name", profile.displayName().value_or(nameOf(profile.uid()))},
                          {"isChosen", profile.uid() == visit.user->profile()}});
    }
    co_return partAnswer("profiles", {{"people", people}});
}

/// The picture of a person, chosen by name.
Task<Answer> avatar(Visit visit) {
    const auto avatars = co_await load(Endpoint::Avatars(visit.catalogue()), visit.options());
    if (!avatars || avatars->empty()) co_return problemPage(404);
    const std::size_t index = std::hash<std::string>()(visit.field("of")) % avatars->size();
    co_return seeOther(fileLink(avatars->at(index).url, visit.service));
}

Task<Answer> signIn(Visit visit) {
    const std::string name = visit.field("name");
    if (!isAccountName(name)) co_return problemPage(400);
    visit.user->signIn(name);
    co_await createProfile(visit);
    co_return seeOther("/me");
}

Task<Answer> signOut(Visit visit) {
    visit.user->signOut();
    co_return seeOther("/me");
}

Task<Answer> chooseProfile(Visit visit) {
    const auto account = visit.user->account();
    std::string name = visit.field("name");
    if (!account || !isAccountName(name)) co_return problemPage(400);
    if (name != *account && !name.starts_with(*account + ".")) name = *account + "." + name;
    visit.user->context->setUID(name);
    co_await createProfile(visit);
    co_return seeOther("/me");
}

}  // namespace living_room
