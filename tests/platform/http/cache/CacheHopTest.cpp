#include "CacheHops.h"
#include "RecordingStore.h"

namespace VanticRestKit::test {

namespace {

TEST_F(CacheHopTest, ReportsWhyARequestWasSent) {
    store({{"Cache-Control", "max-age=90"}, {"Vary", "Accept"}}, "stored", requestWith("Accept", "a"));
    EXPECT_EQ(statusOf(requestWith("Accept", "b")), "VanticRestKit; fwd=vary-miss; fwd-status=200");
    EXPECT_EQ(statusOf(requestWith("Accept", "a", "POST")), "VanticRestKit; fwd=method; fwd-status=200");
    store(fresh, "0123");
    EXPECT_EQ(statusOf(requestWith("If-Range", "\"a\"")), "VanticRestKit; fwd=bypass; fwd-status=200");
    EXPECT_EQ(statusOf(requestWith("If-Range", "\"a\"", "HEAD")),
              "VanticRestKit; fwd=bypass; fwd-status=200");
    EXPECT_EQ(statusOf(requestWith(), Policy::reloadIgnoringLocalCacheData),
              "VanticRestKit; fwd=bypass; fwd-status=200");
    store(fresh, "0123");
    EXPECT_EQ(statusOf(requestWith("Range", "bytes=4-")), "VanticRestKit; fwd=partial; fwd-status=200");
    store(fresh, "0123");
    EXPECT_EQ(statusOf(requestWith("Cache-Control", "no-cache")),
              "VanticRestKit; fwd=request; fwd-status=200");
}

TEST_F(CacheHopTest, IsNeededWithoutACacheOnlyByPoliciesThatChangeTheRequest) {
    EXPECT_TRUE(CacheHop::isNeeded(core.get(), usual));
    EXPECT_FALSE(CacheHop::isNeeded(nullptr, usual));
    EXPECT_FALSE(CacheHop::isNeeded(nullptr, Policy::reloadIgnoringLocalCacheData));
    EXPECT_FALSE(CacheHop::isNeeded(nullptr, Policy::returnCacheDataElseLoad));
    EXPECT_TRUE(CacheHop::isNeeded(nullptr, Policy::returnCacheDataDontLoad));
    EXPECT_TRUE(CacheHop::isNeeded(nullptr, Policy::reloadIgnoringLocalAndRemoteCacheData));
    EXPECT_TRUE(CacheHop::isNeeded(nullptr, Policy::reloadRevalidatingCacheData));
}

TEST_F(CacheHopTest, WithoutACacheOnlyAddsTheCacheControlOfThePolicy) {
    const URLRequest request = requestWith();
    CacheHop hop(nullptr, keys, request, "", Policy::reloadIgnoringLocalAndRemoteCacheData);
    const HopAnswer answer = send(hop, 503, fresh);
    EXPECT_EQ(hop.outgoing().value("Cache-Control"), "no-cache");
    EXPECT_FALSE(hop.mayKeep(fresh));
    EXPECT_EQ(answer.answer.status, 503);
    EXPECT_EQ(answer.answer.body.view(), "new");
    EXPECT_FALSE(answer.status.text());
    EXPECT_FALSE(hop.storedFallback(URLErrorCode::timedOut));
}

TEST_F(CacheHopTest, KeepsTheCacheControlOfTheRequest) {
    const URLRequest request = requestWith("Cache-Control", "max-stale");
    CacheHop hop(nullptr, keys, request, "", Policy::reloadRevalidatingCacheData);
    EXPECT_EQ(hop.ask(), Step::load);
    EXPECT_EQ(hop.outgoing().value("Cache-Control"), "max-stale");
}

TEST_F(CacheHopTest, SendsARequestOnlyIfCachedIfTheCacheIsIgnored) {
    const URLRequest request = requestWith("Cache-Control", "only-if-cached");
    CacheHop bare(nullptr, keys, request, "", Policy::reloadRevalidatingCacheData);
    EXPECT_EQ(bare.ask(), Step::load);
    CacheHop ignoring(core, keys, request, "", Policy::reloadIgnoringLocalCacheData);
    EXPECT_EQ(ignoring.ask(), Step::load);
    CacheHop hop(core, keys, request, "", usual);
    ASSERT_EQ(hop.ask(), Step::answer);
    EXPECT_EQ(hop.takeAnswer().answer.status, 504);
}

TEST_F(CacheHopTest, MayKeepOnlyResponsesWithALifetimeOrAValidator) {
    const URLRequest request = requestWith();
    const CacheHop hop(core, keys, request, "", usual);
    for (const char* name : {"ETag", "Expires", "Cache-Control", "Last-Modified"}) {
        EXPECT_TRUE(hop.mayKeep({{name, ""}})) << name;
    }
    EXPECT_FALSE(hop.mayKeep({{"Date", ""}, {"Refresh", ""}, {"Accept-Ranges", ""}, {"Location", ""}}));
    const URLRequest post = requestWith(nullptr, nullptr, "POST");
    EXPECT_FALSE(CacheHop(core, keys, post, "", usual).mayKeep(fresh));
}

TEST_F(CacheHopTest, AddsConditionsOnlyToAPlainGet) {
    store(stale, "0123");
    for (const URLRequest& request : {requestWith(nullptr, nullptr, "HEAD"), requestWith("Range", "bytes=1-"),
                                      requestWith("If-Modified-Since", dateAfter(-1).c_str())}) {
        CacheHop hop(core, keys, request, "", usual);
        EXPECT_EQ(hop.ask(), Step::load);
        EXPECT_EQ(hop.outgoing().value("If-None-Match"), std::nullopt);
    }
    const URLRequest plain = requestWith();
    CacheHop hop(core, keys, plain, "", usual);
    EXPECT_EQ(hop.ask(), Step::load);
    EXPECT_EQ(hop.outgoing().value("If-None-Match"), "\"a\"");
}

TEST_F(CacheHopTest, RevalidatesByPolicyUnlessTheResponseIsImmutable) {
    const URLRequest request = requestWith();
    store({{"Cache-Control", "max-age=90"}});
    CacheHop changing(core, keys, request, "", Policy::reloadRevalidatingCacheData);
    EXPECT_EQ(changing.ask(), Step::load);
    store({{"Cache-Control", "max-age=90, immutable"}});
    CacheHop immutable(core, keys, request, "", Policy::reloadRevalidatingCacheData);
    ASSERT_EQ(immutable.ask(), Step::answer);
    EXPECT_EQ(immutable.takeAnswer().status.source, Source::cache);
    store({{"Cache-Control", "max-age=50, immutable"}});
    CacheHop old(core, keys, request, "", Policy::reloadRevalidatingCacheData);
    EXPECT_EQ(old.ask(), Step::load);
}

TEST_F(CacheHopTest, AnswersWithTheLatestMatchingResponseThatIsTooLargeForMemory) {
    core = coreOf(std::make_shared<RecordingStore>());
    const auto large = [](const char* language, std::chrono::seconds received, char letter) {
        auto parts = partsOf({{"Cache-Control", "max-age=3600"}}, std::string(6000, letter));
        parts.received = after(received);
        parts.variant = *detail::variantOf("Accept-Language", requestWith("Accept-Language", language));
        return std::make_shared<const detail::StoredResponse>(std::move(parts));
    };
    const URLRequest request = requestWith("Accept-Language", "de");
    CacheHop hop(core, keys, request, "", usual);
    ASSERT_EQ(hop.ask(), Step::read);
    hop.found({large("de", 1s, 'a'), large("de", 3s, 'b'), large("de", 2s, 'c'), large("en", 4s, 'd')});
    ASSERT_EQ(hop.ask(), Step::answer);
    EXPECT_EQ(hop.takeAnswer().answer.body.view(), std::string(6000, 'b'));
}

TEST_F(CacheHopTest, IsSentWithoutConditionsIfTheCookieHasChanged) {
    store(stale);
    const URLRequest request = requestWith();
    CacheHop hop(core, keys, request, "", usual);
    ASSERT_EQ(hop.ask(), Step::load);
    hop.noteSent("user=1");
    EXPECT_EQ(hop.outgoing().value("If-None-Match"), std::nullopt);
    const HopAnswer answer = hop.finish(200, fresh, Data(std::string("for user=1")));
    EXPECT_EQ(answer.answer.body.view(), "for user=1");
    EXPECT_EQ(bodyStored(), "stored");
    EXPECT_EQ(bodyStored(requestWith("Cookie", "user=1")), "for user=1");
}

TEST_F(CacheHopTest, StoresForTheCookieOfTheRequestIfTheSessionHasNoneAnyMore) {
    const URLRequest request = requestWith("Cookie", "own=1");
    CacheHop hop(core, keys, request, "user=1", usual);
    send(hop, 200, fresh);
    EXPECT_EQ(stored(requestWith("Cookie", "user=1")), nullptr);
    ASSERT_NE(stored(request), nullptr);
}

TEST_F(CacheHopTest, ReplacesAStoredResponseByOneThatIsStaleAtOnce) {
    const HeaderFields atOnce{{"Cache-Control", "max-age=0"}};
    const URLRequest request = requestWith();
    CacheHop first(core, keys, request, "", usual);
    EXPECT_FALSE(send(first, 200, atOnce).status.isStored);
    EXPECT_EQ(stored(), nullptr);
    store(stale);
    CacheHop second(core, keys, request, "", usual);
    EXPECT_TRUE(send(second, 200, atOnce).status.isStored);
    EXPECT_EQ(bodyStored(), "new");
}

TEST_F(CacheHopTest, StoresAResponseThatIsNeverFreshOnlyIfAnyAgeIsAccepted) {
    const URLRequest request = requestWith();
    CacheHop usually(core, keys, request, "", usual);
    EXPECT_FALSE(send(usually, 200, {}).status.isStored);
    CacheHop hop(core, keys, request, "", Policy::returnCacheDataElseLoad);
    EXPECT_TRUE(send(hop, 200, {}).status.isStored);
    EXPECT_EQ(bodyStored(), "new");
}

}  // namespace

}  // namespace VanticRestKit::test
