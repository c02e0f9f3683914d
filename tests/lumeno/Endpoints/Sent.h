#pragma once

/// \file
/// What a resource of the catalogue sends, and what it makes of an answer.

#include <gtest/gtest.h>
#include <VanticRestKit/Core/Resource.h>

#include <Core/FakeContext.h>
#include <Core/FakeSession.h>
#include <optional>
#include <string>
#include <utility>

namespace VanticRestKit::test {

/// Loads a resource that was made with `context`, answers with `body` and gives what came of it.
template <class T>
Result<T, LoaderError> answered(const FakeContext& context, const std::optional<Resource<T>>& resource,
                                const char* body, std::int64_t status = 200) {
    Result<T, LoaderError> outcome = Failure(LoaderError::unknowError());
    EXPECT_TRUE(resource);
    if (!resource) return outcome;
    resource->load({.with = [&outcome](Result<T, LoaderError> result) { outcome = std::move(result); }});
    context.session->reply(answer(status, body));
    return outcome;
}

template <class T>
void expectADecodingFailure(const Result<T, LoaderError>& outcome, const char* body) {
    ASSERT_FALSE(outcome) << body;
    EXPECT_EQ(outcome.error().kind(), LoaderError::Kind::failedToDecode) << body;
}

/// "GET https://api.example.test/v2/time": the method and the address of the request that a resource sends.
/// Fails the running test where it is not as all requests to the catalogue: the headers and the time-out are
/// those of the context, and there is no body.
template <class T>
std::string sentFor(FakeContext& context, const std::optional<Resource<T>>& resource) {
    (void)answered(context, resource, "{}");
    if (context.session->requests().size() != 1) return "no request";
    const URLRequest request = context.session->requests().front();
    EXPECT_EQ(request.allHTTPHeaderFields(), context.headers);
    EXPECT_EQ(request.timeoutInterval().count(), context.timeout);
    EXPECT_EQ(request.httpBody(), std::nullopt);
    return request.httpMethod().value_or("") + " " + request.url()->absoluteString();
}

/// The request for what `make` makes with a context that has headers and a time-out of its own.
template <class Make>
std::string sent(Make make) {
    FakeContext context;
    context.headers = {{"X-Test", "1"}, {"Accept", "application/json"}};
    context.timeout = 12.5;
    return sentFor(context, make(context));
}

/// The same for what `make` makes with a context that has headers and a time-out of its own.
template <class Make>
std::string sentWithHeaders(Make make) {
    FakeContext context;
    context.headers = {{"X-Test", "1"}, {"Accept", "application/json"}};
    context.timeout = 12.5;
    return sentFor(context, make(context));
}

/// `body` fails to decode, and an answer of status 404 is an error of the service whatever its body.
template <class Make>
void expectErrors(Make make, const char* body) {
    const FakeContext context;
    const auto undecoded = answered(context, make(context), body);
    ASSERT_FALSE(undecoded) << body;
    EXPECT_EQ(undecoded.error().kind(), LoaderError::Kind::failedToDecode) << body;

    const FakeContext other;
    auto resource = make(other);
    ASSERT_TRUE(resource);
    std::optional<LoaderError> error;
    resource->load({.with = [&error](auto result) {
        if (!result) error = result.error();
    }});
    other.session->reply(answer(404, body));
    EXPECT_EQ(error, LoaderError::serverError(std::nullopt));
}

/// Makes no request of anything.
class NoRequestContext final : public MinimalContext {
public:
    std::optional<URLRequest> generateURLRequest(URLRequestArguments) const override { return {}; }
};

}  // namespace VanticRestKit::test
