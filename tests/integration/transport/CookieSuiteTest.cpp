// Runs the cases of tests/data/http/cookies.jsonl. Each sends a request whose response sets cookies, and then a request
// whose Cookie header is checked.

#include <VanticRestKit/platform/http/cookies/detail/CookieJar.h>
#include <VanticRestKit/platform/http/curl/detail/CurlTransport.h>
#include <VanticRestKit/platform/http/detail/Transfer.h>

#include <gtest/gtest.h>
#include <support/FaultServer.h>
#include <support/Loading.h>
#include <support/Vectors.h>

#include <chrono>
#include <cstddef>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

using namespace VanticRestKit;
using namespace VanticRestKit::test;

namespace {

/// The cases contain absolute dates.
Date january2011() {
    return std::chrono::sys_days(std::chrono::year(2011) / std::chrono::January / std::chrono::day(15));
}

/// A session with an empty storage that resolves every host of the cases to 127.0.0.1.
class CaseSession {
public:
    explicit CaseSession(std::uint16_t port) {
        URLSessionConfiguration configuration;
        configuration.httpCookieStorage = detail::CookieJar::storage(january2011);
        detail::TransportSeams seams;
        for (const char* const name : {"home.example.org", "subdomain.home.example.org",
                                       "sibling.example.org", "example.org", "sibling.home.example.org",
                                       "foo.home.example.org", "www.home.example.org", "home.example.com"}) {
            seams.addresses.push_back(std::string(name) + ":" + std::to_string(port) + ":127.0.0.1");
        }
        transport_ = detail::makeCurlTransport(configuration, std::move(seams));
    }

    Loaded load(const std::string& url) {
        const Loaded loaded;
        const auto transfer = std::make_shared<detail::Transfer>(requestOf(url), loaded.completion());
        transfer->start();
        transport_->start(transfer);
        loaded.wait();
        return loaded;
    }

private:
    std::shared_ptr<detail::Transport> transport_;
};

std::string cookieHeader(const nlohmann::json& cookies) {
    std::string text;
    for (const auto& cookie : cookies) {
        if (!text.empty()) text += "; ";
        text += cookie.at("name").get<std::string>() + "=" + cookie.at("value").get<std::string>();
    }
    return text;
}

/// The failure of a case, empty if it passes.
std::string faultOf(const nlohmann::json& line) {
    std::string headers;
    for (const auto& value : line.at("received")) {
        headers += "Set-Cookie: " + value.get<std::string>() + "\r\n";
    }
    FaultServer server([&headers](FaultConnection& connection) {
        while (const auto request = connection.readRequest()) {
            const bool isFirst = request->target.starts_with("/cookie-parser?");
            if (!connection.send(answer(200, "ok", isFirst ? headers : std::string()))) return;
        }
    });
    const std::string id = line.at("test");
    const std::string home = "http://home.example.org:" + std::to_string(server.port());
    std::string target = line.value("sent-to", "/cookie-parser-result?" + id);
    const std::string portOfTheCases = ":8888/";
    if (const auto at = target.find(portOfTheCases); at != std::string::npos) {
        target.replace(at, portOfTheCases.size(), ":" + std::to_string(server.port()) + "/");
    } else {
        target.insert(0, home);
    }
    CaseSession session(server.port());
    const Loaded first = session.load(home + "/cookie-parser?" + id);
    if (!first.succeeded()) return "first request: " + first.story();
    const Loaded second = session.load(target);
    if (!second.succeeded()) return "second request: " + second.story();
    const auto requests = server.requests();
    if (requests.size() != 2) return std::to_string(requests.size()) + " requests";
    const std::string expected = cookieHeader(line.at("sent"));
    if (requests[1].header("cookie") != expected) {
        return "sent [" + requests[1].header("cookie") + "], expected [" + expected + "]";
    }
    if (requests[1].has("cookie") && expected.empty()) return "sent an empty Cookie header";
    return {};
}

bool isInformative(const std::string& test) {
    return test.starts_with("DISABLED_") || test.starts_with("OPTIONAL_");
}

}  // namespace

TEST(CookieSuite, SendsWhatEachCaseExpects) {
    int required = 0;
    int passed = 0;
    int informative = 0;
    int informativePassed = 0;
    for (const auto& line : jsonLines("http/cookies.jsonl")) {
        const std::string test = line.at("test");
        const std::string fault = faultOf(line);
        if (isInformative(test)) {
            ++informative;
            informativePassed += fault.empty() ? 1 : 0;
            if (!fault.empty()) std::cout << "informative case " << test << ": " << fault << '\n';
            continue;
        }
        ++required;
        passed += fault.empty() ? 1 : 0;
        EXPECT_EQ(fault, "") << test;
    }
    std::cout << "required: " << passed << " of " << required << ", informative: " << informativePassed
              << " of " << informative << '\n';
    EXPECT_EQ(required, 123);
}
