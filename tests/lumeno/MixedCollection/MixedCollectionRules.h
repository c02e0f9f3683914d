#pragma once

/// \file
/// The rules of a collection's fields.

#include <lumeno/Show/ShowRules.h>
#include <VanticRestKit/lumeno/MixedCollection/MixedCollection.h>

#include <string>
#include <utility>

namespace VanticRestKit::test {

inline std::string showElement(const char* title) {
    return R"({"Show":)" + valueText(Show{.title = title, .theme = Theme::default_}) + "}";
}
inline std::string videoElement(const char* id) { return R"({"Video":)" + videoText(id) + "}"; }
inline std::string seriesElement(const char* id) { return R"({"Series":)" + seriesText(id) + "}"; }

/// An unsigned integer, converted to a decimal string, or a string.
inline Shape numberOrText() {
    Shape shape = text();
    shape.fits.insert(shape.fits.end(), {{"12", "\"12\""},
                                         {"0", "\"0\""},
                                         {"1.2e1", "\"12\""},
                                         {"18446744073709551615", "\"18446744073709551615\""}});
    shape.unfit = {{"-1"}, {"1.5"},  {"18446744073709551616"}, {"01"}, {"true"}, {"false"}, {"{}"},
                   {"[]"}, {"[12]"}, {"\"\\ud800\""}};
    return shape;
}

inline Shape mixedItems() {
    return {.empty = "[]",
            .fits = {{R"([{"_entity":"show","title":"$"},{"_entity":"video","id":"$","_links":{}},)"
                      R"({"_entity":"series","id":"$","_links":{}}])",
                      "[" + showElement("$") + "," + videoElement("$") + "," + seriesElement("$") + "]"},
                     {"[]", "[]"},
                     {R"([1,null,"x",[],{"_entity":"video"},{"_entity":"series"}])", "[]"},
                     {R"([7,{"title":"$"},null])", "[" + showElement("$") + "]"}},
            .unfit = {{"7"}, {"\"x\""}, {"true"}, {"{}"}, {R"({"0":{}})"}}};
}

inline Shape layoutText() {
    Shape shape = rawText("movie", "movie");
    shape.fits.insert(shape.fits.end(), {{"\"standard\"", "\"standard\""}, {"\"featured\"", "\"featured\""}});
    shape.unfit.insert(shape.unfit.end(), {{"\"Movie\""}, {"\"other\""}, {"1"}});
    shape.empty = "\"standard\"";
    return shape;
}

inline Shape linkObject() {
    return objectOf({{R"({"href":"$","id":"i","title":"t","tags":["a"]})",
                      R"({"id":"i","title":"t","href":"$","tags":["a"]})"},
                     {R"({"href":"","id":1})", R"({"id":null,"title":null,"href":"","tags":[]})"}},
                    {{"{}"}, {R"({"id":"i"})"}, {R"({"href":1})"}});
}

inline Shape highlightItem() {
    return objectOf({{R"({"_entity":"video","id":"$","_links":{}})", videoElement("$")},
                     {R"({"_entity":"SHOW","title":"$"})", showElement("$")},
                     {R"({"title":"$","id":"7","_links":{}})", showElement("$")}},
                    {{R"({"_entity":"series","id":"1","_links":{}})"},
                     {R"({"_entity":"video"})"},
                     {R"({"_entity":"promo","id":"1","_links":{}})"}});
}

/// With links, which must include the self link.
inline EntityRules collections() {
    return {.type = decodable<MixedCollection>,
            .minimal = R"({"title":"t","_links":{"self":{"href":"h"}}})",
            .fields = {{"collectionId", "id", Strictness::lenient, numberOrText()},
                       {"title", "title", Strictness::required, text()},
                       {"mixedItems", "items", Strictness::lenient, mixedItems()},
                       {"href", "_links.self.href", Strictness::required, text()},
                       {"type", "type", Strictness::lenient, layoutText()},
                       lenientText("description", "description"),
                       lenientText("thumbnail", "thumbnail"),
                       {"banner", "banner", Strictness::lenient, bannerObject()},
                       {"collectionLink", "collectionLink", Strictness::lenient, linkObject()},
                       {"highlightItem", "_embedded.highlightItem", Strictness::lenient, highlightItem()},
                       lenientText("alertId", "_links.alert.id")},
            .containers = {{"_links", Strictness::lenient},
                           {"_links.self", Strictness::required},
                           {"_links.alert", Strictness::lenient},
                           {"_embedded", Strictness::lenient}}};
}

}  // namespace VanticRestKit::test
