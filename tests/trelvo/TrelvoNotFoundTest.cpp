// The operations that handle a 404 in different ways.

#include <VanticRestKit/trelvo/Dataset/detail/DatasetOperations.h>

#include <trelvo/Client.h>

namespace VanticRestKit::test {
namespace {

using Kind = TrelvoError::Kind;
using Containers = std::vector<DatasetContainer>;

class TrelvoNotFound : public Client {
protected:
    TrelvoNotFound() { saveGoodTokens(); }
    /// Answers the only request so far with a 404 and returns the outcome of its operation.
    Outcome notFound() {
        session->answer(0, reply(404, "{}"));
        return outcomes.only();
    }
};

TEST_F(TrelvoNotFound, OnGetDatasetIsDatasetDoesNotExist) {
    detail::runOperation(
        state(),
        detail::getDataset({.namespace_ = "ns", .includePrivateData = false, .includeFamilyData = false}),
        context, completion<Containers>(outcomes.completed()));
    EXPECT_TRUE(notFound().is(Kind::datasetDoesNotExist));
}

TEST_F(TrelvoNotFound, OnUpdateDatasetIsGeneral) {
    detail::runOperation(state(), detail::updateDataset("ns", {}), context,
                         completion<DatasetContainer>(outcomes.completed()));
    const Outcome outcome = notFound();
    EXPECT_TRUE(outcome.is(Kind::general)) << outcome;
    EXPECT_EQ(outcome.code(), 404);
}

TEST_F(TrelvoNotFound, OnDeleteDatasetIsGeneral) {
    detail::runOperation(state(), detail::deleteDataset("ns"), context,
                         completion<void>(outcomes.completed()));
    const Outcome outcome = notFound();
    EXPECT_TRUE(outcome.is(Kind::general)) << outcome;
    EXPECT_EQ(outcome.code(), 404);
}

TEST_F(TrelvoNotFound, OnDeleteHistoryIsASuccess) {
    trelvo->deleteHistory({.completionHandler = completion<void>(outcomes.completed())}, context);
    EXPECT_EQ(notFound().text(), "success");
}

TEST_F(TrelvoNotFound, OnDeleteShowIsGeneral) {
    trelvo->deleteShow({.showId = 42, .completionHandler = completion<void>(outcomes.completed())}, context);
    const Outcome outcome = notFound();
    EXPECT_TRUE(outcome.is(Kind::general)) << outcome;
    EXPECT_EQ(outcome.code(), 404);
}

}  // namespace
}  // namespace VanticRestKit::test
