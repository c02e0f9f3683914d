#include <VanticRestKit/platform/http/URLSession.h>

#include <gtest/gtest.h>
#include <support/Codings.h>
#include <support/FaultServer.h>
#include <support/Loading.h>

#include <string>

using namespace VanticRestKit;
using namespace VanticRestKit::test;

namespace {

std::shared_ptr<URLSession> makeSession() { return URLSession::make(URLSessionConfiguration::default_()); }

}  // namespace

TEST(Answers, AResponseHasItsStatusHeadersBodyAndURL) {
    FaultServer server(always(answer(200, "hello", "X-One: a\r\nx-two: b\r\n")));
    const auto session = makeSession();
    const Loaded loaded = load(*session, server.url("/v2/time"));
    ASSERT_TRUE(loaded.succeeded()) << loaded.story();
    EXPECT_EQ(loaded.status(), 200);
    EXPECT_EQ(loaded.body(), "hello");
    EXPECT_EQ(loaded.header("x-ONE"), "a");
    EXPECT_EQ(loaded.header("X-Two"), "b");
    EXPECT_EQ(loaded.response()->url()->absoluteString(), server.url("/v2/time"));
    EXPECT_EQ(loaded.calls(), 1);
}

TEST(Answers, AStatusAbove399IsAResponseLikeAnyOther) {
    FaultServer server(always(answer(503, "busy")));
    const Loaded loaded = load(*makeSession(), server.url());
    ASSERT_TRUE(loaded.succeeded()) << loaded.story();
    EXPECT_EQ(loaded.status(), 503);
    EXPECT_EQ(loaded.body(), "busy");
}

TEST(Answers, AnEmptyBodyIsPresent) {
    for (const std::string& reply : {answer(200, ""), std::string("HTTP/1.1 204 No Content\r\n\r\n"),
                                     std::string("HTTP/1.1 304 Not Modified\r\n\r\n")}) {
        FaultServer server(always(reply));
        const Loaded loaded = load(*makeSession(), server.url());
        ASSERT_TRUE(loaded.succeeded()) << loaded.story();
        ASSERT_TRUE(loaded.data().has_value()) << reply;
        EXPECT_TRUE(loaded.data()->empty()) << reply;
    }
}

TEST(Answers, AResponseToHeadHasNoBodyWhateverItsLength) {
    FaultServer server(always("HTTP/1.1 200 OK\r\nContent-Length: 500\r\nContent-Encoding: gzip\r\n\r\n"));
    const Loaded loaded = load(*makeSession(), requestOf(server.url(), "HEAD"));
    ASSERT_TRUE(loaded.succeeded()) << loaded.story();
    ASSERT_TRUE(loaded.data().has_value());
    EXPECT_TRUE(loaded.data()->empty());
    EXPECT_EQ(loaded.header("content-length"), "500");
}

TEST(Answers, ARepeatedHeaderIsJoined) {
    FaultServer server(always(answer(200, "", "Vary: a\r\nVARY: b\r\n")));
    EXPECT_EQ(load(*makeSession(), server.url()).header("vary"), "a, b");
}

TEST(Answers, InterimResponsesAreSkipped) {
    FaultServer server(always("HTTP/1.1 103 Early Hints\r\nX-Early: 1\r\n\r\n" + answer(200, "late")));
    const Loaded loaded = load(*makeSession(), server.url());
    EXPECT_EQ(loaded.status(), 200) << loaded.story();
    EXPECT_EQ(loaded.body(), "late");
    EXPECT_EQ(loaded.header("x-early"), "");
}

TEST(Answers, AChunkedBodyIsAssembledAndItsTrailersAreIgnored) {
    FaultServer server(
        always("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n"
               "3\r\none\r\n3;x=y\r\ntwo\r\n0\r\nX-Trailer: 1\r\n\r\n"));
    const Loaded loaded = load(*makeSession(), server.url());
    EXPECT_EQ(loaded.body(), "onetwo") << loaded.story();
    EXPECT_EQ(loaded.header("x-trailer"), "");
}

TEST(Answers, ABodyWithoutALengthEndsWithItsConnection) {
    FaultServer server([](FaultConnection& connection) {
        if (connection.readRequest()) connection.send("HTTP/1.1 200 OK\r\n\r\nall of it");
    });
    EXPECT_EQ(load(*makeSession(), server.url()).body(), "all of it");
}

TEST(Answers, ABodyOfAHundredMegabytesArrives) {
    constexpr std::size_t size = 100 * 1000 * 1000;
    FaultServer server([](FaultConnection& connection) {
        const std::string piece = sampleText(1000 * 1000);
        while (connection.readRequest()) {
            connection.send("HTTP/1.1 200 OK\r\nContent-Length: " + std::to_string(size) + "\r\n\r\n");
            for (std::size_t sent = 0; sent < size; sent += piece.size()) connection.send(piece);
        }
    });
    const Loaded loaded = load(*makeSession(), server.url());
    ASSERT_TRUE(loaded.succeeded()) << loaded.story();
    ASSERT_EQ(loaded.data()->size(), size);
    EXPECT_EQ(loaded.data()->view().substr(size - 1000 * 1000), sampleText(1000 * 1000));
}

TEST(Answers, EveryRequestedCodingIsDecoded) {
    const std::string text = sampleText(300 * 1000);
    const std::pair<const char*, std::string> codings[] = {
        {"gzip", gzipped(text)},     {"x-gzip", gzipped(text)},
        {"deflate", deflated(text)}, {"deflate", rawDeflated(text)},
        {"br", brotlied(text)},      {"gzip, br", brotlied(gzipped(text))},
        {"identity", text}};
    for (const auto& [name, coded] : codings) {
        FaultServer server(always(answer(200, coded, std::string("Content-Encoding: ") + name + "\r\n")));
        const Loaded loaded = load(*makeSession(), server.url());
        ASSERT_TRUE(loaded.succeeded()) << name << ": " << loaded.story();
        EXPECT_TRUE(loaded.body() == text) << name << ": " << loaded.body().size() << " bytes";
        EXPECT_EQ(loaded.header("content-encoding"), name);
    }
}

TEST(Answers, ACodedBodyIsDecodedByteByByte) {
    const std::string text = "a text that came slowly";
    const std::pair<std::string, std::string> codings[] = {{"gzip", gzipped(text)},
                                                           {"deflate", rawDeflated(text)},
                                                           {"deflate", deflated(text)},
                                                           {"br", brotlied(text)}};
    for (const auto& coding : codings) {
        FaultServer server([&coding](FaultConnection& connection) {
            const std::string& coded = coding.second;
            while (connection.readRequest()) {
                connection.send("HTTP/1.1 200 OK\r\nContent-Encoding: " + coding.first +
                                "\r\nContent-Length: " + std::to_string(coded.size()) + "\r\n\r\n");
                connection.trickle(coded, std::chrono::milliseconds(1));
            }
        });
        EXPECT_EQ(load(*makeSession(), server.url()).body(), text) << coding.first;
    }
}

TEST(Answers, ACodedResponseWithoutABodyIsEmpty) {
    FaultServer server(always(answer(200, "", "Content-Encoding: gzip\r\n")));
    const Loaded loaded = load(*makeSession(), server.url());
    ASSERT_TRUE(loaded.succeeded()) << loaded.story();
    EXPECT_TRUE(loaded.data()->empty());
}

TEST(Answers, ACodingRequestedByTheHostIsNotDecoded) {
    FaultServer server(always(answer(200, "not zstd", "Content-Encoding: zstd\r\n")));
    URLRequest request = requestOf(server.url());
    request.setValue("zstd", "Accept-Encoding");
    EXPECT_EQ(load(*makeSession(), request).body(), "not zstd");
}
