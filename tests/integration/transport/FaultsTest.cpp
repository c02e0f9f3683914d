#include <VanticRestKit/platform/http/URLSession.h>

#include <gtest/gtest.h>
#include <support/Codings.h>
#include <support/FaultServer.h>
#include <support/Loading.h>

#include <string>

using namespace VanticRestKit;
using namespace VanticRestKit::test;

namespace {

/// The outcome of a GET if the server sends `bytes` and closes the connection.
Loaded afterSending(const std::string& bytes) {
    FaultServer server([&bytes](FaultConnection& connection) {
        if (connection.readRequest()) connection.send(bytes);
    });
    const auto session = URLSession::make(URLSessionConfiguration::default_());
    return load(*session, server.url("/path?query"));
}

std::string coded(const std::string& coding, const std::string& body) {
    return answer(200, body, "Content-Encoding: " + coding + "\r\n");
}

}  // namespace

TEST(Faults, AConnectionClosedInsideTheHeadersIsLost) {
    const std::string head = "HTTP/1.1 200 OK\r\nContent-Type: text/plain\r\nX-Long: value\r\n\r\n";
    for (const std::size_t length :
         {std::size_t{5}, head.find("\r\n") + 2, head.find("X-Long"), head.size() - 2}) {
        const Loaded loaded = afterSending(head.substr(0, length));
        EXPECT_EQ(loaded.code(), URLErrorCode::networkConnectionLost) << length << ": " << loaded.story();
        EXPECT_EQ(loaded.data(), std::nullopt);
    }
}

TEST(Faults, AConnectionClosedAfterAnInterimResponseIsLost) {
    const Loaded loaded = afterSending("HTTP/1.1 103 Early Hints\r\nX: 1\r\n\r\n");
    EXPECT_EQ(loaded.code(), URLErrorCode::networkConnectionLost) << loaded.story();
}

TEST(Faults, AConnectionClosedWithoutAResponseIsLost) {
    EXPECT_EQ(afterSending("").code(), URLErrorCode::networkConnectionLost);
}

TEST(Faults, TwoDifferentContentLengthsAreABadResponse) {
    for (const char* lines : {"Content-Length: 5\r\nContent-Length: 3\r\n",
                              "Content-Length: 3\r\ncontent-length: 5\r\n", "Content-Length: 5, 3\r\n"}) {
        const Loaded loaded = afterSending("HTTP/1.1 200 OK\r\n" + std::string(lines) + "\r\nhello");
        EXPECT_EQ(loaded.code(), URLErrorCode::cannotParseResponse) << lines << loaded.story();
    }
}

TEST(Faults, AnInvalidContentLengthIsABadResponse) {
    for (const char* value : {"five", "-5", "5x", "99999999999999999999", ""}) {
        const Loaded loaded =
            afterSending("HTTP/1.1 200 OK\r\nContent-Length: " + std::string(value) + "\r\n\r\nhello");
        EXPECT_EQ(loaded.code(), URLErrorCode::cannotParseResponse) << value << ": " << loaded.story();
    }
}

TEST(Faults, TheSameContentLengthTwiceIsAccepted) {
    const Loaded loaded =
        afterSending("HTTP/1.1 200 OK\r\nContent-Length: 5\r\nContent-Length: 5\r\n\r\nhello");
    EXPECT_EQ(loaded.body(), "hello") << loaded.story();
}

TEST(Faults, ATruncatedCodingCannotBeDecoded) {
    const std::string text = sampleText(100 * 1000);
    for (const auto& [name, whole] : {std::pair<std::string, std::string>{"gzip", gzipped(text)},
                                      std::pair<std::string, std::string>{"deflate", deflated(text)},
                                      std::pair<std::string, std::string>{"br", brotlied(text)}}) {
        // Without its trailer, without its last byte, its first half, and only its first byte.
        for (const std::size_t length :
             {whole.size() - 8, whole.size() - 1, whole.size() / 2, std::size_t{1}}) {
            if (name != "gzip" && length == whole.size() - 8) continue;
            const Loaded loaded = afterSending(coded(name, whole.substr(0, length)));
            EXPECT_EQ(loaded.code(), URLErrorCode::cannotDecodeContentData)
                << name << " " << length << ": " << loaded.story();
            EXPECT_EQ(loaded.data(), std::nullopt);
        }
    }
}

TEST(Faults, AMalformedCodingCannotBeDecoded) {
    const std::string text = sampleText(100 * 1000);
    for (const auto& [name, whole] : {std::pair<std::string, std::string>{"gzip", gzipped(text)},
                                      std::pair<std::string, std::string>{"deflate", deflated(text)},
                                      std::pair<std::string, std::string>{"br", brotlied(text)}}) {
        std::string broken = whole;
        for (std::size_t i = whole.size() / 3; i < whole.size() / 3 + 40; ++i) {
            broken[i] = static_cast<char>(broken[i] ^ 0x5A);
        }
        EXPECT_EQ(afterSending(coded(name, broken)).code(), URLErrorCode::cannotDecodeContentData) << name;
        EXPECT_EQ(afterSending(coded(name, "\xFFno coding at all")).code(),
                  URLErrorCode::cannotDecodeContentData)
            << name;
    }
    std::string checksum = gzipped(text);
    checksum[checksum.size() - 8] = static_cast<char>(checksum[checksum.size() - 8] ^ 1);
    EXPECT_EQ(afterSending(coded("gzip", checksum)).code(), URLErrorCode::cannotDecodeContentData);
}

TEST(Faults, ACodingThatWasNotRequestedCannotBeDecoded) {
    EXPECT_EQ(afterSending(coded("zstd", "whatever")).code(), URLErrorCode::cannotDecodeRawData);
}

TEST(Faults, ATruncatedBodyIsALostConnection) {
    for (const char* bytes : {"HTTP/1.1 200 OK\r\nContent-Length: 10\r\n\r\nhello",
                              "HTTP/1.1 200 OK\r\nContent-Length: 10\r\n\r\n",
                              "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n5\r\nhello\r\n",
                              "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n5\r\nhe"}) {
        const Loaded loaded = afterSending(bytes);
        EXPECT_EQ(loaded.code(), URLErrorCode::networkConnectionLost) << bytes << loaded.story();
        EXPECT_EQ(loaded.data(), std::nullopt);
        EXPECT_EQ(loaded.status(), 200) << "the response is passed together with the error";
    }
}

TEST(Faults, AMalformedChunkIsABadResponse) {
    const Loaded loaded =
        afterSending("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\nzz\r\nhello\r\n0\r\n\r\n");
    EXPECT_EQ(loaded.code(), URLErrorCode::badServerResponse) << loaded.story();
}

TEST(Faults, DataThatIsNotHTTPCannotBeParsed) {
    for (const std::string& bytes :
         {std::string("\x01\x02 garbage \xFF\xFE, long enough to be something\r\n\r\n"),
          std::string("SSH-2.0-OpenSSH_9.2\r\n"), std::string("HTTP/1.1 abc OK\r\n\r\n"),
          std::string("{\"json\": \"without a head\"}\r\n\r\n"),
          std::string("HTTP/1.1 200 OK\r\nno colon in this line\r\n\r\n")}) {
        const Loaded loaded = afterSending(bytes);
        EXPECT_EQ(loaded.code(), URLErrorCode::cannotParseResponse) << bytes << loaded.story();
    }
}

TEST(Faults, EndlessHeadersAreABadResponse) {
    FaultServer server([](FaultConnection& connection) {
        if (!connection.readRequest()) return;
        connection.send("HTTP/1.1 200 OK\r\n");
        while (connection.send("X-Again: " + std::string(8000, 'x') + "\r\n")) {
        }
    });
    const auto session = URLSession::make(URLSessionConfiguration::default_());
    const Loaded loaded = load(*session, server.url());
    EXPECT_TRUE(loaded.error().has_value());
}

TEST(Faults, AResetConnectionIsLost) {
    for (const bool early : {true, false}) {
        FaultServer server([early](FaultConnection& connection) {
            if (!connection.readRequest()) return;
            if (!early) connection.send("HTTP/1.1 200 OK\r\nContent-Length: 10\r\n\r\nhel");
            connection.reset();
        });
        const auto session = URLSession::make(URLSessionConfiguration::default_());
        const Loaded loaded = load(*session, server.url());
        EXPECT_EQ(loaded.code(), URLErrorCode::networkConnectionLost) << loaded.story();
    }
}

TEST(Faults, AClosedPortCannotBeConnectedTo) {
    const auto session = URLSession::make(URLSessionConfiguration::default_());
    const Loaded loaded = load(*session, "http://127.0.0.1:" + std::to_string(unusedPort()) + "/");
    EXPECT_EQ(loaded.code(), URLErrorCode::cannotConnectToHost) << loaded.story();
}

TEST(Faults, AnInvalidHostNameIsNotFound) {
    // A label this long is rejected without a lookup.
    const auto session = URLSession::make(URLSessionConfiguration::default_());
    const Loaded loaded = load(*session, "http://" + std::string(64, 'a') + "/");
    EXPECT_EQ(loaded.code(), URLErrorCode::cannotFindHost) << loaded.story();
}

TEST(Faults, AnErrorHasItsCodeURLAndCause) {
    const auto session = URLSession::make(URLSessionConfiguration::default_());
    const std::string url = "http://127.0.0.1:" + std::to_string(unusedPort()) + "/v2/time";
    const Loaded loaded = load(*session, url);
    ASSERT_TRUE(loaded.error().has_value());
    const Error& error = *loaded.error();
    EXPECT_EQ(error.domain(), "NSURLErrorDomain");
    EXPECT_EQ(error.code(), -1004);
    EXPECT_EQ(error.localizedDescription(), "Could not connect to the server.");
    const Dictionary info = error.userInfo();
    ASSERT_TRUE(info.contains("NSErrorFailingURLStringKey"));
    EXPECT_EQ(*info.find("NSErrorFailingURLStringKey")->second.text(), url);
    ASSERT_TRUE(info.contains("NSUnderlyingError"));
    const Error* const underlying = info.find("NSUnderlyingError")->second.error();
    ASSERT_NE(underlying, nullptr);
    EXPECT_EQ(underlying->domain(), "libcurl");
    EXPECT_EQ(underlying->code(), 7);
    EXPECT_NE(underlying->localizedDescription(), "");
}
