// What a request does to the cache when its response or its error arrives.

#include "CacheHops.h"

namespace VanticRestKit::test {

namespace {

class CacheHopResults : public CacheHopTest {
protected:
    /// Sends `request` and passes it this response. Returns the header X-New of the stored response afterwards.
    std::string freshened(const URLRequest& request, std::int64_t status, HeaderFields fields) {
        CacheHop hop(core, keys, request, "", usual);
        fields.emplace("X-New", "1");
        send(hop, status, std::move(fields), "");
        const auto found = stored();
        return found ? std::string(found->field("x-new")) : "none";
    }

    /// The response for the client if `request` cannot be sent because of `code`.
    std::string fallback(URLErrorCode code, const URLRequest& request = requestWith(),
                         Policy policy = usual) {
        CacheHop hop(core, keys, request, "", policy);
        EXPECT_EQ(hop.ask(), Step::load);
        hop.noteSent("");
        const auto answer = hop.storedFallback(code);
        if (!answer) return "error";
        EXPECT_EQ(answer->status.source, Source::stale);
        return std::string(answer->answer.body.view());
    }
};

TEST_F(CacheHopResults, UpdateTheStoredResponseIfTheConditionOfTheClientConfirmsIt) {
    store(stale);
    const URLRequest request = requestWith("If-None-Match", "\"b\"");
    EXPECT_EQ(freshened(request, 304, {{"ETag", "\"b\""}}), "");
    EXPECT_EQ(freshened(request, 304, {}), "");
    EXPECT_EQ(freshened(request, 304, {{"ETag", "\"a\""}}), "1");
    EXPECT_EQ(bodyStored(), "stored");
}

TEST_F(CacheHopResults, UpdateTheStoredResponseWithTheFieldsOfHead) {
    const URLRequest head = requestWith(nullptr, nullptr, "HEAD");
    store(stale);
    EXPECT_EQ(freshened(head, 404, {}), "");
    EXPECT_EQ(freshened(head, 200, {{"ETag", "\"a\""}}), "1");
    EXPECT_EQ(bodyStored(), "stored");
    // Only a 200 describes the whole body.
    store(stale, "stored", requestWith(), 404);
    EXPECT_EQ(freshened(head, 404, {}), "");
    EXPECT_EQ(freshened(head, 200, {}), "");
}

TEST_F(CacheHopResults, DropAStoredResponseThatHeadContradicts) {
    store(stale);
    EXPECT_EQ(freshened(requestWith(nullptr, nullptr, "HEAD"), 200, {{"ETag", "\"b\""}}), "none");
}

TEST_F(CacheHopResults, KeepTheStoredResponseIfAnUnsafeRequestFails) {
    store(fresh);
    const URLRequest post = requestWith(nullptr, nullptr, "POST");
    EXPECT_EQ(freshened(post, 400, {}), "");
    EXPECT_EQ(freshened(post, 200, {}), "none");
}

TEST_F(CacheHopResults, AreReplacedByAUsableStoredResponseForEachServerError) {
    for (const std::int64_t status : {500, 502, 503, 504, 501}) {
        store({{"Cache-Control", "max-age=50, stale-if-error=60"}});
        const URLRequest request = requestWith();
        CacheHop hop(core, keys, request, "", usual);
        const HopAnswer answer = send(hop, status, {});
        EXPECT_EQ(answer.answer.status, status == 501 ? 501 : 200);
        EXPECT_EQ(answer.status.source, status == 501 ? Source::network : Source::stale);
    }
}

TEST_F(CacheHopResults, AreNotReplacedByAStoredResponseWithoutTheRequestedRange) {
    store({{"Cache-Control", "max-age=50, stale-if-error=60"}}, "0123");
    const URLRequest request = requestWith("Range", "bytes=4-");
    CacheHop hop(core, keys, request, "", usual);
    EXPECT_EQ(send(hop, 503, {}).answer.status, 503);
    EXPECT_EQ(fallback(URLErrorCode::timedOut, request), "error");
    EXPECT_EQ(fallback(URLErrorCode::timedOut, requestWith("Range", "bytes=3-")), "3");
}

TEST_F(CacheHopResults, AreReplacedByAUsableStoredResponseIfTheNetworkIsLost) {
    store(stale);
    for (const URLErrorCode code : {URLErrorCode::timedOut, URLErrorCode::cannotFindHost,
                                    URLErrorCode::cannotConnectToHost, URLErrorCode::networkConnectionLost}) {
        EXPECT_EQ(fallback(code), "stored") << static_cast<int>(code);
    }
    EXPECT_EQ(fallback(URLErrorCode::secureConnectionFailed), "error");
    EXPECT_EQ(fallback(URLErrorCode::timedOut, requestWith("Accept", "a")), "stored");
}

TEST_F(CacheHopResults, AreNotReplacedIfNothingUsableIsStored) {
    EXPECT_EQ(fallback(URLErrorCode::timedOut), "error");
    store({{"Cache-Control", "max-age=50, must-revalidate"}});
    EXPECT_EQ(fallback(URLErrorCode::timedOut), "error");
    store({{"Cache-Control", "max-age=29"}});
    EXPECT_EQ(fallback(URLErrorCode::timedOut), "error");
}

TEST_F(CacheHopResults, AreNotReplacedIfTheUserRefreshes) {
    store(fresh);
    EXPECT_EQ(fallback(URLErrorCode::timedOut, requestWith(), Policy::reloadRevalidatingCacheData), "error");
}

class BackgroundRevalidation : public CacheHopTest {
protected:
    BackgroundRevalidation() {
        store({{"Cache-Control", "max-age=50, stale-while-revalidate=60"}, {"ETag", "\"a\""}});
    }

    /// Gets the stale response for `request`. Returns whether it must be revalidated.
    bool ask(CacheHop& hop) {
        EXPECT_EQ(hop.ask(), Step::answer);
        EXPECT_EQ(hop.takeAnswer().status.source, Source::stale);
        return hop.wantsRevalidation();
    }

    const URLRequest request = requestWith();
};

TEST_F(BackgroundRevalidation, RunsOnceAtATime) {
    CacheHop first(core, keys, request, "", usual);
    CacheHop second(core, keys, request, "", usual);
    EXPECT_TRUE(ask(first));
    EXPECT_FALSE(ask(second));
}

TEST_F(BackgroundRevalidation, CanRunAgainIfTheFirstWasNeverStarted) {
    {
        CacheHop first(core, keys, request, "", usual);
        EXPECT_TRUE(ask(first));
    }
    CacheHop second(core, keys, request, "", usual);
    EXPECT_TRUE(ask(second));
}

TEST_F(BackgroundRevalidation, DoesNotRunForARequestOnlyIfCached) {
    const URLRequest cached = requestWith("Cache-Control", "only-if-cached");
    CacheHop hop(core, keys, cached, "", usual);
    EXPECT_FALSE(ask(hop));
    CacheHop other(core, keys, request, "", usual);
    EXPECT_TRUE(ask(other));
}

TEST_F(BackgroundRevalidation, CountsNeitherAsAHitNorAsAMiss) {
    for (const std::int64_t status : {304, 200}) {
        CacheHop hop(core, keys, request, "", usual);
        EXPECT_TRUE(ask(hop));
        const std::uint64_t hits = core->hits();
        const std::uint64_t misses = core->misses();
        CacheHop background(core, keys, request, "", usual);
        background.revalidate(hop);
        EXPECT_FALSE(hop.wantsRevalidation());
        EXPECT_EQ(background.outgoing().value("If-None-Match"), "\"a\"");
        background.noteSent("");
        background.noteHead();
        background.finish(status, {{"X-Status", std::to_string(status)}, {"ETag", "\"a\""}}, Data());
        EXPECT_EQ(stored()->field("x-status"), std::to_string(status));
        EXPECT_EQ(core->hits(), hits);
        EXPECT_EQ(core->misses(), misses);
        store({{"Cache-Control", "max-age=50, stale-while-revalidate=60"}, {"ETag", "\"a\""}});
    }
    // Each has ended, so another can run.
    EXPECT_TRUE(core->waitUntilQuiet(0ms));
}

}  // namespace

}  // namespace VanticRestKit::test
