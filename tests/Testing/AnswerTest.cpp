#include <gtest/gtest.h>
#include <VanticRestKit/Testing/Answer.h>

#include <cstdio>
#include <fstream>

namespace VanticRestKit::Testing {
namespace {

std::string typeOfFile(const char* name) {
    const std::string path = ::testing::TempDir() + name;
    std::ofstream(path) << "{}";
    const Answer answer = Answer::file(path);
    std::remove(path.c_str());
    const auto type = answer.headers().find("Content-Type");
    return type == answer.headers().end() ? "none" : type->second;
}

TEST(AnswerTest, AFileHasTheContentTypeOfItsName) {
    EXPECT_EQ(typeOfFile("kit-answer.json"), "application/json");
    EXPECT_EQ(typeOfFile("kit-answer.html"), "text/plain; charset=utf-8");
}

TEST(AnswerTest, AHeaderReplacesTheOneOfThatNameInAnySpelling) {
    const Answer answer = Answer("{}").withHeader("content-type", "text/plain").withHeader("X-Kind", "a");
    EXPECT_EQ(answer.headers(),
              (HTTPURLResponse::HeaderFields{{"content-type", "text/plain"}, {"X-Kind", "a"}}));
}

}  // namespace
}  // namespace VanticRestKit::Testing
