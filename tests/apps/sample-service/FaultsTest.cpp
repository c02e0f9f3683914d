#include "Client.h"

#include <chrono>

namespace VanticRestKit::test {

namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

TEST(SampleFaults, ADelayPostponesTheResponse) {
    const SampleService service;
    service.addFault({{"path", "v2/time"}, {"fault", "delay"}, {"seconds", 0.3}});
    const auto start = steady_clock::now();
    EXPECT_TRUE(get(service, "/v2/time").is_number());
    EXPECT_GE(steady_clock::now() - start, milliseconds(290));
}

TEST(SampleFaults, AStallSendsNothingUntilTheClientDisconnects) {
    const SampleService service;
    service.addFault({{"path", "v2/time"}, {"fault", "stall"}});
    auto client = clientOf(service);
    client.set_read_timeout(milliseconds(200));
    EXPECT_EQ(client.Get("/v2/time").error(), httplib::Error::Read);
    EXPECT_TRUE(get(service, "/v2/time").is_number());
}

TEST(SampleFaults, AStallAfterSomeBytesSendsThose) {
    const SampleService service;
    service.addFault({{"path", "v2/video/HL0101"}, {"fault", "stall"}, {"after", 40}});
    auto client = clientOf(service);
    client.set_read_timeout(milliseconds(200));
    std::string received;
    const auto answer = client.Get("/v2/video/HL0101", [&](const char* data, std::size_t size) {
        received.append(data, size);
        return true;
    });
    EXPECT_FALSE(answer);
    EXPECT_EQ(received.size(), 40U);
    EXPECT_TRUE(received.starts_with(R"({"_entity":"video")"));
}

TEST(SampleFaults, AResetEndsTheConnectionWithoutAResponse) {
    const SampleService service;
    service.addFault({{"path", "v2/time"}, {"fault", "reset"}});
    EXPECT_EQ(clientOf(service).Get("/v2/time").error(), httplib::Error::Read);
    EXPECT_TRUE(get(service, "/v2/time").is_number());
}

TEST(SampleFaults, AResetAfterSomeBytesTruncatesTheBody) {
    const SampleService service;
    service.addFault({{"path", "v2/video/HL0101"}, {"fault", "reset"}, {"after", 40}});
    EXPECT_FALSE(clientOf(service).Get("/v2/video/HL0101"));
}

TEST(SampleFaults, AMalformedResponseIsASuccessWithABodyThatIsNotJSON) {
    const SampleService service;
    service.addFault({{"path", "v2/time"}, {"fault", "malformed"}, {"count", 2}});
    EXPECT_EQ(clientOf(service).Get("/v2/time")->status, 200);
    EXPECT_TRUE(get(service, "/v2/time").is_discarded());
    service.addFault({{"path", "v2/time"}, {"fault", "malformed"}, {"text", "{\"half\":"}});
    EXPECT_EQ(clientOf(service).Get("/v2/time")->body, "{\"half\":");
}

TEST(SampleFaults, AStatusIsSentAsOftenAsScripted) {
    const SampleService service;
    service.addFault({{"path", "v2/time"}, {"fault", "status"}, {"status", 503}, {"count", 2}});
    auto client = clientOf(service);
    EXPECT_EQ(client.Get("/v2/time")->status, 503);
    EXPECT_EQ(client.Get("/v2/time")->status, 503);
    EXPECT_EQ(client.Get("/v2/time")->status, 200);
}

TEST(SampleFaults, AnExpiredTokenIsA401) {
    const SampleService service;
    service.addFault({{"path", "*"}, {"fault", "expiredToken"}});
    EXPECT_EQ(clientOf(service).Get("/v2/time")->status, 401);
}

TEST(SampleFaults, AnUnknownEnumerationValueIsSentInOneFieldOrAll) {
    const SampleService service;
    service.addFault(
        {{"path", "v2/video/HL0101"}, {"fault", "unknownEnum"}, {"at", "/_embedded/playlist/0/type"}});
    auto video = get(service, "/v2/video/HL0101");
    EXPECT_EQ(video["type"], "episode");
    EXPECT_EQ(video["_embedded"]["playlist"][0]["type"], "holographic");
    service.addFault({{"path", "v2/video/HL0101"}, {"fault", "unknownEnum"}});
    video = get(service, "/v2/video/HL0101");
    EXPECT_EQ(video["type"], "holographic");
    EXPECT_EQ(video["title"], "The Pilot Boat");
}

TEST(SampleFaults, ANullIsSentInOneFieldOrAsTheWholeResponse) {
    const SampleService service;
    service.addFault({{"path", "v2/video/HL0101"}, {"fault", "null"}, {"at", {"/_links", "/title"}}});
    const auto video = get(service, "/v2/video/HL0101");
    EXPECT_TRUE(video["_links"].is_null());
    EXPECT_TRUE(video["title"].is_null());
    EXPECT_EQ(video["type"], "episode");
    service.addFault({{"path", "v2/video/HL0101"}, {"fault", "null"}});
    EXPECT_EQ(clientOf(service).Get("/v2/video/HL0101")->body, "null");
}

TEST(SampleFaults, AFaultAffectsOnlyItsPathAndMethod) {
    const SampleService service;
    service.addFault({{"path", "v2/time"}, {"fault", "status"}, {"method", "POST"}});
    EXPECT_EQ(clientOf(service).Get("/v2/time")->status, 200);
    EXPECT_EQ(clientOf(service).Get("/v3/image/avatar/")->status, 200);
    EXPECT_EQ(clientOf(service).Post("/v2/time")->status, 500);
}

}  // namespace

}  // namespace VanticRestKit::test
