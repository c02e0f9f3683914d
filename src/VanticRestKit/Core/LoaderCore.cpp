#include <VanticRestKit/Core/LoaderCore.h>
#include <VanticRestKit/Core/Serviceable.h>
#include <VanticRestKit/platform/dispatch/DispatchWorkItem.h>

#include <utility>

namespace VanticRestKit::detail {

Load::~Load() = default;

LoaderCore::LoaderCore(std::shared_ptr<Serviceable> service)
    : dispatchque_("dev.vantic.lumenoKitSDK.Loader"), service_(std::move(service)) {}

LoaderCore::~LoaderCore() = default;

void LoaderCore::cancel() {
    // The item releases what the load held, which may be the last reference to this loader: do not use it afterwards.
    const LoaderState state = state_.load();
    if (state.kind() == LoaderState::Kind::loading) state.item()->cancel();
}

void LoaderCore::start(std::unique_ptr<Load> load) {
    auto item =
        std::make_shared<DispatchWorkItem>([weak = weak_from_this(), load = std::move(load)]() mutable {
            if (const std::shared_ptr<LoaderCore> loader = weak.lock()) loader->fetch(std::move(load));
        });
    state_.store(LoaderState::loading(item));
    dispatchque_.async(std::move(item));
}

void LoaderCore::fetch(std::unique_ptr<Load> load) {
    service_->fetch({.with = [weak = weak_from_this(), load = std::move(load)](Result<Data, Error> fetched) {
        if (!fetched) {
            if (const std::shared_ptr<LoaderCore> loader = weak.lock())
                loader->state_.store(LoaderState::idle());
            load->fail(std::move(fetched).error());
            return;
        }
        load->decode(*fetched);
        if (const std::shared_ptr<LoaderCore> loader = weak.lock()) {
            loader->state_.store(LoaderState::idle());
            load->deliver();
        }
    }});
}

}  // namespace VanticRestKit::detail
