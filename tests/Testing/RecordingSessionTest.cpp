#include <gtest/gtest.h>
#include <VanticRestKit/Core/Resource.h>
#include <VanticRestKit/lumeno/Endpoints/Endpoint.h>
#include <VanticRestKit/platform/error/NSError.h>
#include <VanticRestKit/Testing/RecordingSession.h>
#include <VanticRestKit/Testing/Scripted.h>
#include <VanticRestKit/Testing/ShowBuilder.h>

#include <filesystem>
#include <fstream>
#include <iterator>

namespace VanticRestKit::Testing {
namespace {

/// Passes the same outcome to every completion, before `loadData` returns.
class FixedSession final : public NetworkSession {
public:
    void loadData(LoadDataArguments arguments) override {
        std::move(arguments.completionHandler).value()(data, response, {});
    }
    AnyPublisher<Answer> loadDataPublisher(LoadDataPublisherArguments) override {
        return AnyPublisher<Answer>::create([](const auto&) { return Cancellable(); });
    }

    std::optional<Data> data{};
    std::shared_ptr<const URLResponse> response{};
};

class RecordingSessionTest : public ::testing::Test {
protected:
    RecordingSessionTest() {
        folder = ::testing::TempDir() + "kit-recording-" +
                 ::testing::UnitTest::GetInstance()->current_test_info()->name();
        std::filesystem::remove_all(folder);
    }
    ~RecordingSessionTest() override { std::filesystem::remove_all(folder); }

    /// Sends a request for the time and returns the file written for it; empty if there is none.
    std::string recorded(const std::shared_ptr<NetworkSession>& session) {
        bool isCalled = false;
        RecordingSession::make(session, folder)
            ->loadData({.fromURLRequest = URLRequest(URL("https://service.test/v2/time")),
                        .completionHandler = [&](auto, auto, auto) { isCalled = true; }});
        executor.runAll();
        EXPECT_TRUE(isCalled) << "recording does not change what the session delivers";
        return content("GET_v2_time.1.txt");
    }
    std::string content(const std::string& name) const {
        std::ifstream file(folder + "/" + name);
        return std::string(std::istreambuf_iterator<char>(file), {});
    }

    std::string folder;
    ManualExecutor executor;
    ScriptedService service{executor};
};

TEST_F(RecordingSessionTest, RequestsOfPublishersAreRecorded) {
    service.on("/v2/video/HL0101").answer(aVideo().titled("A"));
    const Scripted<TestContext> context(RecordingSession::make(service.session(), folder));
    const auto video = Endpoint::Video({.houseNumber = "HL0101"}, context);
    std::string title;
    const auto load = video->resourceLoader().sink([&](Video value) { title = value.title.value_or(""); });
    executor.runAll();
    EXPECT_EQ(title, "A");
    EXPECT_TRUE(content("GET_v2_video_HL0101.1.txt").starts_with("> GET /v2/video/HL0101\n"));
}

TEST_F(RecordingSessionTest, HeadersOfTheTransferAreOmitted) {
    service.on("/v2/time").answer(Answer("1").withHeader("content-length", "1").withHeader("X-Kind", "a"));
    EXPECT_EQ(recorded(service.session()),
              "> GET /v2/time\n< 200\n< Content-Type: application/json\n< X-Kind: a\n<\n1");
}

TEST_F(RecordingSessionTest, TheContentTypeOfTheServerIsKeptInAnySpelling) {
    service.on("/v2/time").answer(Answer("1").withHeader("content-type", "text/plain"));
    EXPECT_EQ(recorded(service.session()), "> GET /v2/time\n< 200\n< content-type: text/plain\n<\n1");
}

TEST_F(RecordingSessionTest, ARequestThatWasCancelledByTheTransportIsNotRecorded) {
    service.on("/v2/time").answer(Answer::error(URLErrorCode::cancelled));
    EXPECT_EQ(recorded(service.session()), "");
}

TEST_F(RecordingSessionTest, AnErrorOfAnotherDomainIsRecordedEvenIfItsCodeIsThatOfACancellation) {
    service.on("/v2/time")
        .answer(Answer::error(NSError("host.tests", static_cast<std::int64_t>(URLErrorCode::cancelled))));
    EXPECT_TRUE(recorded(service.session()).starts_with("> GET /v2/time\n< error host.tests -999 "));
}

TEST_F(RecordingSessionTest, AResponseWithoutDataIsRecordedWithAnEmptyBody) {
    const auto session = std::make_shared<FixedSession>();
    session->response = std::make_shared<const HTTPURLResponse>(URL("https://service.test/v2/time"), 204);
    EXPECT_EQ(recorded(session), "> GET /v2/time\n< 204\n<\n");
}

TEST_F(RecordingSessionTest, AResponseThatIsNotHTTPIsNotRecorded) {
    const auto session = std::make_shared<FixedSession>();
    session->data = Data("1");
    session->response = std::make_shared<const URLResponse>(URL("https://service.test/v2/time"));
    EXPECT_EQ(recorded(session), "");
    session->response = nullptr;
    EXPECT_EQ(recorded(session), "");
}

}  // namespace
}  // namespace VanticRestKit::Testing
