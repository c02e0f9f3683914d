// A route with the mistake selected by CASE.
#include <VanticRestKit/Core/ResourceURI.h>

namespace {

class Route {
public:
#if CASE < 4
    std::string path() const { return "v2/time"; }
#elif CASE == 4
    std::string path() { return "v2/time"; }
#endif
#if CASE == 2
    std::vector<VanticRestKit::URLQueryItem> queryItems() { return {}; }
#endif
#if CASE == 3
    std::optional<VanticRestKit::Data> postData(int) const { return {}; }
#endif

private:
#if CASE == 1
    std::string httpMethod() const { return "POST"; }
#endif
};

}  // namespace

int main() {
    const VanticRestKit::ResourceURI uri = Route{};
    return uri.path().empty() ? 1 : 0;
}
