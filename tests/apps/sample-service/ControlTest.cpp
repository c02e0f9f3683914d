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

TEST(SampleControl, ThePendingFaultsAreListed) {
    const SampleService service;
    EXPECT_EQ(service.control("GET", "/_control/faults"), nlohmann::json::array());
    service.addFault({{"path", "v2/home"}, {"fault", "stall"}});
    service.addFault({{"path", "v2/time"}, {"fault", "status"}, {"count", 2}});
    const auto faults = service.control("GET", "/_control/faults");
    ASSERT_EQ(faults.size(), 2U);
    EXPECT_EQ(faults[0]["fault"], "stall");
    EXPECT_EQ(faults[1]["path"], "v2/time");
    EXPECT_EQ(faults[1]["count"], 2);
}

TEST(SampleControl, PercentEscapesAreDecodedIfTheyAreValid) {
    const SampleService service;
    clientOf(service).Get("/v2/%C3%bc%4A?a=%4a&b=%4&c=%zz&d=%4z&e=%&f=%z4");
    const auto log = service.log();
    ASSERT_EQ(log.size(), 1U);
    EXPECT_EQ(log[0]["path"], "v2/\u00fcJ");
    const auto& query = log[0]["query"];
    ASSERT_EQ(query.size(), 6U);
    EXPECT_EQ(query[0]["value"], "J");
    EXPECT_EQ(query[1]["value"], "%4");
    EXPECT_EQ(query[2]["value"], "%zz");
    EXPECT_EQ(query[3]["value"], "%4z");
    EXPECT_EQ(query[4]["value"], "%");
    EXPECT_EQ(query[5]["value"], "%z4");
}

TEST(SampleControl, ARequestForTheHeadIsAnsweredLikeAGetWithoutABody) {
    const SampleService service;
    const auto answer = clientOf(service).Head("/v2/video/HL0101");
    ASSERT_TRUE(answer);
    EXPECT_EQ(answer->status, 200);
    EXPECT_EQ(answer->body, "");
    EXPECT_EQ(clientOf(service).Head("/v2/video/none")->status, 404);
}

TEST(SampleControl, AGetWithABodyEndsTheConnection) {
    const SampleService service;
    auto client = clientOf(service);
    client.set_keep_alive(true);
    httplib::Request request;
    request.method = "GET";
    request.path = "/v2/time";
    request.body = "a body that is not read";
    const auto answer = client.send(request);
    ASSERT_TRUE(answer);
    EXPECT_EQ(answer->status, 200);
    EXPECT_EQ(answer->get_header_value("Connection"), "close");
    EXPECT_NE(client.Get("/v2/time")->get_header_value("Connection"), "close");
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
