#include <VanticRestKit/platform/json/ValueText.h>

#include <algorithm>
#include <type_traits>

#include "arguments/Suggestions.h"
#include "arguments/Values.h"
#include "Failure.h"
#include "operations/CommonOptions.h"
#include "user/SubprofileValue.h"
#include "user/UserOperation.h"

namespace vantic {

using namespace VanticRestKit;

namespace {

using Watch = std::shared_ptr<RequestWatch>;

template <class T>
std::string textOf(const T& value) {
    return valueText(value, ValueLayout::indented);
}

std::string textOf(const Subprofile& subprofile) { return textOf(SubprofileValue::of(subprofile)); }

std::string textOf(const std::vector<Subprofile>& subprofiles) {
    std::vector<SubprofileValue> values;
    for (const Subprofile& subprofile : subprofiles) values.push_back(SubprofileValue::of(subprofile));
    return textOf(values);
}

/// A completion that passes the outcome to the watch, as text.
template <class T>
Trelvo::Completion<T> telling(Watch watch) {
    return [watch = std::move(watch)](Result<T, TrelvoError> outcome) {
        if (!outcome) return watch->setOutcome(Failure(outcome.error()));
        if constexpr (std::is_void_v<T>) {
            watch->setOutcome(std::string());
        } else {
            watch->setOutcome(textOf(*outcome));
        }
    };
}

using Subprofiles = std::vector<Subprofile>;
using History = std::vector<HistoryData>;
using Saved = std::vector<SavedData>;

UserRun getSubprofiles(const Arguments& given) {
    return [isPrivate = given.flag("includePrivateData"), isFamily = given.flag("includeFamilyData")](
               Trelvo& trelvo, const TrelvoContext& context, Watch watch) {
        trelvo.getSubprofiles({.includePrivateData = isPrivate,
                               .includeFamilyData = isFamily,
                               .completionHandler = telling<Subprofiles>(std::move(watch))},
                              context);
    };
}

template <void (Trelvo::*Operation)(Trelvo::DatasetArguments, const TrelvoContext&)>
UserRun withDataset(const Arguments& given) {
    return [dataset = readDataset("dataset", given.text("dataset"))](
               Trelvo& trelvo, const TrelvoContext& context, Watch watch) {
        (trelvo.*Operation)({.dataset = dataset, .completionHandler = telling<Subprofile>(std::move(watch))},
                            context);
    };
}

template <void (Trelvo::*Operation)(Trelvo::DeletionArguments, const TrelvoContext&)>
UserRun deletion(const Arguments&) {
    return [](Trelvo& trelvo, const TrelvoContext& context, Watch watch) {
        (trelvo.*Operation)({.completionHandler = telling<void>(std::move(watch))}, context);
    };
}

UserRun viewingHistory(const Arguments& given) {
    return [limit = readUnsigned("limit", given.text("limit"))](Trelvo& trelvo, const TrelvoContext& context,
                                                                Watch watch) {
        trelvo.viewingHistory({.limit = limit, .completionHandler = telling<History>(std::move(watch))},
                              context);
    };
}

UserRun listRecentVideos(const Arguments& given) {
    return [limit = readUnsigned("limit", given.text("limit")), isDone = given.flag("markedAsDone")](
               Trelvo& trelvo, const TrelvoContext& context, Watch watch) {
        trelvo.listRecentVideos(
            {.limit = limit, .markedAsDone = isDone, .completionHandler = telling<History>(std::move(watch))},
            context);
    };
}

std::int64_t showIdIn(const Arguments& given) { return readInteger("showId", given.text("showId")); }

UserRun listVideosForShow(const Arguments& given) {
    return [showId = showIdIn(given), isDone = given.optionally("markedAsDone", readBoolean)](
               Trelvo& trelvo, const TrelvoContext& context, Watch watch) {
        trelvo.listVideosForShow({.showId = showId,
                                  .markedAsDone = isDone,
                                  .completionHandler = telling<History>(std::move(watch))},
                                 context);
    };
}

UserRun getVideoProgress(const Arguments& given) {
    return [showId = showIdIn(given), houseNumber = given.text("houseNumber")](
               Trelvo& trelvo, const TrelvoContext& context, Watch watch) {
        trelvo.getVideoProgress({.showId = showId,
                                 .houseNumber = houseNumber,
                                 .completionHandler = telling<History>(std::move(watch))},
                                context);
    };
}

UserRun updateVideoProgress(const Arguments& given) {
    return [showId = showIdIn(given), houseNumber = given.text("houseNumber"),
            progress = readInteger("progress", given.text("progress")),
            isDone = given.flag("isDone")](Trelvo& trelvo, const TrelvoContext& context, Watch watch) {
        trelvo.updateVideoProgress({.showId = showId,
                                    .houseNumber = houseNumber,
                                    .progress = progress,
                                    .isDone = isDone,
                                    .completionHandler = telling<History>(std::move(watch))},
                                   context);
    };
}

UserRun listWatchlistShowIds(const Arguments&) {
    return [](Trelvo& trelvo, const TrelvoContext& context, Watch watch) {
        trelvo.listWatchlistShowIds({.completionHandler = telling<Saved>(std::move(watch))}, context);
    };
}

UserRun addWatchlistShow(const Arguments& given) {
    return [showId = showIdIn(given)](Trelvo& trelvo, const TrelvoContext& context, Watch watch) {
        trelvo.addWatchlistShow({.showId = showId, .completionHandler = telling<Saved>(std::move(watch))},
                                context);
    };
}

UserRun deleteShow(const Arguments& given) {
    return [showId = showIdIn(given)](Trelvo& trelvo, const TrelvoContext& context, Watch watch) {
        trelvo.deleteShow({.showId = showId, .completionHandler = telling<void>(std::move(watch))}, context);
    };
}

}  // namespace

std::span<const UserOperation> allUserOperations() {
    static const std::vector<UserOperation> operations = {
        {"getSubprofiles",
         "the profiles of the account",
         {flag("includePrivateData", "includes private data"),
          flag("includeFamilyData", "includes the data of the family")},
         getSubprofiles},
        {"createSubprofile",
         "makes a profile",
         {required("dataset", "JSON", "the data of the profile, a JSON object")},
         withDataset<&Trelvo::createSubprofile>},
        {"updateSubprofile",
         "changes a profile",
         {required("dataset", "JSON", "the data of the profile, a JSON object")},
         withDataset<&Trelvo::updateSubprofile>},
        {"deleteSubprofile",
         "deletes the profile with its history and watchlist",
         {},
         deletion<&Trelvo::deleteSubprofile>},
        {"deleteHistory", "deletes the viewing history", {}, deletion<&Trelvo::deleteHistory>},
        {"viewingHistory",
         "the videos that were watched most recently",
         {required("limit", "N", "the maximum number of records")},
         viewingHistory},
        {"listRecentVideos",
         "recently watched videos, either those marked as done or the others",
         {required("limit", "N", "the maximum number of records"),
          flag("markedAsDone", "videos that are marked as done, instead of the others")},
         listRecentVideos},
        {"listVideosForShow",
         "the watched videos of a show",
         {required("showId", "N", "the id of the show"),
          oneOf(optional("markedAsDone", "true|false",
                         "only videos that are marked as done, or only the others"),
                booleanNames)},
         listVideosForShow},
        {"getVideoProgress",
         "the viewing position in a video",
         {required("showId", "N", "the id of the show"),
          required("houseNumber", "NUMBER", "the house number of the video")},
         getVideoProgress},
        {"updateVideoProgress",
         "stores the viewing position in a video",
         {required("showId", "N", "the id of the show"),
          required("houseNumber", "NUMBER", "the house number of the video"),
          required("progress", "N", "the viewing position"), flag("isDone", "marks it as done")},
         updateVideoProgress},
        {"listWatchlistShowIds", "the shows on the watchlist", {}, listWatchlistShowIds},
        {"addWatchlistShow",
         "adds a show to the watchlist",
         {required("showId", "N", "the id of the show")},
         addWatchlistShow},
        {"deleteShow",
         "removes a show from the watchlist",
         {required("showId", "N", "the id of the show")},
         deleteShow},
    };
    return operations;
}

std::span<const Option> userOptions() {
    static constexpr Option options[] = {
        optional("uid", "UID", "the id of the user; without it, no user is signed in")};
    return options;
}

std::span<const Option> tokenOption() {
    static constexpr Option options[] = {required("token", "TOKEN", "the access token to send")};
    return options;
}

UserCall readUserCall(Words words, std::span<const Option> more) {
    if (words.empty()) throw UsageError{"no operation is named; vantic help lists them"};
    if (isHelp(words.front())) throw HelpRequested{};
    const auto all = allUserOperations();
    const auto found = std::find_if(all.begin(), all.end(), [&](const UserOperation& operation) {
        return operation.name == words.front();
    });
    if (found == all.end()) {
        std::vector<std::string_view> names;
        for (const UserOperation& operation : all) names.push_back(operation.name);
        throw UsageError{"there is no operation " + words.front() + suggestion(words.front(), names)};
    }
    std::vector<Option> options(found->options);
    for (const auto some : {userOptions(), CommonOptions::options(), more}) {
        options.insert(options.end(), some.begin(), some.end());
    }
    Arguments given = Arguments::read(words.subspan(1), options);
    UserRun run = found->prepare(given);
    return {std::move(given), std::move(run)};
}

}  // namespace vantic
