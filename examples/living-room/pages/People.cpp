#include "People.h"

#include "../View.h"

#include <VanticRestKit/Core/ErrorAdvice.h>
#include <VanticRestKit/lumeno/Endpoints/Endpoint.h>
#include <VanticRestKit/lumeno/Image/Image.h>

#include <functional>
#include <utility>

namespace living_room {

using namespace VanticRestKit;

namespace {

constexpr const char* suggestedNames[] = {"ann", "ben", "zoe"};

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

ViewPerson personOf(const std::string& uid, const std::string& name, const std::vector<std::string>& faces) {
    ViewPerson person{.uid = uid, .name = name};
    // The same face for the same name on every screen.
    std::size_t sum = 0;
    for (const char c : uid) sum = sum * 31 + static_cast<unsigned char>(c);
    if (!faces.empty()) person.face = faces[sum % faces.size()];
    return person;
}

}  // namespace

Task<std::vector<ViewPerson>> suggestedPeople(const Visit& visit) {
    const std::vector<std::string> links = co_await faces(visit);
    std::vector<ViewPerson> people;
    for (const char* uid : suggestedNames) people.push_back(personOf(uid, nameOf(uid), links));
    co_return people;
}

Task<Loaded<std::vector<ViewPerson>>> profilesOf(const Visit& visit) {
    auto operation =
        visit.user->accountClient().getSubprofiles({.includePrivateData = false, .includeFamilyData = true});
    const auto subprofiles = co_await run(std::move(operation), visit.options());
    if (!subprofiles) co_return Failure(subprofiles.error());
    const std::vector<std::string> links = co_await faces(visit);
    std::vector<ViewPerson> people;
    for (const Subprofile& profile : *subprofiles) {
        people.push_back(
            personOf(profile.uid(), profile.displayName().value_or(nameOf(profile.uid())), links));
        people.back().isChosen = profile.uid() == visit.user->profile();
    }
    co_return people;
}

Task<Loaded<void>> makeProfile(const Visit& visit) {
    auto asking =
        visit.user->client().getSubprofiles({.includePrivateData = false, .includeFamilyData = false});
    const auto there = co_await run(std::move(asking), visit.options());
    if (there) co_return Loaded<void>();
    if (categoryOf(there.error()) != ErrorCategory::notFound) co_return Failure(there.error());
    const Dictionary dataset{{"displayName", nameOf(visit.user->profile().value_or(""))}, {"isChild", false}};
    auto making = visit.user->client().createSubprofile({.dataset = dataset});
    const auto made = co_await run(std::move(making), visit.options());
    if (!made) co_return Failure(made.error());
    co_return Loaded<void>();
}

}  // namespace living_room
