#pragma once

/// \file
/// `ObservableContext`: a context whose requests are observed.

#include <VanticRestKit/Core/Context.h>
#include <VanticRestKit/Visibility.h>

#include <memory>

namespace VanticRestKit {

class RequestObserver;

/// A context that also says who is told of its requests. A host's context inherits it beside the contexts of the
/// services: `class MyContext : public TrelvoContext, public ObservableContext`.
///
/// It counts for every form of a load, for publishers, and for all operations of `Trelvo` and `UserClient`, token
/// requests included, whatever `service` the context makes. Not observed are resources that are made of a request, an
/// address or a service, without a context.
class VRK_EXPORT ObservableContext : public virtual Context {
public:
    ~ObservableContext() override;

    /// Who is told. Null if no one is, for this request. Called once for each request, on the thread that makes it.
    virtual std::shared_ptr<RequestObserver> observer() const = 0;

    const ObservableContext* asObservable() const noexcept override { return this; }

protected:
    ObservableContext() = default;
    ObservableContext(const ObservableContext&) = default;
    ObservableContext& operator=(const ObservableContext&) = default;
};

}  // namespace VanticRestKit
