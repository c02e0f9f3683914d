#pragma once

/// \file
/// `Scripted`: a context of the host's own class whose requests a script answers.

#include <VanticRestKit/Core/Context.h>
#include <VanticRestKit/Core/Serviceable.h>
#include <VanticRestKit/Testing/ScriptedService.h>
#include <VanticRestKit/trelvo/Common/TrelvoContext.h>

#include <memory>
#include <optional>
#include <string>
#include <utility>

namespace VanticRestKit::Testing {

/// What a context returns from `service` to have its requests run by `session`; see `Scripted`. Neither is null.
std::shared_ptr<Serviceable> serviceOver(std::shared_ptr<NetworkSession> session,
                                         Context::ServiceArguments arguments, LogError logError);

/// A `HostContext` whose requests go to a scripted service. All else is the host's: address, headers, time-out and the
/// hook for errors. The class must not be `final`; one that is returns `serviceOver` from its own `service` in tests.
///
/// ```cpp
/// Scripted<HostContext> context(service, "argument of HostContext");
/// ```
template <class HostContext>
class Scripted : public HostContext {
public:
    /// Makes the host's context from `arguments`. Any session whose requests are to be judged as those of the network
    /// can take the place of the script, such as a `RecordingSession`.
    template <class... Arguments>
    explicit Scripted(const ScriptedService& service, Arguments&&... arguments)
        : Scripted(service.session(), std::forward<Arguments>(arguments)...) {}
    /// A context whose requests go to `session`; the other arguments are those of the constructor of the context.
    template <class... Arguments>
    explicit Scripted(std::shared_ptr<NetworkSession> session, Arguments&&... arguments)
        : HostContext(std::forward<Arguments>(arguments)...), session_(std::move(session)) {}

    /// Sends the request to the session of the script.
    std::shared_ptr<Serviceable> service(Context::ServiceArguments arguments) const override {
        return serviceOver(session_, std::move(arguments), this->logError());
    }

private:
    std::shared_ptr<NetworkSession> session_;
};

/// A context for tests that need none of their host's: "https://service.test", and a signed-in user.
class TestContext : public virtual TrelvoContext {
public:
    TestContext() = default;
    ~TestContext() override;

    URL baseURL() const override { return base; }
    std::optional<std::string> uid() const override { return user; }
    SourceSystem source() const override { return SourceSystem::lumeno; }

    /// What paths are relative to.
    URL base{"https://service.test"};
    /// The id of the user; empty if no user is signed in.
    std::optional<std::string> user{"test-user"};
};

}  // namespace VanticRestKit::Testing
