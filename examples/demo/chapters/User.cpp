#include "Chapters.h"
#include "Loading.h"
#include "Printing.h"
#include "Running.h"
#include "UserContexts.h"

#include <VanticRestKit/Core/Resource.h>
#include <VanticRestKit/lumeno/Endpoints/Endpoint.h>
#include <VanticRestKit/lumeno/Show/Show.h>
#include <VanticRestKit/lumeno/Video/VideoList.h>
#include <VanticRestKit/recs/RecommendationModule.h>
#include <VanticRestKit/recs/RecsRoutes.h>

#include <cstdio>

namespace demo {

using namespace VanticRestKit;

namespace {

constexpr const char* uid = "ann";

/// A position as a player displays it.
std::string position(std::int64_t seconds) {
    char text[32];
    std::snprintf(text, sizeof text, "%lld:%02lld", static_cast<long long>(seconds / 60),
                  static_cast<long long>(seconds % 60));
    return text;
}

bool makeProfile(const UserContext& context) {
    Trelvo& trelvo = Trelvo::shared();
    const auto before = ran<std::vector<Subprofile>>([&](auto completion) {
        trelvo.getSubprofiles({.includePrivateData = true,
                               .includeFamilyData = true,
                               .completionHandler = std::move(completion)},
                              context);
    });
    if (before || before.error().kind() != TrelvoError::Kind::datasetDoesNotExist) return false;
    printField("profiles", before.error().localizedDescription());

    const auto created = valueOf(ran<Subprofile>([&](auto completion) {
        trelvo.createSubprofile(
            {.dataset = Dictionary{{"displayName", "Ann"}, {"avatarId", 106}, {"isChild", false}},
             .completionHandler = std::move(completion)},
            context);
    }));
    if (created)
        printField("created", created->displayName().value_or("unnamed") + ", known as " + created->uid());
    return created.has_value();
}

std::optional<Show> showOf(const std::string& slugOrId, const Context& context) {
    return fetched(Endpoint::Show({.showSlugOrId = slugOrId}, context));
}

bool saveShow(const UserContext& context) {
    const auto show = showOf("harbour-lights", context);
    if (!show || !show->showId) return false;
    const auto saved = valueOf(ran<std::vector<SavedData>>([&](auto completion) {
        Trelvo::shared().addWatchlistShow(
            {.showId = *show->showId, .completionHandler = std::move(completion)}, context);
    }));
    if (saved) printField("saved", show->title.value_or("Untitled"));
    return saved && saved->size() == 1;
}

bool watchHalf(const UserContext& context) {
    const auto video = fetched(Endpoint::Video({.houseNumber = "HL0101"}, context));
    if (!video || !video->duration || !video->showId) return false;
    const auto half = static_cast<std::int64_t>(*video->duration / 2);
    const auto watched = valueOf(ran<std::vector<HistoryData>>([&](auto completion) {
        Trelvo::shared().updateVideoProgress({.showId = *video->showId,
                                              .houseNumber = video->houseNumber.value_or(""),
                                              .progress = half,
                                              .isDone = false,
                                              .completionHandler = std::move(completion)},
                                             context);
    }));
    if (watched) printField("watched", video->title.value_or("Untitled") + " up to " + position(half));
    return watched && watched->size() == 1;
}

bool resume(const UserContext& context) {
    const auto recent = valueOf(ran<std::vector<HistoryData>>([&](auto completion) {
        Trelvo::shared().listRecentVideos(
            {.limit = 5, .markedAsDone = false, .completionHandler = std::move(completion)}, context);
    }));
    if (!recent) return false;
    std::vector<std::string> houseNumbers;
    for (const auto& record : *recent) houseNumbers.push_back(record.key);
    const auto list = fetched(Endpoint::Videos({.houseNumbers = houseNumbers}, context));
    if (!list || list->videos.size() != recent->size()) return false;
    for (std::size_t i = 0; i < recent->size(); ++i) {
        const auto& video = list->videos[i];
        const auto length = static_cast<std::int64_t>(video.duration.value_or(0));
        printField("to resume", video.title.value_or("Untitled") + " at " + position((*recent)[i].progress) +
                                    " of " + position(length));
    }
    return recent->size() == 1;
}

/// The title of a show or video; the URI for content of other sources.
std::string titleOf(const Recommendation& item, const Context& context) {
    const std::string id = item.contentId().value_or("");
    if (item.contentSource() != RecsContentSource::lumeno) return item.rid;
    if (item.contentType() == RecsContentType::video) {
        const auto video = fetched(Endpoint::Video({.houseNumber = id}, context));
        return video ? video->title.value_or(id) : id;
    }
    const auto show = showOf(id, context);
    return show ? show->title.value_or(id) : id;
}

bool recommend(const HostContext& host) {
    const RecommendationsContext context(host);
    const RecsModuleURI route({.withModuleId = "because-you-watched",
                               .userId = std::string(uid),
                               .accountId = std::nullopt,
                               .subprofileId = std::nullopt,
                               .limit = 5,
                               .httpMethod = "POST",
                               .exclude = std::vector<RecsModuleContext>(),
                               .include = std::vector<RecsModuleContext>(),
                               .andModuleContext = RecsModuleContext::withShowId("11")});
    const auto module = fetched(Resource<RecommendationModule>::make({.with = route}, context));
    if (!module) return false;
    std::vector<std::string> titles;
    for (const auto& item : module->recommendations) titles.push_back(titleOf(item, host));
    printList(module->label, titles);
    return titles.size() == 5;
}

bool signOut(const UserContext& context) {
    const auto deleted = ran<void>([&](auto completion) {
        Trelvo::shared().deleteSubprofile({.completionHandler = std::move(completion)}, context);
    });
    if (!deleted) std::fprintf(stderr, "%s\n", deleted.error().localizedDescription().c_str());
    Trelvo::shared().clearAuth();
    if (deleted && !Trelvo::shared().auth()) printField("signed out", "profile deleted, tokens discarded");
    return deleted.has_value();
}

}  // namespace

bool showUser(const Stage& stage) {
    printHeading("A user signs in, watches a video and leaves");
    const UserContext context(stage.context, uid);
    return makeProfile(context) && saveShow(context) && watchHalf(context) && resume(context) &&
           recommend(stage.context) && signOut(context);
}

}  // namespace demo
