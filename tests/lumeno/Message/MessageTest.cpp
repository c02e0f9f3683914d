#include <gtest/gtest.h>
#include <VanticRestKit/lumeno/Message/Message.h>

#include <platform/json/FieldRules.h>

namespace VanticRestKit {
namespace {

using test::decoded;
using test::Strictness;

test::Shape number() {
    return {.empty = "null",
            .fits = {{"120", "120"}, {"0", "0"}, {"-1.5", "-1.5"}, {"1.2e2", "120"}, {"0.25", "0.25"}},
            .unfit = {{"\"120\""}, {"\"\""}, {"true"}, {"{}"}, {"[]"}, {"[120]"}, {"1e400"}, {"01"}, {"1."}}};
}

test::Shape links() {
    return test::listOf(
        "[]",
        {{R"([{"href":"$","id":"i","title":"t","tags":["a"]},{"href":"","title":1,"tags":"a"}])",
          R"([{"id":"i","title":"t","href":"$","tags":["a"]},{"id":null,"title":null,"href":"","tags":[]}])"},
         {"[]", "[]"}},
        {"{\"id\":\"i\"}"});
}

test::EntityRules messages() {
    return {.type = test::decodable<Message>,
            .minimal = "{}",
            .fields = {{"messageId", "id", Strictness::lenient, test::unsignedNumber()},
                       {"title", "title", Strictness::lenient, test::text()},
                       {"count", "count", Strictness::lenient, test::unsignedNumber()},
                       {"interval", "interval", Strictness::lenient, number()},
                       {"message", "message", Strictness::lenient, test::text()},
                       {"links", "links", Strictness::lenient, links()}}};
}

TEST(Message, HasSixFields) { test::expectDeclaredFields(messages()); }

TEST(Message, ReadsEachFieldFromItsKeyOrLeavesItEmpty) { test::expectFieldsInEveryState(messages()); }

TEST(Message, FailsOnlyIfItIsNotAnObject) { test::expectAnObjectOnly(test::decodable<Message>); }

TEST(Message, IsEmptyForAnEmptyObject) { EXPECT_EQ(decoded<Message>("{}"), Message{}); }

TEST(Message, DoesNotReadAnIdFromAStringAndKeepsItsOtherFields) {
    EXPECT_EQ(decoded<Message>(
                  R"({"id":"7","title":"t","count":2,"interval":0.5,"message":"m","links":[{"href":"a"}]})"),
              (Message{.title = "t", .count = 2, .interval = 0.5, .message = "m", .links = {{.href = "a"}}}));
}

TEST(Message, HasNoLinksIfOneHasNoPath) {
    EXPECT_EQ(decoded<Message>(R"({"title":"t","links":[{"href":"a"},{"title":"l"}]})"),
              Message{.title = "t"});
    EXPECT_EQ(decoded<Message>(R"({"title":"t","links":[{"title":"l"},{"href":"a"}]})"),
              Message{.title = "t"});
}

TEST(Message, MakesAListWithOtherElementsFail) {
    EXPECT_EQ(test::failureOf<std::vector<Message>>("[{},7]"), "typeMismatch [1]");
    EXPECT_EQ(test::failureOf<std::vector<Message>>("[{},null]"), "typeMismatch [1]");
    EXPECT_EQ(test::failureOf<std::vector<Message>>("{}"), "typeMismatch []");
    EXPECT_EQ(decoded<std::vector<Message>>("[{},{\"id\":1}]"), (std::vector<Message>{{}, {.messageId = 1}}));
}

TEST(Message, CanBeInitializedInDeclaredOrder) {
    const Message message{
        .messageId = 1, .title = "a", .count = 2, .interval = 2.5, .message = "b", .links = {{.href = "c"}}};
    EXPECT_EQ(valueText(message), R"({"messageId":1,"title":"a","count":2,"interval":2.5,"message":"b",)"
                                  R"("links":[{"id":null,"title":null,"href":"c","tags":[]}]})");
    EXPECT_EQ(decoded<Message>(
                  R"({"links":[{"href":"c"}],"message":"b","interval":2.5,"count":2,"title":"a","id":1})"),
              message);
}

}  // namespace
}  // namespace VanticRestKit
