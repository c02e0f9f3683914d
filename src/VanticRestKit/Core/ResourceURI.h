#pragma once

/// \file
/// `ResourceURI`: a type-erased route.

#include <VanticRestKit/platform/data/Data.h>
#include <VanticRestKit/platform/url/URLQueryItem.h>

#include <concepts>
#include <optional>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace VanticRestKit {

namespace detail {

// How a route provides one requirement. `called` and `stored`: as a const member function without arguments, or as a
// field, of a convertible type. `absent`: it has no member of that name. This is detected by a type that also inherits
// the name from elsewhere: the name is then ambiguous even if the route's member is private.
#define VRK_ROUTE_MEMBER(STRUCT, NAME, TYPE)                      \
    struct STRUCT {                                               \
        using Type = TYPE;                                        \
        struct Second {                                           \
            int NAME;                                             \
        };                                                        \
        template <class R>                                        \
        struct Both : R, Second {};                               \
        template <class R>                                        \
        static constexpr bool called = requires(const R& route) { \
            { route.NAME() } -> std::convertible_to<Type>;        \
        };                                                        \
        template <class R>                                        \
        static constexpr bool stored = requires(const R& route) { \
            { route.NAME } -> std::convertible_to<Type>;          \
        };                                                        \
        template <class R>                                        \
        static constexpr bool absent = requires {                 \
            &Both<R>::NAME;                                       \
        };                                                        \
        template <class R>                                        \
        static Type read(const R& route) {                        \
            if constexpr (called<R>) {                            \
                return route.NAME();                              \
            } else if constexpr (stored<R>) {                     \
                return route.NAME;                                \
            } else {                                              \
                return Type{};                                    \
            }                                                     \
        }                                                         \
    };
VRK_ROUTE_MEMBER(RoutePath, path, std::string)
VRK_ROUTE_MEMBER(RouteQueryItems, queryItems, std::vector<URLQueryItem>)
VRK_ROUTE_MEMBER(RoutePostData, postData, std::optional<Data>)
VRK_ROUTE_MEMBER(RouteHttpMethod, httpMethod, std::optional<std::string>)
#undef VRK_ROUTE_MEMBER

template <class R, class Member>
concept OffersMember = Member::template called<R> || Member::template stored<R>;

/// For a final class, an absent member cannot be told from a private one, so it must provide all of them.
template <class R, class Member>
concept LacksMember = !std::is_final_v<R> && Member::template absent<R>;

template <class R, class Member>
concept OffersOrLacksMember = OffersMember<R, Member> || LacksMember<R, Member>;

/// Has a path in any form; used for a better error message.
template <class R>
concept MeantAsRoute = std::is_class_v<R> && !LacksMember<R, RoutePath>;

}  // namespace detail

/// A type that `ResourceURI` can be made from: a class with `path` and optionally `queryItems`, `postData` and
/// `httpMethod`, each a public field or a public const member function without arguments. A member in an unusable form
/// (private, not const, with arguments, of a type that does not convert) is a compile error, never ignored.
template <class R>
concept RouteType = std::is_class_v<R> && detail::OffersMember<R, detail::RoutePath> &&
    detail::OffersOrLacksMember<R, detail::RouteQueryItems> &&
    detail::OffersOrLacksMember<R, detail::RoutePostData> &&
    detail::OffersOrLacksMember<R, detail::RouteHttpMethod>;

/// The path, query items, body and method of a route of any type.
///
/// Reads the route's members once, when it is made, and keeps no reference to it. A value; any number of threads may
/// read it.
///
/// ```cpp
/// struct GreetingURI {
///     std::string name{};
///     std::string path() const { return "v1/greeting/" + name; }
/// };
/// const ResourceURI route = GreetingURI{.name = "Ada"};
/// ```
class ResourceURI {
public:
    /// From any `RouteType`. A type that has a path but is not a `RouteType` does not compile.
    template <detail::MeantAsRoute R>
    ResourceURI(const R& route)
        : path_(detail::RoutePath::read(route)),
          queryItems_(detail::RouteQueryItems::read(route)),
          postData_(detail::RoutePostData::read(route)),
          httpMethod_(detail::RouteHttpMethod::read(route)) {
        static_assert(detail::OffersMember<R, detail::RoutePath>, "the route's path cannot be used");
        static_assert(detail::OffersOrLacksMember<R, detail::RouteQueryItems>,
                      "the route has queryItems that cannot be used, or is final without any");
        static_assert(detail::OffersOrLacksMember<R, detail::RoutePostData>,
                      "the route has postData that cannot be used, or is final without any");
        static_assert(detail::OffersOrLacksMember<R, detail::RouteHttpMethod>,
                      "the route has an httpMethod that cannot be used, or is final without any");
    }

    /// Relative to the context's base URL, without a leading slash; not percent-encoded. An empty string requests the
    /// base URL itself.
    const std::string& path() const& noexcept { return path_; }
    /// Appended to the query of the base URL, in this order. An empty list by default.
    const std::vector<URLQueryItem>& queryItems() const& noexcept { return queryItems_; }
    /// The body of the request. Empty by default: no body.
    const std::optional<Data>& postData() const& noexcept { return postData_; }
    /// The method of the request. Empty by default, which means GET, even with a body.
    const std::optional<std::string>& httpMethod() const& noexcept { return httpMethod_; }

private:
    std::string path_;
    std::vector<URLQueryItem> queryItems_;
    std::optional<Data> postData_;
    std::optional<std::string> httpMethod_;
};

}  // namespace VanticRestKit
