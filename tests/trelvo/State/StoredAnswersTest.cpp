// Removal of a former user's responses from the shared session's cache.

#include <VanticRestKit/Core/NetworkURLSession.h>
#include <VanticRestKit/platform/http/cache/detail/CacheAccess.h>
#include <VanticRestKit/platform/http/cache/detail/CacheCore.h>
#include <VanticRestKit/platform/http/cache/detail/CacheRequest.h>
#include <VanticRestKit/platform/http/cache/URLCache.h>

#include <trelvo/UserClientFixture.h>

namespace VanticRestKit::test {
namespace {

class StoredAnswers : public UserClientFixture {
protected:
    StoredAnswers() {
        for (const char* token : {"access-ann", "refresh-ann", "access-bob"}) store(token);
    }
    ~StoredAnswers() override { cache()->removeAllCachedResponses(); }

    static const std::shared_ptr<URLCache>& cache() {
        return NetworkURLSession::sharedInstance().sessionURLConfig.urlCache;
    }
    static URLRequest requestWith(const std::string& token) {
        URLRequest request(URL("http://service.example/v2/saved"));
        request.setValue("Bearer " + token, "Authorization");
        return request;
    }
    static void store(const std::string& token) {
        const URLRequest request = requestWith(token);
        const auto core = detail::CacheAccess::core(cache());
        detail::ResponseParts parts;
        parts.status = 200;
        parts.fields = {{"Cache-Control", "max-age=60"}};
        parts.body = Data(token);
        core->put(detail::CacheKeys().of(detail::CacheRequest(request), *request.url()),
                  std::make_shared<const detail::StoredResponse>(std::move(parts)), request, core->moment());
    }
    /// The tokens whose responses remain in the cache.
    static std::vector<std::string> remaining() {
        std::vector<std::string> found;
        for (const char* token : {"access-ann", "refresh-ann", "access-bob"}) {
            if (cache()->cachedResponse(requestWith(token))) found.emplace_back(token);
        }
        return found;
    }

    const std::vector<std::string> all{"access-ann", "refresh-ann", "access-bob"};
    const std::vector<std::string> bobs{"access-bob"};
};

TEST_F(StoredAnswers, AreRemovedWhenTheirUserSignsOut) {
    save("ann", 2000);
    drain();
    EXPECT_EQ(remaining(), all);
    client->signOut();
    drain();
    EXPECT_EQ(remaining(), bobs);
}

TEST_F(StoredAnswers, AreRemovedWhenTheContextReplacesTheirUser) {
    save("ann", 2000);
    context->user = "u2";
    list();
    EXPECT_EQ(sentCount(), 1U);
    EXPECT_EQ(remaining(), bobs);
}

TEST_F(StoredAnswers, AreRemovedWhenAnotherUsersTokensReplaceThoseOfTheirUser) {
    save("ann", 2000);
    save("bob", 2000, "u2");
    drain();
    EXPECT_EQ(remaining(), bobs);
}

TEST_F(StoredAnswers, AreKeptIfTheSameTokensAreSetAgain) {
    save("ann", 2000);
    save("ann", 3000);
    drain();
    EXPECT_EQ(remaining(), all);
}

TEST_F(StoredAnswers, AreRemovedByClearAuth) {
    Trelvo trelvo = TrelvoProbe::make([] { return 1000.0; });
    TrelvoProbe::state(trelvo).keep(tokens("ann", 2000));
    EXPECT_EQ(remaining(), all);
    trelvo.clearAuth();
    EXPECT_EQ(remaining(), bobs);
}

TEST_F(StoredAnswers, AreRemovedWhenTheServiceReplacesTheirTokens) {
    Trelvo trelvo = TrelvoProbe::make([] { return 1000.0; });
    TrelvoProbe::state(trelvo).keep(tokens("ann", 2000));
    Auth rotated = tokens("bob", 3000);
    rotated.refreshToken = "refresh-ann";
    TrelvoProbe::state(trelvo).keep(rotated);
    EXPECT_EQ(remaining(), (std::vector<std::string>{"refresh-ann", "access-bob"}));
}

}  // namespace
}  // namespace VanticRestKit::test
