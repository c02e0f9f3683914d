#include "operations/Host.h"

namespace vantic {

using namespace VanticRestKit;

Host::Host(CommonOptions common, Serve serve) : common_(std::move(common)), serve_(std::move(serve)) {}

URL Host::baseURL() const { return common_.baseURL; }

std::map<std::string, std::string> Host::HTTPHeaderFields() const { return common_.headers; }

double Host::requestTimeout() const { return common_.timeout.value_or(Context::requestTimeout()); }

std::shared_ptr<Serviceable> Host::service(ServiceArguments arguments) const {
    return serve_(std::move(arguments.withURLRequest));
}

}  // namespace vantic
