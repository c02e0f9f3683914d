#include "Chapters.h"
#include "Printing.h"
#include "Running.h"
#include "UserContexts.h"

#include <cstdio>

namespace demo {

using namespace VanticRestKit;

namespace {

/// Requests the saved shows and prints the outcome. Returns whether it succeeded.
bool show(const char* what, const UserContext& context) {
    const auto outcome = ran<std::vector<SavedData>>([&](auto completion) {
        Trelvo::shared().listWatchlistShowIds({.completionHandler = std::move(completion)}, context);
    });
    std::printf("  %s\n", what);
    printField("  outcome", outcome ? std::to_string(outcome->size()) + " saved shows"
                                    : outcome.error().localizedDescription());
    printField("  reported", context.takeReport());
    return outcome.has_value();
}

}  // namespace

bool showRefusedTokens(const Stage& stage) {
    printHeading("When a token is refused");
    stage.context.takeReport();  // the report of the previous chapter
    const UserContext noUser(stage.context, std::nullopt);
    const UserContext ann(stage.context, "ann");
    bool good = !show("no user is signed in", noUser);

    good = stage.service.addFault("v2/token", R"("fault":"status","status":401)") && good;
    good = !show("the user has to consent again", ann) && good;
    const auto refusal = Trelvo::shared().authError();
    good = refusal && refusal->kind() == TrelvoError::Kind::accountReconsentRequired && good;

    good = stage.service.addFault("v2/token", R"("fault":"status","status":503)") && good;
    good = !show("no token is available", ann) && good;

    good = show("the next operation tries again", ann) && good;
    good = stage.service.addFault("v2/saved/watchlist/show", R"("fault":"expiredToken")") && good;
    good = !show("a token that is refused before its expiry", ann) && good;
    Trelvo::shared().clearAuth();
    return good;
}

}  // namespace demo
