#include <VanticRestKit/platform/host/HostInformation.h>

#include <VanticRestKit/platform/dispatch/Replaceable.h>

#include <sys/utsname.h>

#include <utility>

namespace VanticRestKit {

namespace {

detail::Replaceable<std::shared_ptr<const HostInformation>>& supplied() {
    static auto& host = *new detail::Replaceable<std::shared_ptr<const HostInformation>>(nullptr);
    return host;
}

utsname systemNames() {
    utsname names{};
    uname(&names);
    return names;
}

}  // namespace

HostInformation::~HostInformation() = default;

std::optional<std::string> HostInformation::applicationVersion() const { return std::nullopt; }

std::string HostInformation::systemVersion() const { return systemNames().release; }

std::string HostInformation::machine() const { return systemNames().machine; }

std::shared_ptr<const HostInformation> HostInformation::current() {
    std::shared_ptr<const HostInformation> host = supplied().load();
    return host ? host : std::make_shared<const HostInformation>();
}

void HostInformation::supply(std::shared_ptr<const HostInformation> host) {
    supplied().store(std::move(host));
}

}  // namespace VanticRestKit
