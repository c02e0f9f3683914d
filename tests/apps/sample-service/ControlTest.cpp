#include "Client.h"

namespace VanticRestKit::test {

namespace {

TEST(SampleControl, TheLogContainsMethodPathOrderedQueryHeadersAndBody) {
    const SampleService service;
    clientOf(service).Post("/v2/time?b=1&a&c=&b=%26x", {{"X-Sent", "yes"}}, "the body", "text/plain");
    const auto log = service.log();
    ASSERT_EQ(log.size(), 1U);
    EXPECT_EQ(log[0]["method"], "POST");
    EXPECT_EQ(log[0]["path"], "v2/time");
    EXPECT_EQ(log[0]["target"], "/v2/time?b=1&a&c=&b=%26x");
    EXPECT_EQ(log[0]["query"], nlohmann::json::parse(R"([{"name":"b","value":"1"},{"name":"a","value":null},
                                                         {"name":"c","value":""},{"name":"b","value":"&x"}])"));
    EXPECT_EQ(log[0]["body"], "the body");
    const auto& headers = log[0]["headers"];
    const nlohmann::json sent{{"name", "X-Sent"}, {"value", "yes"}};
    EXPECT_NE(std::find(headers.begin(), headers.end(), sent), headers.end()) << headers;
}

TEST(SampleControl, ABodyLongerThanTheFormLimitOfHttplibArrives) {
    const SampleService service;
    const std::string body(50'000, 'x');
    clientOf(service).Post("/v2/time", body, "application/x-www-form-urlencoded");
    EXPECT_EQ(service.log()[0]["body"], body);
}

TEST(SampleControl, ADeletionWithoutABodyIsAnsweredAtOnce) {
    const SampleService service;
    const auto answer = clientOf(service).Delete("/v2/time");
    ASSERT_TRUE(answer);
    EXPECT_EQ(answer->status, 405);
}

TEST(SampleControl, ControlRequestsAreNotLogged) {
    const SampleService service;
    service.control("GET", "/_control/state");
    EXPECT_EQ(service.log().size(), 0U);
}

TEST(SampleControl, TheLogCanBeCleared) {
    const SampleService service;
    get(service, "/v2/time");
    service.clearLog();
    EXPECT_EQ(service.log().size(), 0U);
    EXPECT_EQ(service.control("GET", "/_control/state")["requests"], 0);
}

TEST(SampleControl, TheStateListsThePendingFaults) {
    const SampleService service;
    service.addFault({{"path", "v2/time"}, {"fault", "status"}, {"count", 2}});
    get(service, "/v2/time");
    const auto faults = service.control("GET", "/_control/state")["faults"];
    ASSERT_EQ(faults.size(), 1U);
    EXPECT_EQ(faults[0]["count"], 1);
    service.control("DELETE", "/_control/faults");
    EXPECT_EQ(clientOf(service).Get("/v2/time")->status, 200);
}

TEST(SampleControl, AnInvalidFaultIsRejected) {
    const SampleService service;
    for (const char* body : {"{", "[]", R"({"path":"v2/time"})", R"({"path":"v2/time","fault":"nonsense"})",
                             R"({"path":"v2/time","fault":"delay","seconds":"long"})",
                             R"({"path":"v2/time","fault":"null","at":"no pointer"})"}) {
        EXPECT_TRUE(service.control("POST", "/_control/faults", body).is_null()) << body;
    }
}

TEST(SampleControl, ResponsesAreCompressedOnRequest) {
    const SampleService service;
    auto client = clientOf(service);
    client.set_decompress(false);
    const auto answer = client.Get("/v2/video/HL0101", {{"Accept-Encoding", "gzip"}});
    ASSERT_TRUE(answer);
    EXPECT_EQ(answer->get_header_value("Content-Encoding"), "gzip");
}

}  // namespace

}  // namespace VanticRestKit::test
