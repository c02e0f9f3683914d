// A disk cache that outlives the process, and a screen shown immediately from it.
//   recipe_caching BASE-URL

#include "Host.h"

#include <VanticRestKit/Core/Resource.h>
#include <VanticRestKit/lumeno/Categories/Category.h>
#include <VanticRestKit/lumeno/Endpoints/Endpoint.h>
#include <VanticRestKit/platform/http/cache/URLCache.h>

#include <chrono>
#include <cstdio>
#include <filesystem>

using namespace VanticRestKit;
using namespace std::chrono_literals;

std::shared_ptr<URLCache> cacheIn(const std::string& folder) {
    return URLCache::makeOnDisk({.folder = folder, .diskCapacity = 64 * 1024 * 1024});
}

class CachingHost final : public recipes::Host {
public:
    CachingHost(const recipes::Host& host, std::shared_ptr<URLCache> cache) : Host(host) {
        URLSessionConfiguration configuration = URLSessionConfiguration::default_();
        configuration.timeoutIntervalForResource = std::chrono::minutes(5);
        configuration.urlCache = std::move(cache);
        session_ = networkSession(URLSession::make(std::move(configuration)));
    }

    std::shared_ptr<Serviceable> service(ServiceArguments arguments) const override {
        URLRequest request = arguments.withURLRequest;
        // Shows a cached response of any age immediately.
        request.setCachePolicy(URLRequestCachePolicy::returnCacheDataElseLoad);
        return NetworkServiceble::make(
            {.with = std::move(request), .and_ = session_, .logError = logError()});
    }

private:
    std::shared_ptr<NetworkSession> session_;
};

int main(int argc, char** argv) {
    const auto host = recipes::Host::of(argc, argv);
    if (!host) return 2;
    const std::filesystem::path folder = std::filesystem::temp_directory_path() / "recipe-caching";
    const auto cache = cacheIn(folder.string());
    const CachingHost caching(*host, cache);
    // The first response sets a cookie, and a cached response is only used for requests with the same cookies.
    for (int load = 0; load < 3; ++load) {
        const Result<Category, LoaderError> home = Endpoint::Home(caching)->wait({.deadline = 5s});
        if (!home) return 1;
        std::printf("%s\n", home->title.c_str());
    }
    std::printf("%llu of 3 loads were answered by the cache\n",
                static_cast<unsigned long long>(cache->hits()));
    cache->flush();
    return cache->hits() > 0 ? 0 : 1;
}
