#pragma once

/// \file
/// `ObservableContext`: a context whose requests are observed.

#include <VanticRestKit/Core/Context.h>
#include <VanticRestKit/Visibility.h>

#include <memory>

namespace VanticRestKit {

class RequestObserver;

/// A context that also provides an observer of its requests. A host's context inherits it in addition to the contexts
/// of the services: `class MyContext : public TrelvoContext, public ObservableContext`.
///
/// It applies to all forms of a load, to publishers, and to all operations of `Trelvo` and `UserClient`, including
/// token requests, whatever `service` the context makes. Resources made from a request, URL or service, without a
/// context, are not observed.
class VRK_EXPORT ObservableContext : public virtual Context {
public:
    ~ObservableContext() override;

    /// The observer of a request; null if it is not observed. Called once for each request, on the thread that makes
    /// it.
    virtual std::shared_ptr<RequestObserver> observer() const = 0;

    const ObservableContext* asObservable() const noexcept override { return this; }

protected:
    ObservableContext() = default;
    ObservableContext(const ObservableContext&) = default;
    ObservableContext& operator=(const ObservableContext&) = default;
};

}  // namespace VanticRestKit
