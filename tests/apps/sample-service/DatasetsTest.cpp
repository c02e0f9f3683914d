#include "UserClient.h"

namespace VanticRestKit::test {

namespace {

constexpr const char* form =
    "dataset=%7B%22displayName%22%3A%22A%26B%20%C3%A9%22%2C%22birthYear%22%3A1980%7D";

TEST(SampleDatasets, AreCreatedFromAFormAndReadBack) {
    const SampleService service;
    UserClient ann(service, "ann");
    const auto made = ann.ask("POST", "dataset/profile", "&include=private", form)["data"][0];
    EXPECT_EQ(made["uid"], "ann");
    EXPECT_EQ(made["source"], "lumeno");
    EXPECT_EQ(made["namespace"], "profile");
    EXPECT_FALSE(made.contains("parent_uid"));
    EXPECT_EQ(made["dataset"], nlohmann::json::parse(R"({"displayName":"A&B é","birthYear":1980})"));
    EXPECT_EQ(made["created"].get<std::string>().size(), std::string("2026-11-21T04:22:00Z").size());
    const auto answer = ann.ask("GET", "dataset/profile", "&include=private");
    EXPECT_EQ(answer["data"], nlohmann::json::array({made}));
    EXPECT_EQ(answer["meta"], nlohmann::json::parse(R"({"count":1,"data":"dataset","status_code":200})"));
}

TEST(SampleDatasets, IncludeTheBirthYearOnlyIfPrivateDataIsRequested) {
    const SampleService service;
    UserClient ann(service, "ann");
    ann.ask("POST", "dataset/profile", "", form);
    EXPECT_FALSE(ann.ask("GET", "dataset/profile")["data"][0]["dataset"].contains("birthYear"));
    EXPECT_FALSE(
        ann.ask("GET", "dataset/profile", "&include=family")["data"][0]["dataset"].contains("birthYear"));
    EXPECT_TRUE(ann.ask("GET", "dataset/profile", "&include=private,family")["data"][0]["dataset"].contains(
        "birthYear"));
}

TEST(SampleDatasets, IncludeTheFamilyIfRequested) {
    const SampleService service;
    UserClient ann(service, "ann");
    UserClient tim(service, "ann.tim");
    ann.ask("POST", "dataset/profile", "", form);
    tim.ask("POST", "dataset/profile", "", form);
    EXPECT_EQ(column(ann.ask("GET", "dataset/profile")["data"], "uid"), nlohmann::json::array({"ann"}));
    const auto family = ann.ask("GET", "dataset/profile", "&include=family")["data"];
    EXPECT_EQ(column(family, "uid"), nlohmann::json::array({"ann", "ann.tim"}));
    EXPECT_EQ(family[1]["parent_uid"], "ann");
    EXPECT_EQ(column(tim.ask("GET", "dataset/profile", "&include=family")["data"], "uid"),
              nlohmann::json::array({"ann.tim"}));
}

TEST(SampleDatasets, AreUpdatedKeyByKey) {
    const SampleService service;
    UserClient ann(service, "ann");
    ann.ask("POST", "dataset/profile", "", form);
    const auto updated = ann.ask("PATCH", "dataset/profile", "&include=private",
                                 "dataset=%7B%22displayName%22%3A%22Ann%22%7D");
    EXPECT_EQ(updated["data"][0]["dataset"],
              nlohmann::json::parse(R"({"displayName":"Ann","birthYear":1980})"));
}

TEST(SampleDatasets, AreA404IfTheyDoNotExist) {
    const SampleService service;
    UserClient ann(service, "ann");
    for (const char* method : {"GET", "DELETE"}) {
        ann.ask(method, "dataset/profile");
        EXPECT_EQ(ann.status, 404) << method;
    }
    ann.ask("PATCH", "dataset/profile", "", form);
    EXPECT_EQ(ann.status, 404);
    EXPECT_EQ(service.control("GET", "/_control/users"), nlohmann::json::object())
        << "a request does not create a user";
}

TEST(SampleDatasets, AreNotCreatedTwice) {
    const SampleService service;
    UserClient ann(service, "ann");
    ann.ask("POST", "dataset/profile", "", form);
    ann.ask("POST", "dataset/profile", "", form);
    EXPECT_EQ(ann.status, 409);
    ann.ask("POST", "dataset/other", "", form);
    EXPECT_EQ(ann.status, 200) << "another namespace";
}

TEST(SampleDatasets, ArePermanentlyDeleted) {
    const SampleService service;
    UserClient ann(service, "ann");
    ann.ask("POST", "dataset/profile", "", form);
    EXPECT_EQ(ann.ask("DELETE", "dataset/profile")["data"], nlohmann::json::array());
    EXPECT_EQ(service.control("GET", "/_control/users")["ann"]["datasets"], nlohmann::json::object());
}

TEST(SampleDatasets, AreA400WithoutADatasetInTheBody) {
    const SampleService service;
    UserClient ann(service, "ann");
    for (const char* body : {"", "dataset", "dataset=", "dataset=%5B%5D", "dataset=%7B", "other=%7B%7D"}) {
        ann.ask("POST", "dataset/profile", "", body);
        EXPECT_EQ(ann.status, 400) << body;
    }
    ann.ask("POST", "dataset/profile", "", "dataset=%7B%7D");
    EXPECT_EQ(ann.status, 200);
    ann.ask("PATCH", "dataset/profile", "", "dataset=%5B%5D");
    EXPECT_EQ(ann.status, 400);
}

TEST(SampleDatasets, ReadAPlusInTheBodyAsASpace) {
    const SampleService service;
    UserClient ann(service, "ann");
    const auto made = ann.ask("POST", "dataset/profile", "", "dataset=%7B%22name%22:%22a+b%2Bc%22%7D");
    EXPECT_NE(made.dump().find("\"a b+c\""), std::string::npos) << made;
}

TEST(SampleUsers, AreRemovedWithTheirTokensOnCommand) {
    const SampleService service;
    UserClient ann(service, "ann");
    ann.ask("POST", "dataset/profile", "", form);
    EXPECT_EQ(service.control("GET", "/_control/users")["ann"]["datasets"]["profile"]["birthYear"], 1980);
    service.control("DELETE", "/_control/users");
    EXPECT_EQ(service.control("GET", "/_control/users"), nlohmann::json::object());
    ann.ask("GET", "dataset/profile");
    EXPECT_EQ(ann.status, 401);
}

}  // namespace

}  // namespace VanticRestKit::test
