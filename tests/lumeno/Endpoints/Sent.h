#pragma once

/// \file
/// Checks what a resource of the catalogue sends and how it handles a response.

#include <gtest/gtest.h>
#include <VanticRestKit/Core/Resource.h>
#include <VanticRestKit/Testing/Scripted.h>

#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace VanticRestKit::test {

/// Overrides only what a host must override.
class MinimalContext : public virtual Context {
public:
    URL baseURL() const override { return URL("https://api.example.test"); }
};

/// Has a base URL, headers and a timeout that a test can set.
class PlainContext : public MinimalContext {
public:
    URL baseURL() const override { return base; }
    std::map<std::string, std::string> HTTPHeaderFields() const override { return headers; }
    double requestTimeout() const override { return timeout; }

    URL base{"https://api.example.test"};
    std::map<std::string, std::string> headers{};
    double timeout = 30.0;
};

/// Answers the requests of a context on the test's thread.
struct Script {
    mutable Testing::ManualExecutor executor;
    const Testing::ScriptedService script{executor};
};

/// A context whose requests a script answers.
class CatalogueContext : public Script, public Testing::Scripted<PlainContext> {
public:
    CatalogueContext() : Testing::Scripted<PlainContext>(script) {}
};

/// Loads a resource created with `context`, answers with `body` and returns the outcome.
template <class T>
Result<T, LoaderError> answered(const CatalogueContext& context, const std::optional<Resource<T>>& resource,
                                const char* body, std::int64_t status = 200) {
    std::optional<Result<T, LoaderError>> outcome;
    EXPECT_TRUE(resource);
    if (!resource) return Failure(LoaderError::unknowError());
    context.script.answerNext(Testing::Answer(body).withStatus(status));
    resource->load({.with = [&outcome](Result<T, LoaderError> result) { outcome = std::move(result); }});
    EXPECT_TRUE(context.executor.runUntil([&outcome] { return outcome.has_value(); })) << "no answer";
    if (!outcome) return Failure(LoaderError::unknowError());
    return *std::move(outcome);
}

template <class T>
void expectADecodingFailure(const Result<T, LoaderError>& outcome, const char* body) {
    ASSERT_FALSE(outcome) << body;
    EXPECT_EQ(outcome.error().kind(), LoaderError::Kind::failedToDecode) << body;
}

/// The method and the URL of the request that a resource sends: "GET https://api.example.test/v2/time". Fails the
/// current test unless the headers and the timeout are those of the context and there is no body.
template <class T>
std::string sentFor(const CatalogueContext& context, const std::optional<Resource<T>>& resource) {
    (void)answered(context, resource, "{}");
    const std::vector<Testing::AskedRequest> asked = context.script.asked();
    if (asked.size() != 1) return "no request";
    const URLRequest& request = asked.front().request;
    EXPECT_EQ(request.allHTTPHeaderFields(), context.headers);
    EXPECT_EQ(request.timeoutInterval().count(), context.timeout);
    EXPECT_EQ(request.httpBody(), std::nullopt);
    return request.httpMethod().value_or("") + " " + request.url()->absoluteString();
}

/// The request of the resource that `make` creates with a context that has its own headers and timeout.
template <class Make>
std::string sent(Make make) {
    CatalogueContext context;
    context.headers = {{"X-Test", "1"}, {"Accept", "application/json"}};
    context.timeout = 12.5;
    return sentFor(context, make(context));
}

/// Expects that `body` fails to decode, and that a response with status 404 is a server error whatever its body.
template <class Make>
void expectErrors(Make make, const char* body) {
    const CatalogueContext context;
    const auto undecoded = answered(context, make(context), body);
    ASSERT_FALSE(undecoded) << body;
    EXPECT_EQ(undecoded.error().kind(), LoaderError::Kind::failedToDecode) << body;

    const CatalogueContext other;
    const auto refused = answered(other, make(other), body, 404);
    ASSERT_FALSE(refused) << body;
    EXPECT_EQ(refused.error(), LoaderError::serverError(std::nullopt));
}

/// Never returns a request.
class NoRequestContext final : public MinimalContext {
public:
    std::optional<URLRequest> generateURLRequest(URLRequestArguments) const override { return {}; }
};

}  // namespace VanticRestKit::test
