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
    // The item drops what the load held, which may be all that kept this loader: nothing is touched after it.
    if (const std::shared_ptr<DispatchWorkItem> item = item_.load()) item->cancel();
}

void LoaderCore::start(std::unique_ptr<Load> load) {
    auto item =
        std::make_shared<DispatchWorkItem>([weak = weak_from_this(), load = std::move(load)]() mutable {
            if (const std::shared_ptr<LoaderCore> loader = weak.lock()) loader->fetch(std::move(load));
        });
    item_.store(item);
    dispatchque_.async(std::move(item));
}

void LoaderCore::fetch(std::unique_ptr<Load> load) {
    service_->fetch({.with = [weak = weak_from_this(), load = std::move(load)](Result<Data, Error> fetched) {
        if (!fetched) {
            if (const std::shared_ptr<LoaderCore> loader = weak.lock()) loader->item_.store(nullptr);
            load->fail(std::move(fetched).error());
            return;
        }
        load->decode(*fetched);
        if (const std::shared_ptr<LoaderCore> loader = weak.lock()) {
            loader->item_.store(nullptr);
            load->deliver();
        }
    }});
}

}  // namespace VanticRestKit::detail
