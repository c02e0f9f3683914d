#include <gtest/gtest.h>

#include "Browser.h"

namespace living_room {
namespace {

// Refusing a request needs no service.
class BadInputTest : public ::testing::Test {
protected:
    std::string statusOf(const std::string& request) const {
        const std::string answer = exchange(host.port(), request);
        EXPECT_TRUE(answer.empty() || answer.find("<h1>") != std::string::npos) << answer;
        return answer.substr(0, answer.find("\r\n"));
    }
    std::string statusOfPath(const std::string& path) const {
        return statusOf("GET " + path + " HTTP/1.1\r\nHost: " + host.authority() +
                        "\r\nConnection: close\r\n\r\n");
    }

    const RunningHost host{URL("http://127.0.0.1:1")};
};

TEST_F(BadInputTest, AnUnknownPathIsNotFound) {
    for (const char* const path :
         {"/nope", "/living-room.html", "/living-room.css/", "/../etc", "/part/row", "/me/x", "/pictures",
          "/pictures/../v2/time", "/pictures/%2e%2e/v2", "/pictures/a%20b", "/v2/time", "/control/log"}) {
        EXPECT_TRUE(statusOfPath(path).starts_with("HTTP/1.1 40")) << path;
    }
}

TEST_F(BadInputTest, AnInvalidRequestIsABadRequest) {
    EXPECT_EQ(statusOf("nonsense\r\n\r\n"), "HTTP/1.1 400 Bad Request");
    EXPECT_EQ(statusOf("GET / HTTP/9.9\r\n\r\n"), "HTTP/1.1 400 Bad Request");
    EXPECT_EQ(statusOfPath("/%00"), "HTTP/1.1 400 Bad Request");
    EXPECT_EQ(statusOfPath("http://other.example/"), "HTTP/1.1 400 Bad Request");
}

TEST_F(BadInputTest, AMegabyteOfHeadersIsTooLarge) {
    EXPECT_EQ(statusOf("GET / HTTP/1.1\r\nHost: " + host.authority() +
                       "\r\nX: " + std::string(1'000'000, 'a') + "\r\n\r\n"),
              "HTTP/1.1 431 Request Header Fields Too Large");
}

TEST_F(BadInputTest, ALargeFormIsTooLarge) {
    EXPECT_EQ(statusOf("POST /sign-in HTTP/1.1\r\nHost: " + host.authority() +
                       "\r\nContent-Length: 1000000\r\n\r\n" + std::string(1'000'000, 'a')),
              "HTTP/1.1 431 Request Header Fields Too Large");
}

TEST_F(BadInputTest, ARequestUnderAnotherNameIsRefused) {
    EXPECT_EQ(statusOf("GET / HTTP/1.1\r\nHost: evil.example\r\nConnection: close\r\n\r\n"),
              "HTTP/1.1 421 Misdirected Request");
    EXPECT_EQ(statusOf("GET / HTTP/1.1\r\nConnection: close\r\n\r\n"), "HTTP/1.1 421 Misdirected Request");
}

TEST_F(BadInputTest, AFormFromAnotherSiteIsRefused) {
    const std::string start =
        "POST /sign-in HTTP/1.1\r\nHost: " + host.authority() + "\r\nConnection: close\r\n";
    const std::string end = "Content-Length: 8\r\n\r\nname=ann";
    EXPECT_EQ(statusOf(start + end), "HTTP/1.1 403 Forbidden");
    EXPECT_EQ(statusOf(start + "Origin: http://evil.example\r\n" + end), "HTTP/1.1 403 Forbidden");
    EXPECT_EQ(statusOf(start + "Origin: null\r\n" + end), "HTTP/1.1 403 Forbidden");
}

TEST_F(BadInputTest, AnotherMethodIsRefused) {
    EXPECT_EQ(statusOf("DELETE / HTTP/1.1\r\nHost: " + host.authority() + "\r\nConnection: close\r\n\r\n"),
              "HTTP/1.1 405 Method Not Allowed");
}

TEST_F(BadInputTest, AScriptInASearchWordStaysText) {
    Browser browser(host);
    const std::string page = browser.get("/search?q=%3Cscript%3Ealert(1)%3C/script%3E%22");
    EXPECT_EQ(page.find("<script>"), std::string::npos);
    EXPECT_NE(page.find("&lt;script&gt;alert(1)&lt;/script&gt;&quot;"), std::string::npos);
}

TEST_F(BadInputTest, AServiceThatIsDownGivesTheFailedState) {
    Browser browser(host);
    const std::string part = browser.get("/part/");
    EXPECT_NE(part.find("X-State: failed"), std::string::npos) << part;
    EXPECT_NE(part.find("There is no connection."), std::string::npos);
    EXPECT_NE(part.find("data-retry=\"3\""), std::string::npos);
    EXPECT_NE(part.find("data-action=\"try-again\""), std::string::npos);
}

}  // namespace
}  // namespace living_room
