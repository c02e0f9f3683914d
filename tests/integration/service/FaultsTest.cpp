#include "ServiceContext.h"

#include "support/SampleService.h"

#include <VanticRestKit/lumeno/Endpoints/Endpoint.h>
#include <VanticRestKit/lumeno/Video/Video.h>

#include <chrono>
#include <csignal>

namespace VanticRestKit::test {

namespace {

/// A video whose load will fail, and a context with a timeout of half a second.
class SampleServiceFaults : public ::testing::Test {
protected:
    SampleServiceFaults() { context.timeout = 0.5; }

    void fail(const char* fault, nlohmann::json details = nlohmann::json::object()) {
        details["path"] = "v2/video/HL0102";
        details["fault"] = fault;
        service.addFault(details);
    }
    std::optional<Resource<Video>> video() const {
        return Endpoint::Video({.houseNumber = "HL0102"}, context);
    }

    SampleService service;
    ServiceContext context{service.baseURL()};
};

TEST_F(SampleServiceFaults, ADelayWithinTheTimeoutSucceeds) {
    context.timeout = 30.0;
    fail("delay", {{"seconds", 0.2}});
    EXPECT_TRUE(valueOf(video()));
}

TEST_F(SampleServiceFaults, ADelayBeyondTheTimeoutTimesOut) {
    fail("delay", {{"seconds", 30}});
    EXPECT_EQ(codeOf(video()), -1001);
}

TEST_F(SampleServiceFaults, AResponseThatNeverComesTimesOut) {
    fail("stall");
    EXPECT_EQ(codeOf(video()), -1001);
}

TEST_F(SampleServiceFaults, ABodyThatStopsHalfwayTimesOut) {
    fail("stall", {{"after", 500}});
    EXPECT_EQ(codeOf(video()), -1001);
}

TEST_F(SampleServiceFaults, AResetLosesTheConnection) {
    fail("reset", {{"after", 500}});
    EXPECT_EQ(codeOf(video()), -1005);
}

TEST_F(SampleServiceFaults, ABodyThatIsNotJSONFailsToDecode) {
    fail("malformed");
    const auto outcome = outcomeOf(video());
    ASSERT_TRUE(outcome && !*outcome);
    EXPECT_EQ(outcome->error().kind(), LoaderError::Kind::failedToDecode);
    EXPECT_FALSE(outcome->error().is404Error());
}

TEST_F(SampleServiceFaults, A404IsRecognised) {
    fail("status", {{"status", 404}});
    const auto outcome = outcomeOf(video());
    ASSERT_TRUE(outcome && !*outcome);
    EXPECT_TRUE(outcome->error().is404Error());
}

TEST_F(SampleServiceFaults, A500IsAServerErrorWithItsBody) {
    fail("status", {{"status", 500}, {"text", "out of order"}});
    const auto outcome = outcomeOf(video());
    ASSERT_TRUE(outcome && !*outcome);
    const auto* error = outcome->error().underlyingError()->as<NetworkError>();
    ASSERT_NE(error, nullptr);
    EXPECT_EQ(error->kind(), NetworkError::Kind::httpError);
    EXPECT_EQ(error->errorCode(), 500);
    EXPECT_EQ(error->data(), Data("out of order"));
}

TEST_F(SampleServiceFaults, AnExpiredTokenIsA401) {
    fail("expiredToken");
    EXPECT_EQ(codeOf(video()), 401);
}

TEST_F(SampleServiceFaults, AnUnknownKindOfVideoIsAVideoWithoutKind) {
    fail("unknownEnum", {{"at", "/type"}});
    const auto loaded = valueOf(video());
    ASSERT_TRUE(loaded);
    EXPECT_FALSE(loaded->subtype);
    EXPECT_TRUE(loaded->playlist);
}

TEST_F(SampleServiceFaults, AnUnknownEntryEmptiesOnlyThePlaylist) {
    fail("unknownEnum", {{"at", "/_embedded/playlist/0/type"}});
    const auto loaded = valueOf(video());
    ASSERT_TRUE(loaded);
    EXPECT_FALSE(loaded->playlist);
    EXPECT_EQ(loaded->title, "Slack Water");
}

TEST_F(SampleServiceFaults, NullLinksFailToDecode) {
    fail("null", {{"at", "/_links"}});
    const auto outcome = outcomeOf(video());
    ASSERT_TRUE(outcome && !*outcome);
    EXPECT_EQ(outcome->error().kind(), LoaderError::Kind::failedToDecode);
}

TEST_F(SampleServiceFaults, AFailureIsFollowedByASuccess) {
    fail("status");
    const auto resource = video();
    EXPECT_EQ(codeOf(resource), 500);
    EXPECT_TRUE(valueOf(resource));
}

TEST_F(SampleServiceFaults, AStoppedServiceCannotBeConnectedTo) {
    EXPECT_EQ(service.end(SIGTERM), 0);
    EXPECT_EQ(codeOf(video()), -1004);
}

}  // namespace

}  // namespace VanticRestKit::test
