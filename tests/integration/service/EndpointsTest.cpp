#include "ServiceContext.h"

#include "support/Certificates.h"
#include "support/Nghttpx.h"
#include "support/SampleService.h"

#include <VanticRestKit/lumeno/Categories/Category.h>
#include <VanticRestKit/lumeno/Endpoints/Endpoint.h>
#include <VanticRestKit/lumeno/Image/Image.h>
#include <VanticRestKit/lumeno/Link/LinkEndpoints.h>
#include <VanticRestKit/lumeno/Video/VideoList.h>

#include <gmock/gmock.h>

namespace VanticRestKit::test {

namespace {

using Transport = SampleService::Transport;

/// Loads everything that the catalogue has for a video, over any transport.
void loadEverything(const ServiceContext& context) {
    const auto time = valueOf(Endpoint::Time(context));
    EXPECT_GT(time.value_or(0), 1.7e9);

    const auto avatars = valueOf(Endpoint::Avatars(context));
    ASSERT_TRUE(avatars);
    ASSERT_EQ(avatars->size(), 9U);
    EXPECT_EQ((*avatars)[0].id, "100") << "a number, stored as a decimal string";
    EXPECT_EQ((*avatars)[2].id, "av-gecko");

    const auto video = valueOf(Endpoint::Video({.houseNumber = "HL0102"}, context));
    ASSERT_TRUE(video);
    EXPECT_EQ(video->title, "Slack Water");
    EXPECT_EQ(video->derivedShowSlug(), "harbour-lights");
    ASSERT_TRUE(video->playlist);
    EXPECT_EQ(video->playlist->back().streams.hls.url({.preferHighest = true}),
              "https://media.vantic.example/hls/HL0102-1080.m3u8");

    const auto next = valueOf(Endpoint::Video({.usingHref = video->nextEpisodeHref.value_or("")}, context));
    ASSERT_TRUE(next);
    EXPECT_EQ(next->title, video->nextEpisodeTitle);
    EXPECT_EQ(valueOf(Endpoint::Resource<Video>({.withHref = next->selfHref.value_or("")}, context)), next);

    const auto list =
        valueOf(Endpoint::Videos({.houseNumbers = std::vector<std::string>{"HL0103", "HL0102"}}, context));
    ASSERT_TRUE(list);
    EXPECT_EQ(list->videos, (std::vector<Video>{*next, *video}));

    const auto home = valueOf(Endpoint::Home(context));
    ASSERT_TRUE(home);
    EXPECT_EQ(home->collections.size(), 8U);
    EXPECT_THAT(home->featuredImageHref.value_or(""),
                ::testing::StartsWith(context.baseURL().absoluteString()))
        << "URLs of pictures contain the host of the request";
}

TEST(SampleServiceEndpoints, LoadOverPlainHTTP) {
    const SampleService service;
    loadEverything(ServiceContext(service.baseURL()));
}

TEST(SampleServiceEndpoints, LoadOverTLS) {
    const SampleService service(Transport::https);
    loadEverything(ServiceContext(service.baseURL(), service.authorityFile()));
}

TEST(SampleServiceEndpoints, LoadOverHTTP2) {
    const SampleService service;
    const CertificateAuthority authority;
    const TemporaryFile authorityFile(authority.pem());
    const Nghttpx front(service.port(), authority.issue());
    loadEverything(ServiceContext("https://127.0.0.1:" + std::to_string(front.port()), authorityFile.path()));
    const std::string via = service.log()[0]["headers"].dump();
    EXPECT_NE(via.find("2 nghttpx"), std::string::npos) << via;
}

TEST(SampleServiceEndpoints, FailWithAnUntrustedCertificateOverTLSOfAnUnknownAuthority) {
    const SampleService service(Transport::https);
    EXPECT_EQ(codeOf(Endpoint::Time(ServiceContext(service.baseURL()))), -1202);
}

}  // namespace

}  // namespace VanticRestKit::test
