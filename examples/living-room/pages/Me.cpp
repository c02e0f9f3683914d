// Me: who is watching, and what belongs to them.

#include "Parts.h"
#include "People.h"

#include <VanticRestKit/lumeno/Endpoints/Endpoint.h>

namespace living_room {

using namespace VanticRestKit;

namespace {

Html personMarkup(const ViewPerson& person, const char* action) {
    const Html face = person.face.empty() ? html("{}", person.name.substr(0, 1))
                                          : html(R"(<img src="{}" alt="">)", person.face);
    return html(
        R"(<button class="person" name="name" value="{}" data-profile="{}" data-action="{}" aria-pressed="{}">)"
        R"(<span class="face">{}</span><span>{}</span></button>)",
        person.uid, person.uid, action, person.isChosen ? "true" : "false", face, person.name);
}

Html peopleMarkup(const std::vector<ViewPerson>& people, const char* address, const char* action) {
    std::vector<Html> parts;
    for (const ViewPerson& person : people) parts.push_back(personMarkup(person, action));
    return html(R"(<form class="people" method="post" action="{}">{}</form>)", address, parts);
}

Html nameForm(const char* address, const char* label, const char* button, const char* action) {
    return html(
        R"(<form class="inline" method="post" action="{}"><input type="text" name="name" aria-label="{}")"
        R"( placeholder="{}" maxlength="40" pattern="[A-Za-z0-9.\-]+" required autocomplete="off">)"
        R"(<button class="button" data-action="{}">{}</button></form>)",
        address, label, label, action, button);
}

}  // namespace

Task<Answer> mePage(Visit visit) {
    const auto account = visit.user->account();
    Html content =
        html(R"(<div class="screen"><h1>{}</h1></div>{})", account ? "Me" : "Who is watching?",
             html(R"(<div data-name="Profiles" data-src="/me/people" data-state="loading" aria-busy="true">)"
                  R"(<div class="skeleton text" aria-hidden="true"><i></i></div></div>)"));
    if (account) {
        content += rowBlock("My list", "/me/list");
        content += rowBlock("History", "/me/history");
        content += rowBlock("More for you", "/me/recommendations");
    }
    co_return pageAnswer(pageAround(visit, "me", "Me", content));
}

Task<Answer> profiles(Visit visit) {
    if (!visit.user->account()) {
        const auto people = co_await suggestedPeople(visit);
        co_return blockAnswer(html("{}{}", peopleMarkup(people, "/sign-in", "sign-in"),
                                   nameForm("/sign-in", "Another name", "Sign in", "sign-in")));
    }
    const Html leave = html(R"(<form class="inline" method="post" action="/sign-out"><button class="button" )"
                            R"(data-action="sign-out">Sign out</button></form>)");
    const auto people = co_await profilesOf(visit);
    if (!people) {
        Answer failed = failedBlock(people.error());
        failed.body = Data(std::string(failed.body.view()) + leave.text());
        co_return failed;
    }
    co_return blockAnswer(html("{}{}{}", peopleMarkup(*people, "/profile", "profile"),
                               nameForm("/profile", "A new profile", "Add", "add-profile"), leave));
}

Task<Answer> signIn(Visit visit) {
    const std::string name = visit.request.posted("name");
    if (!isAccountName(name)) co_return problemPage(400);
    visit.user->signIn(name);
    // What fails here is seen on the page that follows, where it can be tried again.
    static_cast<void>(co_await makeProfile(visit));
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
    // Profiles of a family are named after its account.
    if (name != *account && !name.starts_with(*account + ".")) name = *account + "." + name;
    visit.user->useProfile(name);
    static_cast<void>(co_await makeProfile(visit));
    co_return seeOther("/me");
}

}  // namespace living_room
