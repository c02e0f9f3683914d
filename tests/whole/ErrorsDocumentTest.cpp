// Checks that docs/errors.md agrees with adviceOn for every error.

#include <gtest/gtest.h>
#include <VanticRestKit/Core/ErrorAdvice.h>
#include <VanticRestKit/Core/LoaderError.h>
#include <VanticRestKit/Core/lumenoSDKError.h>
#include <VanticRestKit/Core/NetworkError.h>
#include <VanticRestKit/Core/URLError.h>
#include <VanticRestKit/lumeno/Show/Show.h>
#include <VanticRestKit/lumeno/Status/Status.h>
#include <VanticRestKit/platform/http/HTTPURLResponse.h>
#include <VanticRestKit/platform/http/URLErrorCode.h>
#include <VanticRestKit/platform/json/DecodingError.h>
#include <VanticRestKit/platform/json/EncodingError.h>
#include <VanticRestKit/trelvo/Common/TrelvoError.h>

#include <whole/ErrorsDocument.h>

#include <algorithm>
#include <cctype>
#include <fstream>
#include <map>
#include <memory>
#include <regex>
#include <set>

namespace VanticRestKit {
namespace {

using test::Row;

const URLRequest& request() {
    static const URLRequest& made = *new URLRequest(*URL::make("https://api.example.test/v2/time"));
    return made;
}

Error transportError(std::int64_t code) { return NSError(std::string(NSURLErrorDomain), code); }

Error statusError(std::int64_t status) {
    const auto response = std::make_shared<const HTTPURLResponse>(request().url(), status);
    return NetworkError::httpError(request(), response, std::nullopt);
}

/// The names of the codes in URLErrorCode.h, so that an added code needs a row.
std::map<std::int64_t, std::string> namesOfCodes() {
    std::ifstream file(VRK_SOURCES "/platform/http/URLErrorCode.h");
    const std::regex enumerator(R"(^    (\w+) = (-\d+),$)");
    std::map<std::int64_t, std::string> names;
    std::smatch found;
    for (std::string line; std::getline(file, line);) {
        if (std::regex_match(line, found, enumerator)) names[std::stoll(found[2])] = found[1];
    }
    return names;
}

/// An error for each name in the third table, with `held` inside those that contain an error.
std::map<std::string, Error> errorsAround(const Error& held) {
    using Decoding = DecodingError::Kind;
    std::map<std::string, Error> errors{
        {"NetworkError::internalSDKError", NetworkError::internalSDKError("lost")},
        {"NetworkError::notAHTTPResponse", NetworkError::notAHTTPResponse(request(), nullptr, "")},
        {"NetworkError::dataNotFoundInResponse",
         NetworkError::dataNotFoundInResponse(
             request(), std::make_shared<const HTTPURLResponse>(request().url(), 200), "")},
        {"NetworkError::requestFailed", NetworkError::requestFailed(request(), nullptr, held)},
        {"LoaderError::serverError", LoaderError::serverError(held)},
        {"LoaderError::failedToDecode", LoaderError::failedToDecode(held)},
        {"LoaderError::unknowError", LoaderError::unknowError()},
        {"LoaderError::unknownResponse", LoaderError::unknownResponse()},
        {"LoaderError::loaderStateError", LoaderError::loaderStateError()},
        {"TrelvoError::noAuthToken", TrelvoError::noAuthToken(held)},
        {"TrelvoError::general", TrelvoError::general(held)},
        {"TrelvoError::datasetNamespaceMismatch", TrelvoError::datasetNamespaceMismatch("a", "b")},
        {"TrelvoError::unknown", TrelvoError::unknown("no data")},
        {"TrelvoError::datasetDoesNotExist", TrelvoError::datasetDoesNotExist()},
        {"TrelvoError::noUid", TrelvoError::noUid()},
        {"TrelvoError::accountReconsentRequired", TrelvoError::accountReconsentRequired()},
        {"TrelvoError::unableToRetrieveHistoryData", TrelvoError::unableToRetrieveHistoryData()},
        {"TrelvoError::unableToRetrieveSavedData", TrelvoError::unableToRetrieveSavedData()},
        {"Video::DecodingError::entityMismatch", Video::DecodingError::entityMismatch("show")},
        {"Show::DecodingError::entityMismatch", Show::DecodingError::entityMismatch("video")},
        {"Status::DecodingError::invalidTheme", Status::DecodingError::invalidTheme("loud")},
        {"EncodingError", EncodingError("key", "not finite")},
        {"URLError::buildUrlRequestError", URLError::buildUrlRequestError()},
        {"lumenoSDKError::initializationError", lumenoSDKError::initializationError("missing")},
        {"NSError of another domain",
         NSError("Host", 7, {{std::string(NSUnderlyingErrorKey), AnyValue(held)}})},
    };
    for (const auto kind :
         {Decoding::keyNotFound, Decoding::valueNotFound, Decoding::typeMismatch, Decoding::dataCorrupted}) {
        errors.emplace(std::string("DecodingError::") + nameOf(kind), DecodingError(kind, {}, ""));
    }
    return errors;
}

/// Checks the advice on `error` alone and inside other errors.
void expectAdvice(const Error& error, const std::string& category, bool mayTryAgain) {
    const Error forms[] = {
        error,
        LoaderError::serverError(error),
        NetworkError::requestFailed(request(), nullptr, error),
        TrelvoError::general(LoaderError::serverError(error)),
        TrelvoError::noAuthToken(
            LoaderError::serverError(NetworkError::requestFailed(request(), nullptr, error))),
    };
    for (const Error& form : forms) {
        const ErrorAdvice advice = adviceOn(form);
        EXPECT_EQ(nameOf(advice.category), category) << form.domain() << ' ' << form.code();
        EXPECT_EQ(advice.mayTryAgain, mayTryAgain) << form.domain() << ' ' << form.code();
        EXPECT_EQ(categoryOf(form), advice.category);
    }
}

class ErrorTable : public testing::TestWithParam<Row> {};

TEST_P(ErrorTable, EachRowAgreesWithAdviceOn) {
    const Error failures[] = {statusError(403), transportError(-1001)};
    for (const Error& held : failures) {
        const auto errors = errorsAround(held);
        const auto found = errors.find(GetParam().key);
        ASSERT_NE(found, errors.end()) << "no error of this name";
        if (GetParam().category == "held") {
            expectAdvice(found->second, nameOf(categoryOf(held)), adviceOn(held).mayTryAgain);
        } else {
            expectAdvice(found->second, GetParam().category, GetParam().mayTryAgain);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, ErrorTable, testing::ValuesIn(test::rowsOf("Error")), [](const auto& row) {
    std::string name;
    for (const char c : row.param.key) {
        if (std::isalnum(static_cast<unsigned char>(c)) != 0) name += c;
    }
    return name;
});

TEST(ErrorsDocument, EveryErrorHasARow) {
    std::set<std::string> keys;
    for (const Row& row : test::rowsOf("Error")) keys.insert(row.key);
    for (const auto& [name, error] : errorsAround(transportError(-1)))
        EXPECT_TRUE(keys.contains(name)) << name;
    EXPECT_EQ(keys.size(), errorsAround(transportError(-1)).size());
}

TEST(ErrorsDocument, EveryCodeOfTheTransportHasTheCategoryOfItsRow) {
    const auto rows = test::rowsOf("Code");
    const auto names = namesOfCodes();
    ASSERT_GE(names.size(), 17u);
    EXPECT_EQ(names.at(static_cast<std::int64_t>(URLErrorCode::timedOut)), "timedOut");
    for (std::int64_t code = -1300; code <= 1; ++code) {
        SCOPED_TRACE(code);
        const auto row =
            std::ranges::find_if(rows, [&](const Row& each) { return test::includes(each, code); });
        ASSERT_NE(row, rows.end());
        expectAdvice(transportError(code), row->category, row->mayTryAgain);
        if (names.contains(code)) {
            EXPECT_EQ(row->name, names.at(code));
        }
    }
}

TEST(ErrorsDocument, EveryStatusHasTheCategoryOfItsRow) {
    const auto rows = test::rowsOf("Status");
    ASSERT_GE(rows.size(), 10u);
    for (std::int64_t status = 400; status <= 999; ++status) {
        SCOPED_TRACE(status);
        const auto row =
            std::ranges::find_if(rows, [&](const Row& each) { return test::includes(each, status); });
        ASSERT_NE(row, rows.end());
        expectAdvice(statusError(status), row->category, row->mayTryAgain);
    }
}

TEST(ErrorsDocument, EveryCategoryHasTheSentenceOfItsRow) {
    const auto rows = test::tableOf("Category");
    std::size_t count = 0;
    // The last category is unknown, like every number after it.
    for (auto category = ErrorCategory::offline;; category = ErrorCategory(std::uint8_t(category) + 1)) {
        ASSERT_LT(count, rows.size());
        EXPECT_EQ(rows[count][0], nameOf(category));
        EXPECT_EQ(rows[count][1], sentenceOf(category));
        ++count;
        if (category == ErrorCategory::unknown) break;
    }
    EXPECT_EQ(count, rows.size());
}

}  // namespace
}  // namespace VanticRestKit
