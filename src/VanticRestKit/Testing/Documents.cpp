#include <VanticRestKit/Testing/Documents.h>
#include <VanticRestKit/Testing/SampleAnswers.h>

#include <cstdio>
#include <cstdlib>

namespace VanticRestKit::Testing {

namespace {

std::string bodyOf(const Answer& answer, const std::string& target) {
    std::string body(answer.body() ? answer.body()->view() : std::string_view());
    if (answer.status() < 400) return body;
    std::fprintf(stderr, "VanticRestKit::Testing: there is no document at %s: %s\n", target.c_str(),
                 body.c_str());
    std::abort();
}

std::string documentAt(const std::string& target) {
    return bodyOf(SampleAnswers().ask("GET", target), target);
}

std::string joined(const std::vector<std::string>& names) {
    std::string text;
    for (const std::string& name : names) text.append(text.empty() ? "" : ",").append(name);
    return text;
}

/// A signed-in user of a separate sample service.
class SampleUser {
public:
    SampleUser() { ask("GET", "/v2/token"); }

    std::string ask(const std::string& method, const std::string& path, const std::string& body = {},
                    const std::string& query = {}) const {
        const std::string target =
            path + "?UID=test-user&source=lumeno&slug=watchlist&include=private" + query;
        // The first token of a new service. The request for it has no token.
        std::map<std::string, std::string> headers;
        if (path != "/v2/token") headers.emplace("Authorization", "Bearer access-1");
        return bodyOf(answers_.ask(method, target, headers, body), target);
    }

private:
    SampleAnswers answers_;
};

}  // namespace

DocumentOf<double> aTime(double seconds) { return DocumentOf<double>(JSONText(seconds).text()); }

DocumentOf<std::vector<Image>> avatars() {
    return DocumentOf<std::vector<Image>>(documentAt("/v3/image/avatar/"));
}

DocumentOf<Category> aHomeScreen() { return DocumentOf<Category>(documentAt("/v2/home")); }

DocumentOf<Category> aCategory(const std::string& id) {
    return DocumentOf<Category>(documentAt("/v2/category/" + id));
}

DocumentOf<Category> aChannel(const std::string& id) {
    return DocumentOf<Category>(documentAt("/v2/channel/" + id));
}

DocumentOf<MixedCollection> aCollection(const std::string& id) {
    if (!id.empty()) return DocumentOf<MixedCollection>(documentAt("/v2/collection/" + id));
    return aHomeScreen().part<MixedCollection>("/_embedded/collections/0");
}

DocumentOf<ShowsIndex> aShowsIndex() { return DocumentOf<ShowsIndex>(documentAt("/v2/shows")); }

DocumentOf<std::vector<Show>> aShowList(const std::vector<std::string>& slugs) {
    return DocumentOf<std::vector<Show>>(documentAt("/v2/shows/" + joined(slugs)));
}

DocumentOf<VideoList> aVideoList(const std::vector<std::string>& houseNumbers) {
    return DocumentOf<VideoList>(documentAt("/v2/videos/" + joined(houseNumbers)));
}

DocumentOf<VideoList> livestreams() { return DocumentOf<VideoList>(documentAt("/v2/livestreams")); }

DocumentOf<NowNext> nowAndNext() {
    const std::string live = livestreams().value().videos.front().houseNumber.value_or("");
    return DocumentOf<NowNext>(documentAt("/v2/nownext/" + live));
}

DocumentOf<SearchResults> searchResultsFor(const std::string& keyword) {
    return DocumentOf<SearchResults>(documentAt("/v2/search?keyword=" + keyword));
}

DocumentOf<RelatedShowList> showsRelatedTo(const std::string& slug) {
    return DocumentOf<RelatedShowList>(documentAt("/v2/related/show/" + slug));
}

DocumentOf<NavigationList> aNavigationList(const std::string& type) {
    return DocumentOf<NavigationList>(documentAt("/v2/navigation/" + type));
}

DocumentOf<NavigationMainMenuList> aMainMenu() {
    return DocumentOf<NavigationMainMenuList>(documentAt("/v2/navigation/mobile"));
}

DocumentOf<BrowseList> aBrowseList() { return DocumentOf<BrowseList>(documentAt("/v2/browse")); }

DocumentOf<std::vector<Message>> messages() {
    return DocumentOf<std::vector<Message>>(documentAt("/v2/messages"));
}

DocumentOf<ProductAlert> aProductAlert() {
    return DocumentOf<ProductAlert>(documentAt("/v2/alert/new-series"));
}

DocumentOf<Remap> aRemap(const std::string& path) {
    return DocumentOf<Remap>(documentAt("/v2/remap/" + path));
}

DocumentOf<TokenResponse> aTokenResponse(std::chrono::seconds goodFor) {
    const auto end = std::chrono::system_clock::now() + goodFor;
    DocumentOf<TokenResponse> response(SampleUser().ask("GET", "/v2/token"));
    return response.with("/auth/expiry", std::chrono::duration<double>(end.time_since_epoch()).count());
}

DocumentOf<DatasetResponse> aDatasetResponse() {
    return DocumentOf<DatasetResponse>(
        SampleUser().ask("POST", "/v2/dataset/subprofile",
                         "dataset=%7B%22displayName%22%3A%22Ann%22%2C%22ageGroup%22%3A%22adult%22%2C%"
                         "22birthYear%22%3A1990%7D"));
}

DocumentOf<HistoryResponse> aHistoryResponse() {
    const SampleUser user;
    user.ask("PATCH", "/v2/history/show/11/video/HL0102/progress/310");
    user.ask("PATCH", "/v2/history/show/11/video/HL0101/progress/1650", {}, "&done=1");
    return DocumentOf<HistoryResponse>(user.ask("GET", "/v2/history/video"));
}

DocumentOf<SavedResponse> aSavedResponse() {
    return DocumentOf<SavedResponse>(SampleUser().ask("POST", "/v2/saved/watchlist/show/11"));
}

DocumentOf<KAVROSegmentsModel> audienceSegments() {
    const Answer answer = SampleAnswers().ask("POST", "/api/v1/gigya/segments",
                                              {{"x-api-key", "key"}, {"Authorization", "Bearer t"}},
                                              R"({"sub_profile_id":"test-user"})");
    return DocumentOf<KAVROSegmentsModel>(bodyOf(answer, "the segments"));
}

DocumentOf<RecommendationModule> recommendations(std::uint32_t limit) {
    const Answer answer = SampleAnswers().ask("POST", "/api/v2/recommendations/home?apikey=key", {},
                                              "{\"limit\":" + std::to_string(limit) + "}");
    return DocumentOf<RecommendationModule>(bodyOf(answer, "the recommendations"));
}

}  // namespace VanticRestKit::Testing
