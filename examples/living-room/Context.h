#pragma once

// The contexts of this host: where the service is, how it is asked, and who is told of it.

#include "Http.h"

namespace living_room {

/// What all browsers share: the address of the service, one session with its cache, and the queue of the host's loop,
/// on which every load goes on. Immutable.
class Service {
public:
    Service(URL baseURL, DispatchQueue loop);
    ~Service();
    Service(const Service&) = delete;
    Service& operator=(const Service&) = delete;

    const URL& baseURL() const noexcept { return baseURL_; }
    const std::shared_ptr<NetworkSession>& network() const noexcept { return network_; }
    URLCache& cache() const noexcept { return *session_->configuration().urlCache; }

    /// How everything is loaded: on the loop, within a time that a viewer would wait, as long as the browser is there.
    LoadOptions options(std::stop_token gone) const;

    /// The path at this service of an address that it sent; empty if the address is of another server.
    std::optional<std::string> pathOf(const std::optional<std::string>& address) const;

private:
    URL baseURL_;
    DispatchQueue loop_;
    std::shared_ptr<URLSession> session_;
    std::shared_ptr<NetworkSession> network_;
};

/// Asks the service for one browser, whose observer is told of each request.
class CatalogueContext : public virtual Context, public ObservableContext {
public:
    CatalogueContext(const Service& service, std::shared_ptr<RequestObserver> observer);

    URL baseURL() const override { return baseURL_; }
    std::shared_ptr<Serviceable> service(ServiceArguments arguments) const override;
    std::shared_ptr<RequestObserver> observer() const override { return observer_; }

private:
    URL baseURL_;
    std::shared_ptr<NetworkSession> network_;
    std::shared_ptr<RequestObserver> observer_;
};

/// The same with the user who is signed in at that browser. The user is set and read on the host's loop only.
class SignedInContext final : public CatalogueContext, public TrelvoContext {
public:
    using CatalogueContext::CatalogueContext;
    std::optional<std::string> uid() const override { return uid_; }
    SourceSystem source() const override { return SourceSystem::lumeno; }
    void setUID(std::optional<std::string> uid) { uid_ = std::move(uid); }

private:
    std::optional<std::string> uid_{};
};

/// The same for recommendations, whose every request carries a key.
class RecommendationsContext final : public CatalogueContext, public RecsContext {
public:
    using CatalogueContext::CatalogueContext;
    std::string apiKey() const override { return "living-room"; }
};

}  // namespace living_room
