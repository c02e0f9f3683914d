#pragma once

#include <VanticRestKit/Core/LoaderError.h>
#include <VanticRestKit/Core/Resource.h>
#include <VanticRestKit/platform/json/ValueText.h>
#include <VanticRestKit/platform/result/Result.h>

#include <functional>
#include <optional>
#include <string>

namespace vantic {

/// A loaded value as text, or the error.
using LoadedText = VanticRestKit::Result<std::string, VanticRestKit::LoaderError>;

/// Called once, on another thread.
using LoadCompletion = std::function<void(LoadedText)>;

/// Sends a prepared request. Throws `UsageError` if the options do not say how to decode the response.
using Loadable = std::function<void(LoadCompletion)>;

/// Loads a resource and converts its value by `text`.
template <class T, class Text>
void load(const VanticRestKit::Resource<T>& resource, Text text, LoadCompletion completion) {
    using Loaded = VanticRestKit::Result<T, VanticRestKit::LoaderError>;
    resource.load({.with = [text = std::move(text), completion = std::move(completion)](Loaded loaded) {
        completion(loaded ? text(*loaded) : LoadedText(VanticRestKit::Failure(loaded.error())));
    }});
}

/// Empty if there is no resource, which means that no request could be built.
template <class T>
std::optional<Loadable> loadable(std::optional<VanticRestKit::Resource<T>> resource) {
    if (!resource) return std::nullopt;
    return [resource = *std::move(resource)](LoadCompletion completion) {
        const auto text = [](const T& value) -> LoadedText {
            return VanticRestKit::valueText(value, VanticRestKit::ValueLayout::indented);
        };
        load(resource, text, std::move(completion));
    };
}

}  // namespace vantic
