// Unit tests of host code with Catch2.

#define CATCH_CONFIG_MAIN
#include <VanticRestKit/Testing/Documents.h>
#include <VanticRestKit/Testing/Scripted.h>
#include <VanticRestKit/Testing/ShowBuilder.h>
#include <catch2/catch.hpp>

#include "ShowPage.h"

using namespace VanticRestKit::Testing;

TEST_CASE("The page of a show") {
    ManualExecutor executor;
    ScriptedService service(executor);
    Scripted<HostContext> context(service);
    ShowPage page(context, executor.queue());

    SECTION("has the title and the number of episodes") {
        service.expect("GET /v2/show/night-ferry").answer(aShow().titled("Night Ferry").episodes(4));
        page.open("night-ferry");
        executor.runAll();
        CHECK(page.text == "Night Ferry, 4 episodes");
        CHECK(service.problems() == "");
    }
    SECTION("asks for an update when the answer is not understood") {
        service.on("/v2/show/*").answer("<!doctype html>");
        page.open("night-ferry");
        executor.runAll();
        CHECK(page.text == "Please update the application.");
    }
    SECTION("loads again after a failure") {
        service.on("/v2/show/*").answer(Answer::status(503)).answer(aShow().titled("Night Ferry"));
        page.open("night-ferry");
        executor.runAll();
        CHECK(page.text == "Please try again.");
        page.open("night-ferry");
        executor.runAll();
        CHECK(page.text == "Night Ferry, 6 episodes");
    }
}

TEST_CASE("The home screen of the sample service has rows") {
    CHECK(aHomeScreen().value().collections.size() == 8);
}
