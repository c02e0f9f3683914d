#pragma once

/// \file
/// The code under test in the examples: a host's page for a show.

#include <VanticRestKit/VanticRestKit.h>

#include <string>

/// The context of the host, as in production.
class HostContext : public virtual VanticRestKit::Context {
public:
    VanticRestKit::URL baseURL() const override { return VanticRestKit::URL("https://api.host.example"); }
};

/// Shows the title and the number of episodes, or an error message.
class ShowPage {
public:
    ShowPage(const VanticRestKit::Context& context, VanticRestKit::DispatchQueue ui)
        : context_(context), ui_(std::move(ui)) {}

    /// Loads a show and cancels the previous load. `text` changes on the queue of the user interface.
    void open(const std::string& slug) {
        using namespace VanticRestKit;
        text = "Loading ...";
        const auto show = Endpoint::Show({.usingHref = "/show/" + slug}, context_);
        load_ = show->start({.on = ui_, .deadline = std::chrono::seconds(10)},
                            [this](Result<Show, LoaderError> result) { text = describe(result); });
    }

    std::string text;

private:
    static std::string describe(
        const VanticRestKit::Result<VanticRestKit::Show, VanticRestKit::LoaderError>& result) {
        if (result) {
            return result->title.value_or("") + ", " + std::to_string(result->episodeCount.value_or(0)) +
                   " episodes";
        }
        const auto* error = result.error().underlyingError()->as<VanticRestKit::NetworkError>();
        if (error == nullptr) return "Please update the application.";
        if (error->response() && error->response()->statusCode() == 404) return "There is no such show.";
        return "Please try again.";
    }

    const VanticRestKit::Context& context_;
    VanticRestKit::DispatchQueue ui_;
    VanticRestKit::Cancellable load_;
};
