#include <gtest/gtest.h>
#include <VanticRestKit/Core/Resource.h>
#include <VanticRestKit/lumeno/Endpoints/Endpoint.h>
#include <VanticRestKit/platform/error/NSError.h>
#include <VanticRestKit/Testing/RecordingSession.h>
#include <VanticRestKit/Testing/Replay.h>
#include <VanticRestKit/Testing/SampleAnswers.h>
#include <VanticRestKit/Testing/Scripted.h>
#include <VanticRestKit/Testing/ShowBuilder.h>
#include <VanticRestKit/trelvo/UserClient.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>

namespace VanticRestKit::Testing {
namespace {

/// A separate folder for each test, with a session that is recorded into it and replayed from it.
class ReplayTest : public ::testing::Test {
protected:
    ReplayTest() {
        folder =
            ::testing::TempDir() + "kit-" + ::testing::UnitTest::GetInstance()->current_test_info()->name();
        std::filesystem::remove_all(folder);
    }
    ~ReplayTest() override { std::filesystem::remove_all(folder); }

    /// Loads a video over `session`.
    Result<Video, LoaderError> load(const std::shared_ptr<NetworkSession>& session, const char* houseNumber) {
        const Scripted<TestContext> context(session);
        std::optional<Result<Video, LoaderError>> outcome;
        const auto resource = Endpoint::Video({.houseNumber = houseNumber}, context);
        const auto load = resource->start({}, [&](auto result) { outcome = std::move(result); });
        executor.runAll();
        EXPECT_TRUE(outcome);
        return outcome ? *std::move(outcome) : Failure(LoaderError::unknowError());
    }

    /// The size of the watchlist after a show was added.
    std::size_t addToWatchlist(const std::shared_ptr<NetworkSession>& session) {
        const auto client = UserClient::make(std::make_shared<Scripted<TestContext>>(session));
        std::optional<std::size_t> size;
        const auto add =
            client->addWatchlistShow({.showId = 11}).start({.on = executor.queue()}, [&](auto result) {
                size = result ? result->size() : 0;
            });
        EXPECT_TRUE(executor.runUntil([&] { return size.has_value(); }));
        return size.value_or(0);
    }

    std::shared_ptr<RecordingSession> recording() {
        return RecordingSession::make(service.session(), folder);
    }
    ScriptedService replayed(const Replay& replay) {
        ScriptedService made(executor);
        made.on("/**").answerBy(replay);
        return made;
    }

    std::set<std::string> files() const {
        std::set<std::string> names;
        for (const auto& file : std::filesystem::directory_iterator(folder))
            names.insert(file.path().filename());
        return names;
    }
    std::string content(const std::string& name) const {
        std::ifstream file(folder + "/" + name);
        return std::string(std::istreambuf_iterator<char>(file), {});
    }

    std::string folder;
    ManualExecutor executor;
    ScriptedService service{executor};
};

TEST_F(ReplayTest, RecordsAReadableFileForEachRequest) {
    service.on("/v2/video/ZW1").answer(Answer(R"({"title":"A","tags":[],"_links":{"self":{"href":"/v"}}})"));
    EXPECT_TRUE(load(recording(), "ZW1"));
    EXPECT_EQ(files(), std::set<std::string>{"GET_v2_video_ZW1.1.txt"});
    EXPECT_EQ(content("GET_v2_video_ZW1.1.txt"),
              "> GET /v2/video/ZW1\n"
              "< 200\n"
              "< Content-Type: application/json\n"
              "<\n"
              "{\n  \"title\": \"A\",\n  \"tags\": [],\n  \"_links\": {\n    \"self\": {\n      \"href\": "
              "\"/v\"\n    }\n  }\n}");
}

TEST_F(ReplayTest, ReplaysTheRecordedResponsesInOrder) {
    service.on("/v2/video/HL0101")
        .answer(Answer::status(503).withHeader("Retry-After", "5"))
        .answer(aVideo().titled("First"))
        .answer(Answer::timedOut());
    const auto session = recording();
    for (int i = 0; i < 3; ++i) static_cast<void>(load(session, "HL0101"));
    EXPECT_EQ(session->problems(), "");

    const Replay replay(folder);
    EXPECT_EQ(replay.size(), 3U);
    const ScriptedService again = replayed(replay);
    const auto first = load(again.session(), "HL0101");
    ASSERT_FALSE(first);
    EXPECT_EQ(first.error().underlyingError()->as<NetworkError>()->response()->value("Retry-After"), "5");
    const auto second = load(again.session(), "HL0101");
    ASSERT_TRUE(second);
    EXPECT_EQ(*second, aVideo().titled("First").value());
    for (int i = 0; i < 2; ++i) {
        const auto last = load(again.session(), "HL0101");
        ASSERT_FALSE(last);
        EXPECT_EQ(last.error().underlyingError()->as<NetworkError>()->transportError()->code(),
                  static_cast<std::int64_t>(URLErrorCode::timedOut));
    }
    EXPECT_EQ(replay.problems(), "");
}

TEST_F(ReplayTest, AnUnknownRequestFailsAndNamesTheNearestRecording) {
    service.on("/v2/video/*").answer(aVideo());
    static_cast<void>(load(recording(), "HL0101"));
    const Replay replay(folder);
    const auto outcome = load(replayed(replay).session(), "HL0102");
    ASSERT_FALSE(outcome);
    const std::string reason = "No answer to GET /v2/video/HL0102 is recorded in " + folder +
                               "; the closest is GET /v2/video/HL0101";
    EXPECT_EQ(
        outcome.error().underlyingError()->as<NetworkError>()->underlyingError()->localizedDescription(),
        reason);
    EXPECT_EQ(replay.problems(), reason + "\n");
}

TEST_F(ReplayTest, AFolderWithoutRecordingsIsAProblem) {
    EXPECT_EQ(Replay(folder).problems(), folder + " contains no recordings\n");
    std::filesystem::create_directories(folder);
    std::ofstream(folder + "/notes.txt") << "hello";
    EXPECT_EQ(Replay(folder).problems(),
              folder + "/notes.txt is not a recording\n" + folder + " contains no recordings\n");
}

TEST_F(ReplayTest, TheSessionOfAUserIsReplayedWithoutItsTokens) {
    service.on("/**").answerBy(SampleAnswers());
    EXPECT_EQ(addToWatchlist(recording()), 1U);
    ASSERT_EQ(files().size(), 2U);
    for (const std::string& file : files()) {
        EXPECT_EQ(content(file).find("access-1"), std::string::npos) << content(file);
        EXPECT_EQ(content(file).find("refresh-1"), std::string::npos) << content(file);
        EXPECT_NE(content(file).find("REDACTED"), std::string::npos) << content(file);
    }
    const Replay replay(folder);
    EXPECT_EQ(addToWatchlist(replayed(replay).session()), 1U);
    EXPECT_EQ(replay.problems(), "");
}

TEST_F(ReplayTest, RequestsAreDistinguishedByTheirBodies) {
    const auto ask = [&](const std::shared_ptr<NetworkSession>& session, const char* body) {
        URLRequest request(URL("https://service.test/v2/thing"));
        request.setHTTPMethod("POST");
        request.setHTTPBody(Data(body));
        std::string came;
        session->loadData(
            {.fromURLRequest = request,
             .completionHandler = [&](std::optional<Data> data, auto, std::optional<Error> error) {
                 came = error ? error->localizedDescription() : std::string(data->view());
             }});
        executor.runAll();
        return came;
    };
    service.on("POST /v2/thing").answer("1").answer("2");
    const auto session = recording();
    EXPECT_EQ(ask(session, "one\n\nline"), "1");
    EXPECT_EQ(ask(session, "two"), "2");
    const Replay replay(folder);
    const ScriptedService again = replayed(replay);
    EXPECT_EQ(ask(again.session(), "two"), "2");
    EXPECT_EQ(ask(again.session(), "one\n\nline"), "1");
    EXPECT_NE(ask(again.session(), "three").find("with another body"), std::string::npos);
}

TEST_F(ReplayTest, ACancelledRequestIsNotRecorded) {
    service.holdAll();
    const Scripted<TestContext> context(recording());
    const auto resource = Endpoint::Video({.houseNumber = "1"}, context);
    const auto load = resource->start({}, [](auto) {});
    load.cancel();
    executor.runAll();
    EXPECT_FALSE(std::filesystem::exists(folder));
}

TEST_F(ReplayTest, AFolderThatCannotBeWrittenIsAProblem) {
    std::ofstream(folder) << "a file in its place";
    service.on("/**").answer(aVideo());
    const auto session = recording();
    EXPECT_TRUE(load(session, "1"));
    EXPECT_EQ(session->problems(), "cannot write " + folder + "/GET_v2_video_1.1.txt\n");
}

TEST_F(ReplayTest, MoreThanNineAnswersAreReplayedInOrder) {
    ScriptRule rule = service.on("/v2/video/1");
    for (int i = 1; i <= 11; ++i) rule.answer(aVideo().titled(std::to_string(i)));
    const auto session = recording();
    for (int i = 1; i <= 11; ++i) static_cast<void>(load(session, "1"));
    const ScriptedService again = replayed(Replay(folder));
    for (int i = 1; i <= 11; ++i) EXPECT_EQ(load(again.session(), "1").value().title, std::to_string(i));
}

TEST_F(ReplayTest, RecordingsWithoutANumberComeFirst) {
    service.on("/v2/video/1").answer(aVideo().titled("numbered"));
    static_cast<void>(load(recording(), "1"));
    const std::string text = content("GET_v2_video_1.1.txt");
    std::string edited = text;
    edited.replace(edited.find("numbered"), 8, "by hand");
    std::ofstream(folder + "/Z.txt") << edited;
    const ScriptedService again = replayed(Replay(folder));
    EXPECT_EQ(load(again.session(), "1").value().title, "by hand");
    EXPECT_EQ(load(again.session(), "1").value().title, "numbered");
}

TEST_F(ReplayTest, FilesWithoutTheExtensionOfARecordingAreIgnored) {
    service.on("/**").answer(aVideo());
    static_cast<void>(load(recording(), "1"));
    std::ofstream(folder + "/README.md") << "hello";
    const Replay replay(folder);
    EXPECT_EQ(replay.size(), 1U);
    EXPECT_EQ(replay.problems(), "");
}

TEST_F(ReplayTest, AnUnknownRequestNamesTheClosestOfSeveralRecordings) {
    service.on("/**").answer(aVideo());
    const auto session = recording();
    for (const char* number : {"AA1", "HL0102", "ZZ9999"}) static_cast<void>(load(session, number));
    const Replay replay(folder);
    static_cast<void>(load(replayed(replay).session(), "HL0101"));
    EXPECT_TRUE(replay.problems().ends_with("; the closest is GET /v2/video/HL0102\n")) << replay.problems();
}

}  // namespace
}  // namespace VanticRestKit::Testing
