#pragma once

#include <VanticRestKit/Core/Resource.h>

#include <cstdio>
#include <future>
#include <memory>
#include <optional>
#include <utility>

namespace demo {

/// Loads a resource and waits for the outcome. A program without a user interface may do so. Never wait on the
/// session's delegate queue, because the outcome is delivered there.
template <class T>
VanticRestKit::Result<T, VanticRestKit::LoaderError> loaded(const VanticRestKit::Resource<T>& resource) {
    using Outcome = VanticRestKit::Result<T, VanticRestKit::LoaderError>;
    const auto arrived = std::make_shared<std::promise<Outcome>>();
    resource.load({.with = [arrived](Outcome outcome) { arrived->set_value(std::move(outcome)); }});
    return arrived->get_future().get();
}

/// The value of a resource. If loading fails, prints a line on standard error and returns an empty value.
template <class T>
std::optional<T> fetched(const std::optional<VanticRestKit::Resource<T>>& resource) {
    if (!resource) {
        std::fprintf(stderr, "no request can be made\n");
        return std::nullopt;
    }
    auto outcome = loaded(*resource);
    if (!outcome) {
        std::fprintf(stderr, "%s\n", outcome.error().localizedDescription().c_str());
        return std::nullopt;
    }
    return *std::move(outcome);
}

}  // namespace demo
