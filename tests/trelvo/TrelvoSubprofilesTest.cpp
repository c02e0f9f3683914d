// Profiles, and the datasets that they are read from.

#include <trelvo/Client.h>
#include <algorithm>
#include <limits>

namespace VanticRestKit::test {
namespace {

using Kind = TrelvoError::Kind;

class TrelvoSubprofiles : public Client {
protected:
    TrelvoSubprofiles() { saveGoodTokens(); }

    template <class T>
    Trelvo::Completion<T> into(std::optional<Result<T, TrelvoError>>& result) {
        return [&result](Result<T, TrelvoError> came) { result.emplace(std::move(came)); };
    }
    Result<std::vector<Subprofile>, TrelvoError> got(Reply reply, bool isPrivate = false,
                                                     bool isFamily = false) {
        std::optional<Result<std::vector<Subprofile>, TrelvoError>> result;
        trelvo->getSubprofiles({.includePrivateData = isPrivate,
                                .includeFamilyData = isFamily,
                                .completionHandler = into(result)},
                               context);
        session->answer(answered_++, std::move(reply));
        return result.value_or(Failure(TrelvoError::unknown("no outcome")));
    }
    Result<Subprofile, TrelvoError> created(Reply reply, Dictionary dataset = {}) {
        std::optional<Result<Subprofile, TrelvoError>> result;
        trelvo->createSubprofile({.dataset = std::move(dataset), .completionHandler = into(result)}, context);
        session->answer(answered_++, std::move(reply));
        return result.value_or(Failure(TrelvoError::unknown("no outcome")));
    }
    Result<Subprofile, TrelvoError> updated(Reply reply, Dictionary dataset = {}) {
        std::optional<Result<Subprofile, TrelvoError>> result;
        trelvo->updateSubprofile({.dataset = std::move(dataset), .completionHandler = into(result)}, context);
        session->answer(answered_++, std::move(reply));
        return result.value_or(Failure(TrelvoError::unknown("no outcome")));
    }
    std::string bodyOf(std::size_t index) {
        const std::optional<Data> body = session->request(index).httpBody();
        return body ? std::string(body->view()) : "none";
    }
    void deleteSubprofile() {
        trelvo->deleteSubprofile({.completionHandler = completion<void>(outcomes.completed())}, context);
    }
    /// Answers the transfer whose request is `request`.
    void answerTo(const std::string& request, Reply reply) {
        for (std::size_t index = 0; index < 3; ++index) {
            if (sent(index) == request) return session->answer(index, std::move(reply));
        }
        ADD_FAILURE() << "not sent: " << request;
    }

private:
    std::size_t answered_ = 0;
};

const std::string history = "DELETE /v2/history?UID=u1&source=lumeno&slug=watchlist Bearer access-good";
const std::string watchlist = "DELETE /v2/saved/watchlist?UID=u1&source=lumeno Bearer access-good";
const std::string profile = "DELETE /v2/dataset/profile?UID=u1&source=lumeno Bearer access-good";

TEST_F(TrelvoSubprofiles, AreTheProfilesOfTheResponsesDatasetsInOrder) {
    const auto profiles = got(reply(200, R"({"data":[
        {"uid":"a","namespace":"profile","dataset":{"displayName":"A"}},
        {"uid":"b","namespace":"other","dataset":{}},
        {"uid":"c","dataset":{}},
        {"uid":"d","namespace":"Profile","dataset":{}},
        {"uid":"e","namespace":"profile","dataset":{"displayName":"E"}}]})"));
    ASSERT_TRUE(profiles);
    ASSERT_EQ(profiles->size(), 2U);
    EXPECT_EQ((*profiles)[0].displayName(), "A");
    EXPECT_EQ((*profiles)[1].displayName(), "E");
}

TEST_F(TrelvoSubprofiles, AreNoneIfOneDatasetOfTheResponseIsFaulty) {
    for (const char* const bad :
         {R"({"namespace":"profile","dataset":{}})", R"({"uid":"b","namespace":"profile"})",
          R"({"uid":"b","dataset":null})", R"({"uid":"b","dataset":[]})", "7"}) {
        const auto profiles = got(reply(
            200, R"({"data":[{"uid":"a","namespace":"profile","dataset":{}},)" + std::string(bad) + "]}"));
        ASSERT_TRUE(profiles) << bad;
        EXPECT_TRUE(profiles->empty()) << bad;
    }
}

TEST_F(TrelvoSubprofiles, AreAnErrorForA404AndNoneForAResponseWithoutDatasets) {
    const auto missing = got(reply(404, ""));
    ASSERT_FALSE(missing);
    EXPECT_EQ(missing.error().kind(), Kind::datasetDoesNotExist);
    const auto none = got(reply(200, R"({"data":[]})"));
    ASSERT_TRUE(none);
    EXPECT_TRUE(none->empty());
    EXPECT_TRUE(got(reply(200, "{}")));
}

TEST_F(TrelvoSubprofiles, AreRequestedWithPrivateAndFamilyDataIfWanted) {
    (void)got(reply(200, "{}"));
    (void)got(reply(200, "{}"), true, false);
    (void)got(reply(200, "{}"), false, true);
    (void)got(reply(200, "{}"), true, true);
    const std::string start = "GET /v2/dataset/profile?UID=u1&source=lumeno";
    const std::string end = " Bearer access-good";
    EXPECT_EQ(sent(0), start + end);
    EXPECT_EQ(sent(1), start + "&include=private" + end);
    EXPECT_EQ(sent(2), start + "&include=family" + end);
    EXPECT_EQ(sent(3), start + "&include=private,family" + end);
}

TEST_F(TrelvoSubprofiles, AreReadFromTheFirstDatasetOfTheResponse) {
    const char* const body = R"({"data":[{"uid":"a","namespace":"profile","dataset":{"birthYear":2010}},
                                         {"uid":"b","namespace":"profile","dataset":{}}]})";
    for (const auto& made : {created(reply(200, body)), updated(reply(200, body))}) {
        ASSERT_TRUE(made);
        EXPECT_EQ(made->uid(), "a");
        EXPECT_EQ(made->birthYear(), 2010);
    }
}

TEST_F(TrelvoSubprofiles, FailIfTheResponseContainsNoDataset) {
    for (const char* const body : {"{}", R"({"data":[]})", R"({"data":[{"uid":"a"}]})"}) {
        const auto made = created(reply(200, body));
        ASSERT_FALSE(made);
        EXPECT_EQ(made.error().errorDescription(),
                  "Unknown error: In Trelvo.createDataset(), POST call to dataset endpoint was successful "
                  "but response "
                  "contained no datasets, where we would expect to receive the dataset just created.");
        const auto changed = updated(reply(200, body));
        ASSERT_FALSE(changed);
        EXPECT_EQ(changed.error().errorDescription(),
                  "Unknown error: In Trelvo.updateDataset(), PATCH call to dataset endpoint was successful "
                  "but response "
                  "contained no datasets, where we would expect to receive the dataset just updated.");
    }
}

TEST_F(TrelvoSubprofiles, FailForADatasetOfAnotherNamespaceAfterItsTokensAreKept) {
    const auto other = created(reply(
        200, R"({"data":[{"uid":"a","namespace":"x","dataset":{}}],)" + authMember("rotated", 3000) + "}"));
    ASSERT_FALSE(other);
    EXPECT_EQ(other.error().errorDescription(),
              R"(Dataset namespace mismatch. Expected: "profile". Actual: "x")");
    EXPECT_EQ(saved(), "access-rotated");
    const auto none = updated(reply(200, R"({"data":[{"uid":"a","dataset":{}}]})"));
    ASSERT_FALSE(none);
    EXPECT_EQ(none.error().errorDescription(),
              R"(Dataset namespace mismatch. Expected: "profile". Actual: "nil")");
}

TEST_F(TrelvoSubprofiles, SendTheirDatasetAsAPercentEncodedFormField) {
    (void)created(reply(200, "{}"), {{"displayName", "A & B"}});
    (void)updated(reply(200, "{}"), {{"n", 7}, {"t", true}});
    EXPECT_EQ(bodyOf(0), "dataset=%7B%22displayName%22%3A%22A%20%26%20B%22%7D");
    EXPECT_EQ(bodyOf(1), "dataset=%7B%22n%22%3A7%2C%22t%22%3Atrue%7D");
    EXPECT_EQ(session->request(0).value("Content-Type"), "application/x-www-form-urlencoded");
}

TEST_F(TrelvoSubprofiles, OmitUnsupportedValues) {
    (void)created(reply(200, "{}"), {{"list", AnyValue::Other{"array"}}, {"n", 1}});
    EXPECT_EQ(bodyOf(0), "dataset=%7B%22n%22%3A1%7D");
}

TEST_F(TrelvoSubprofiles, AreSentWithoutABodyIfTheirDatasetCannotBeEncoded) {
    (void)created(reply(200, "{}"), {{"n", std::numeric_limits<double>::infinity()}});
    EXPECT_EQ(bodyOf(0), "none");
    EXPECT_EQ(session->request(0).httpMethod(), "POST");
}

TEST_F(TrelvoSubprofiles, AreDeletedTogetherWithHistoryAndWatchlist) {
    deleteSubprofile();
    EXPECT_EQ(context.dataRequests, 3) << "none waits for the response to another";
    std::vector<std::string> requests{sent(0), sent(1), sent(2)};
    std::sort(requests.begin(), requests.end());
    EXPECT_EQ(requests, (std::vector<std::string>{profile, history, watchlist}));
    EXPECT_EQ(outcomes.count(), 0U);
    answerTo(profile, reply(200, "{}"));
    EXPECT_EQ(outcomes.only().text(), "success");
    answerTo(history, reply(200, "{}"));
    answerTo(watchlist, reply(200, "{}"));
    EXPECT_EQ(outcomes.count(), 1U);
}

TEST_F(TrelvoSubprofiles, AreDeletedAfterTheHistoryAndThenTheWatchlistHaveStarted) {
    class Noting final : public UserContext {
    public:
        std::optional<URLRequest> generateURLRequest(URLRequestArguments arguments) const override {
            paths.push_back(arguments.usingPath.value());
            return UserContext::generateURLRequest(std::move(arguments));
        }
        mutable std::vector<std::string> paths;
    };
    Noting noting;
    noting.session = session;
    saveGoodTokens();
    trelvo->deleteSubprofile({.completionHandler = completion<void>(outcomes.completed())}, noting);
    EXPECT_EQ(noting.paths,
              (std::vector<std::string>{"v2/history", "v2/saved/watchlist", "v2/dataset/profile"}));
}

TEST_F(TrelvoSubprofiles, AreDeletedEvenIfHistoryAndWatchlistAreNot) {
    deleteSubprofile();
    answerTo(history, reply(500, ""));
    answerTo(watchlist, reply(500, ""));
    EXPECT_EQ(outcomes.count(), 0U);
    answerTo(profile, reply(200, "{}"));
    EXPECT_EQ(outcomes.only().text(), "success");
}

TEST_F(TrelvoSubprofiles, AreNotDeletedIfTheDatasetIsNot) {
    deleteSubprofile();
    answerTo(history, reply(200, "{}"));
    answerTo(watchlist, reply(200, "{}"));
    answerTo(profile, reply(404, ""));
    EXPECT_TRUE(outcomes.only().is(Kind::general));
    EXPECT_EQ(outcomes.only().code(), 404);
}

TEST_F(TrelvoSubprofiles, ReportAMissingUserOnceOnDeletion) {
    context.user = std::nullopt;
    deleteSubprofile();
    EXPECT_TRUE(outcomes.only().is(Kind::noUid));
    EXPECT_EQ(context.tokenRequests + context.dataRequests, 0);
}

TEST_F(TrelvoSubprofiles, AreDeletedInThreeStepsThatEachRequestATokenAndBlockTheCaller) {
    trelvo->clearAuth();
    const Event returned = onItsOwnThread([this] { deleteSubprofile(); });
    for (std::size_t step = 0; step < 3; ++step) {
        (void)waits.awaited(step);
        EXPECT_EQ(sent(step), tokenRequest + "none");
        EXPECT_EQ(returned.count(), 0);
        EXPECT_EQ(outcomes.count(), 0U);
        session->answer(step, reply(503, ""));
    }
    ASSERT_TRUE(returned.wait());
    EXPECT_EQ(context.tokenRequests, 3);
    EXPECT_EQ(context.dataRequests, 0);
    EXPECT_TRUE(outcomes.only().is(Kind::noAuthToken));
}

TEST_F(TrelvoSubprofiles, AreDeletedInOrderWithTheTokenThatEachStepFinds) {
    trelvo->clearAuth();
    const Event returned = onItsOwnThread([this] { deleteSubprofile(); });
    session->answer(0, reply(503, ""));
    session->answer(1, tokenReply("second", 2000));
    ASSERT_TRUE(returned.wait());
    std::vector<std::string> requests{sent(2), sent(3)};
    std::sort(requests.begin(), requests.end());
    EXPECT_EQ(requests, (std::vector<std::string>{
                            "DELETE /v2/dataset/profile?UID=u1&source=lumeno Bearer access-second",
                            "DELETE /v2/saved/watchlist?UID=u1&source=lumeno Bearer access-second"}))
        << "the history was the first step, and its token did not come";
}

}  // namespace
}  // namespace VanticRestKit::test
