#include "UserService.h"

#include "support/Certificates.h"
#include "support/Nghttpx.h"

#include <VanticRestKit/kavro/KAVRORoutes.h>
#include <VanticRestKit/kavro/KAVROSegmentsContext.h>
#include <VanticRestKit/kavro/KAVROSegmentsModel.h>
#include <VanticRestKit/recs/RecommendationModule.h>
#include <VanticRestKit/recs/RecsContext.h>
#include <VanticRestKit/recs/RecsRoutes.h>

#include <algorithm>

namespace VanticRestKit::test {

namespace {

class RecommendationsContext final : public ServiceContext, public RecsContext {
public:
    using ServiceContext::ServiceContext;
    std::string apiKey() const override { return "key&1"; }
};

class SegmentsContext final : public ServiceContext, public KAVROSegmentsContext {
public:
    using ServiceContext::ServiceContext;
    std::string apiKey() const override { return "key"; }
    std::string accessToken() const override { return "token"; }
    std::map<std::string, std::string> HTTPHeaderFields() const override {
        return KAVROSegmentsContext::HTTPHeaderFields();
    }
};

void createProfile(const User& ann) {
    const auto none = ann.profiles(true, true);
    ASSERT_FALSE(none);
    EXPECT_EQ(none.error().kind(), TrelvoError::Kind::datasetDoesNotExist);

    const auto made =
        ann.create({{"displayName", "Ann & Bob"}, {"birthYear", 1980}, {"isChild", false}, {"rate", 0.5}});
    ASSERT_TRUE(made) << made.error().errorDescription();
    EXPECT_EQ(made->uid(), "ann");
    EXPECT_EQ(made->displayName(), "Ann & Bob");
    EXPECT_EQ(made->birthYear(), 1980);
    EXPECT_TRUE(made->created()) << "dates without a fraction";

    const auto changed = ann.update(made->makeModifiedDataset({.newDisplayName = std::string("Ann"),
                                                               .newBirthYear = std::nullopt,
                                                               .newChannelFilter = std::string("vantic-kids"),
                                                               .newAvatarId = 101,
                                                               .newAvatarURL = std::nullopt,
                                                               .newAvatarAccessibilityText = std::nullopt}));
    ASSERT_TRUE(changed) << changed.error().errorDescription();
    const auto profiles = ann.profiles(true, false);
    ASSERT_TRUE(profiles);
    ASSERT_EQ(profiles->size(), 1U);
    EXPECT_EQ(profiles->front().displayName(), "Ann");
    EXPECT_EQ(profiles->front().avatarId(), 101);
    EXPECT_EQ(profiles->front().birthYear(), 1980);
}

void watchVideos(const User& ann) {
    const auto half = ann.watch(11, "HL0101", 1380, false);
    ASSERT_TRUE(half);
    ASSERT_EQ(half->size(), 1U);
    EXPECT_EQ(half->front().progress, 1380);
    EXPECT_TRUE(half->front().lastAccessed) << "a date with a fraction and an offset";
    EXPECT_TRUE(ann.watch(12, "QO0101", 2800, true));

    const auto resumed = ann.progress(11, "HL0101");
    EXPECT_EQ(*resumed, *half);
    EXPECT_TRUE(ann.progress(11, "HL 0102+x")->empty());
    EXPECT_EQ(ann.history(10)->size(), 2U);
    EXPECT_EQ(ann.recent(10, false)->front().key, "HL0101");
    EXPECT_EQ(ann.recent(10, true)->front().key, "QO0101");
    EXPECT_EQ(ann.ofShow(11, std::nullopt)->size(), 1U);
    EXPECT_TRUE(ann.ofShow(11, true)->empty());
}

void saveShows(const User& ann) {
    const auto added = ann.save(11);
    ASSERT_TRUE(added);
    EXPECT_EQ(added->front().key, "11");
    EXPECT_TRUE(added->front().created);
    EXPECT_TRUE(ann.save(14));
    EXPECT_EQ(ann.saved()->size(), 2U);
    EXPECT_TRUE(ann.unsave(14));
    EXPECT_EQ(*ann.saved(), *added);
}

void getRecommendations(const RecommendationsContext& context) {
    const RecsModuleURI route({.withModuleId = "home",
                               .userId = std::string("ann"),
                               .accountId = std::nullopt,
                               .subprofileId = std::nullopt,
                               .limit = 3,
                               .httpMethod = "POST",
                               .exclude = std::vector{RecsModuleContext::withShowId("13")},
                               .include = std::vector<RecsModuleContext>(),
                               .andModuleContext = RecsModuleContext::withShowId("11")});
    const auto module = valueOf(Resource<RecommendationModule>::make({.with = route}, context));
    ASSERT_TRUE(module);
    EXPECT_EQ(module->moduleid, "home");
    EXPECT_EQ(module->recommendations.size(), 3U);
}

/// Everything a user does between signing in and deleting the account.
void runUserStory(const std::string& baseURL, const std::string& authorityFile = {},
                  const std::map<std::string, std::string>& headers = {}) {
    UserContext context(baseURL, authorityFile);
    RecommendationsContext recommendations(baseURL, authorityFile);
    context.headers = headers;
    recommendations.headers = headers;
    Trelvo client = newClient();
    const User ann(client, context);
    createProfile(ann);
    watchVideos(ann);
    saveShows(ann);
    getRecommendations(recommendations);
    EXPECT_TRUE(client.auth());
    EXPECT_TRUE(ann.deleteProfile());
    client.clearAuth();
    EXPECT_FALSE(client.auth());
    EXPECT_TRUE(ann.saved()) << "the user can sign in again";
}

/// Method and target of a request.
std::string line(const nlohmann::json& request) {
    return request["method"].get<std::string>() + " " + request["target"].get<std::string>();
}

const std::vector<std::string> story{
    "GET /v2/token?UID=ann&source=lumeno",
    "GET /v2/dataset/profile?UID=ann&source=lumeno&include=private,family",
    "POST /v2/dataset/profile?UID=ann&source=lumeno&include=private",
    "PATCH /v2/dataset/profile?UID=ann&source=lumeno&include=private",
    "GET /v2/dataset/profile?UID=ann&source=lumeno&include=private",
    "PATCH /v2/history/show/11/video/HL0101/progress/1380?UID=ann&source=lumeno&slug=watchlist&raw=1&done=0",
    "PATCH /v2/history/show/12/video/QO0101/progress/2800?UID=ann&source=lumeno&slug=watchlist&raw=1&done=1",
    "GET /v2/history/show/11/video/HL0101?UID=ann&source=lumeno&slug=watchlist&raw=1",
    "GET /v2/history/show/11/video/HL%200102+x?UID=ann&source=lumeno&slug=watchlist&raw=1",
    "GET /v2/history/video?UID=ann&slug=watchlist&source=lumeno&raw=1&limit=10",
    "GET /v2/history/video/recent?UID=ann&slug=watchlist&source=lumeno&done=0&raw=1&limit=10",
    "GET /v2/history/video/recent?UID=ann&slug=watchlist&source=lumeno&done=1&raw=1&limit=10",
    "GET /v2/history/show/11?UID=ann&slug=watchlist&source=lumeno&raw=1",
    "GET /v2/history/show/11?UID=ann&slug=watchlist&source=lumeno&raw=1&done=1",
    "POST /v2/saved/watchlist/show/11?UID=ann&raw=1&source=lumeno",
    "POST /v2/saved/watchlist/show/14?UID=ann&raw=1&source=lumeno",
    "GET /v2/saved/watchlist/show?UID=ann&raw=1&source=lumeno",
    "DELETE /v2/saved/watchlist/show/14?UID=ann&source=lumeno",
    "GET /v2/saved/watchlist/show?UID=ann&raw=1&source=lumeno",
    "POST /api/v2/recommendations/home?apikey=key%261",
    // These three are sent at once and may arrive in any order. They are sorted here.
    "DELETE /v2/dataset/profile?UID=ann&source=lumeno",
    "DELETE /v2/history?UID=ann&source=lumeno&slug=watchlist",
    "DELETE /v2/saved/watchlist?UID=ann&source=lumeno",
    "GET /v2/token?UID=ann&source=lumeno",
    "GET /v2/saved/watchlist/show?UID=ann&raw=1&source=lumeno",
};

/// The lines of a log. Requests sent at once are sorted, and placed before requests that may have overtaken them.
std::vector<std::string> linesOf(const nlohmann::json& log) {
    constexpr std::size_t before = 20;
    std::vector<std::string> lines;
    std::vector<std::string> deletions;
    std::vector<std::string> later;
    for (const auto& request : log) {
        const bool isDeletion = lines.size() == before && request["method"] == "DELETE";
        (lines.size() < before ? lines : isDeletion ? deletions : later).push_back(line(request));
    }
    std::sort(deletions.begin(), deletions.end());
    for (const auto* some : {&deletions, &later}) lines.insert(lines.end(), some->begin(), some->end());
    return lines;
}

TEST(SampleServiceUser, CanUseEverythingOverPlainHTTP) {
    const SampleService service;
    runUserStory(service.baseURL());
    EXPECT_EQ(linesOf(logOf(service, story.size())), story);
}

TEST(SampleServiceUser, CanUseEverythingOverTLS) {
    const SampleService service(SampleService::Transport::https);
    runUserStory(service.baseURL(), service.authorityFile());
    EXPECT_EQ(linesOf(logOf(service, story.size())), story);
}

TEST(SampleServiceUser, CanUseEverythingOverHTTP2) {
    const SampleService service;
    const CertificateAuthority authority;
    const TemporaryFile authorityFile(authority.pem());
    const Nghttpx front(service.port(), authority.issue());
    runUserStory("https://127.0.0.1:" + std::to_string(front.port()), authorityFile.path());
    EXPECT_EQ(linesOf(logOf(service, story.size())), story);
}

TEST(SampleServiceUser, SendsTheRightTokenWithEachRequest) {
    const SampleService service;
    runUserStory(service.baseURL(), {},
                 {{"X-Host", "yes"}, {"Authorization", "of the host"}, {"Content-Type", "of the host"}});
    const auto log = logOf(service, story.size());
    for (const auto& request : log) {
        const std::string path = request["path"];
        const auto authorization = loggedHeader(request, "Authorization");
        EXPECT_EQ(loggedHeader(request, "X-Host"), "yes") << path;
        EXPECT_EQ(loggedHeader(request, "Accept"), "*/*") << path;
        if (path == "v2/token" || path.starts_with("api/")) {
            EXPECT_EQ(authorization, "of the host") << path;
            EXPECT_EQ(loggedHeader(request, "Content-Type"), "of the host") << path;
        } else {
            EXPECT_TRUE(authorization && authorization->starts_with("Bearer access-")) << path;
            EXPECT_EQ(loggedHeader(request, "Content-Type"), "application/x-www-form-urlencoded") << path;
        }
    }
}

TEST(SampleServiceUser, SendsBodiesOnlyForDatasetsAndRecommendations) {
    const SampleService service;
    runUserStory(service.baseURL());
    const auto log = logOf(service, story.size());
    for (const auto& request : log) {
        const std::string body = request["body"];
        const std::string what = line(request);
        if (what.starts_with("POST /v2/dataset")) {
            EXPECT_EQ(body,
                      "dataset=%7B%22birthYear%22%3A1980%2C%22displayName%22%3A%22Ann%20%26%20Bob%22%2C"
                      "%22isChild%22%3Afalse%2C%22rate%22%3A0.5%7D");
        } else if (what.starts_with("PATCH /v2/dataset")) {
            EXPECT_EQ(body,
                      "dataset=%7B%22avatarId%22%3A101%2C%22birthYear%22%3A1980%2C%22channelFilter%22%3A"
                      "%22vantic-kids%22%2C%22displayName%22%3A%22Ann%22%2C%22isChild%22%3Afalse%2C"
                      "%22rate%22%3A0.5%7D");
        } else if (what.starts_with("POST /api/")) {
            EXPECT_EQ(body, R"({"limit":3,"userid":"ann","context":"lumeno:\/\/program\/11",)"
                            R"("contentfilter":{"excludes":["lumeno:\/\/program\/13"]}})");
        } else {
            EXPECT_EQ(body, "") << what;
        }
    }
}

TEST(SampleServiceUser, HasSegmentsThatDependOnTheHistory) {
    const SampleService service;
    const UserContext context(service.baseURL());
    Trelvo client = newClient();
    EXPECT_TRUE(User(client, context).watch(14, "SP0101", 60, false));
    service.clearLog();
    const auto segments = valueOf(Resource<KAVROSegmentsModel>::make(
        {.with = KAVROSegmentsURI({.withSubprofileID = "ann"})}, SegmentsContext(service.baseURL())));
    ASSERT_TRUE(segments);
    EXPECT_EQ(segments->userId, "ann");
    EXPECT_EQ(segments->activeAudiences,
              std::vector{KAVROActiveAudiences::lumenoGenreFavourite180DVanticKids});
    EXPECT_EQ(segments->activeBadges, std::vector{KAVROActiveBadges::iOSUser});
    const auto request = service.log()[0];
    EXPECT_EQ(line(request), "POST /api/v1/gigya/segments");
    EXPECT_EQ(loggedHeader(request, "content-type"), "application/json");
    EXPECT_EQ(loggedHeader(request, "x-api-key"), "key");
    EXPECT_EQ(loggedHeader(request, "Authorization"), "Bearer token");
    EXPECT_EQ(request["body"], R"({"sub_profile_id":"ann"})");
}

}  // namespace

}  // namespace VanticRestKit::test
