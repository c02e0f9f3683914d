#include "Errors.h"

#include <gtest/gtest.h>

namespace living_room {
namespace {

TEST(ErrorsTest, ATemporaryFailureIsTriedAgainByItself) {
    const Value failure = failureOf(NSError("NSURLErrorDomain", -1004));
    EXPECT_EQ(failure.at("sentence"), "There is no connection. Check your network and try again.");
    EXPECT_EQ(failure.at("category"), "offline");
    EXPECT_EQ(failure.at("offersSignIn"), false);
    EXPECT_EQ(failure.at("retrySeconds"), 3);
}

TEST(ErrorsTest, AFailureBecauseNoUserIsSignedInOffersToSignIn) {
    const Value failure = failureOf(TrelvoError::noUid());
    EXPECT_EQ(failure.at("sentence"), "Please sign in and try again.");
    EXPECT_EQ(failure.at("offersSignIn"), true);
    EXPECT_EQ(failure.at("retrySeconds"), 0);
    const Answer part = failedPart(TrelvoError::noUid());
    EXPECT_NE(part.body.view().find("href=\"/me\""), std::string_view::npos);
}

TEST(ErrorsTest, AFailedPartHasItsStateASentenceAndAButton) {
    const Answer part = failedPart(LoaderError::failedToDecode(std::nullopt));
    EXPECT_EQ(part.status, 200);
    EXPECT_NE(std::find(part.headers.begin(), part.headers.end(),
                        std::pair<std::string, std::string>("X-State", "failed")),
              part.headers.end());
    EXPECT_NE(part.body.view().find("The service sent something that cannot be shown."),
              std::string_view::npos);
    EXPECT_NE(part.body.view().find("data-action=\"try-again\""), std::string_view::npos);
}

TEST(ErrorsTest, AProblemPageHasTheStatusAndASentence) {
    for (const int status : {400, 403, 404, 405, 421, 431}) {
        const Answer page = problemPage(status);
        EXPECT_EQ(page.status, status);
        EXPECT_NE(page.body.view().find("<h1>This"), page.body.view().find("<h1>There"));
    }
}

}  // namespace
}  // namespace living_room
