#include <platform/json/FieldRules.h>

#include <VanticRestKit/platform/json/detail/TypePlan.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <nlohmann/json.hpp>

namespace VanticRestKit::test {

namespace {

using namespace mapping;

using nlohmann::ordered_json;

void addIgnoredKeys(const ObjectPlan& plan, const std::string& before, std::vector<std::string>& paths) {
    for (const FieldPlan& field : plan.fields) {
        const std::string path = before + std::string(field.key);
        if (field.role == RowRole::unread) paths.push_back(path);
        if (field.role == RowRole::object) addIgnoredKeys(*field.inner, path + ".", paths);
    }
}

std::string replaced(std::string text, const std::string& what, const std::string& with) {
    for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + with.size())) {
        text.replace(at, what.size(), with);
    }
    return text;
}

std::vector<std::string> keysOf(const std::string& path) {
    std::vector<std::string> keys;
    for (std::size_t at = 0; at <= path.size();) {
        const std::size_t end = std::min(path.find('.', at), path.size());
        keys.push_back(path.substr(at, end - at));
        at = end + 1;
    }
    return keys;
}

/// `["_links","self",1,"href"]` for "_links.self" and "/1/href".
std::string pathText(const std::string& path, const std::string& rest) {
    std::string text;
    for (const std::string& key : keysOf(path)) text += (text.empty() ? "[\"" : ",\"") + key + "\"";
    for (std::size_t at = 1; at <= rest.size();) {
        const std::size_t end = std::min(rest.find('/', at), rest.size());
        const std::string step = rest.substr(at, end - at);
        text +=
            "," + (std::isdigit(static_cast<unsigned char>(step.front())) != 0 ? step : "\"" + step + "\"");
        at = end + 1;
    }
    return text + "]";
}

/// A document whose values can be set to raw text that the test's JSON library would not write.
class Document {
public:
    explicit Document(const std::string& json) : json_(ordered_json::parse(json)) {}

    void set(const std::string& path, const std::string& raw) {
        ordered_json* at = &json_;
        for (const std::string& key : keysOf(path)) {
            if (!at->is_object()) *at = ordered_json::object();
            at = &(*at)[key];
        }
        *at = "@" + std::to_string(raws_.size()) + "@";
        raws_.push_back(raw);
    }

    void remove(const std::string& path) {
        const std::vector<std::string> keys = keysOf(path);
        ordered_json* at = &json_;
        for (std::size_t i = 0; i + 1 < keys.size(); ++i) {
            if (!at->contains(keys[i])) return;
            at = &(*at)[keys[i]];
        }
        at->erase(keys.back());
    }

    std::string text() const {
        std::string text = json_.dump();
        for (std::size_t i = 0; i < raws_.size(); ++i) {
            text = replaced(std::move(text), "\"@" + std::to_string(i) + "@\"", raws_[i]);
        }
        return text;
    }

private:
    ordered_json json_;
    std::vector<std::string> raws_;
};

/// A document and the value that it decodes into.
struct Variant {
    Document document;
    ordered_json value;
};

void show(const EntityRules& rules, ordered_json& value, const std::string& field, const std::string& shown) {
    value[field] = ordered_json::parse(shown);
    for (const auto& [name, path] : rules.mirrors) {
        ordered_json* at = &value;
        for (const std::string& key : keysOf(path)) at = &(*at)[key];
        *at = value[name];
    }
}

ordered_json valueOf(const EntityRules& rules, const std::string& json) {
    const Outcome outcome = outcomeOf(rules.type, json);
    EXPECT_EQ(outcome.failure, "") << json;
    return ordered_json::parse(outcome.value.empty() ? "{}" : outcome.value);
}

/// The first valid JSON of a field and the resulting value, with the field's path inserted.
std::pair<std::string, std::string> firstFit(const FieldRule& field) {
    const auto& [json, shown] = field.shape.fits.front();
    return {replaced(json, "$", field.path), replaced(shown, "$", field.path)};
}

Variant minimal(const EntityRules& rules) { return {Document(rules.minimal), valueOf(rules, rules.minimal)}; }

/// Every field with its first valid JSON. The expected value comes from the rules, not from decoding.
Variant full(const EntityRules& rules) {
    Variant variant = minimal(rules);
    for (const FieldRule& field : rules.fields) {
        const auto [json, shown] = firstFit(field);
        variant.document.set(field.path, json);
        show(rules, variant.value, field.name, shown);
    }
    return variant;
}

void expectValue(const EntityRules& rules, const Document& document, const ordered_json& value,
                 const std::string& what) {
    const std::string json = document.text();
    const ordered_json actual = valueOf(rules, json);
    EXPECT_EQ(actual, value) << what << " in " << json
                             << "\n  differs: " << ordered_json::diff(value, actual).dump();
}

void expectFailure(const EntityRules& rules, const Document& document, const std::string& failure) {
    const std::string json = document.text();
    EXPECT_EQ(outcomeOf(rules.type, json).failure, failure) << json;
}

/// Expects how a field treats an invalid or a missing value (`json` is ""): a lenient field ignores it, an optional
/// field ignores a missing one, and everything else fails.
void expectMisfit(const EntityRules& rules, const Variant& variant, const FieldRule& field,
                  const Unfit& unfit) {
    Variant changed = variant;
    if (unfit.json.empty()) {
        changed.document.remove(field.path);
    } else {
        changed.document.set(field.path, replaced(unfit.json, "$", field.path));
    }
    const bool isMissing = unfit.json.empty() || unfit.json == "null";
    if (field.strictness == Strictness::lenient || (field.strictness == Strictness::optional && isMissing)) {
        show(rules, changed.value, field.name, field.shape.empty);
        expectValue(rules, changed.document, changed.value, field.name + " of " + unfit.json);
    } else {
        expectFailure(rules, changed.document, unfit.kind + " " + pathText(field.path, unfit.rest));
    }
}

const std::vector<std::string> noObjects = {"7",     "-1.5", "\"x\"", "\"\"", "true",
                                            "false", "[]",   "[{}]",  "[1]"};

std::vector<Unfit> mismatches(const std::vector<std::string>& values) {
    std::vector<Unfit> unfit;
    for (const std::string& value : values) unfit.push_back({value});
    return unfit;
}

std::vector<Unfit> joined(std::vector<Unfit> a, const std::vector<Unfit>& b) {
    a.insert(a.end(), b.begin(), b.end());
    return a;
}

}  // namespace

const Shape& text() {
    static const Shape& shape = *new Shape{
        .empty = "null",
        .fits = {{"\"$\"", "\"$\""},
                 {"\"\"", "\"\""},
                 {"\"\\u00e9 \\\"\"", "\"\\u00e9 \\\"\""},
                 {"\"null\"", "\"null\""}},
        .unfit = joined(mismatches({"7", "-1.5", "true", "false", "{}", "{\"a\":\"x\"}", "[]", "[\"x\"]"}),
                        {{"\"\\ud800\"", "dataCorrupted"},
                         {"\"\xff\"", "dataCorrupted"},
                         {"\"a\nb\"", "dataCorrupted"}})};
    return shape;
}

const Shape& unsignedNumber() {
    static const Shape& shape =
        *new Shape{.empty = "null",
                   .fits = {{"120", "120"},
                            {"0", "0"},
                            {"1.2e2", "120"},
                            {"18446744073709551615", "18446744073709551615"}},
                   .unfit = joined(mismatches({"\"120\"", "\"\"", "true", "false", "{}", "[]", "[120]"}),
                                   {{"-1", "dataCorrupted"},
                                    {"1.5", "dataCorrupted"},
                                    {"1e20", "dataCorrupted"},
                                    {"01", "dataCorrupted"},
                                    {"18446744073709551616", "dataCorrupted"}})};
    return shape;
}

const Shape& flag() {
    static const Shape& shape =
        *new Shape{.empty = "false",
                   .fits = {{"true", "true"}, {"false", "false"}},
                   .unfit = mismatches({"\"true\"", "\"\"", "1", "0", "{}", "[]", "[true]"})};
    return shape;
}

const Shape& deviceDateText() {
    static const Shape& shape = *new Shape{
        .empty = "null",
        .fits = {{"\"2020-01-02 03:04:05\"", "\"2020-01-02T03:04:05Z\""}},
        .unfit = joined(mismatches({"12", "1577934245", "true", "{}", "[]", "[\"2020-01-02 03:04:05\"]"}),
                        {{"\"2020-01-02T03:04:05Z\"", "dataCorrupted"},
                         {"\"2020-01-02\"", "dataCorrupted"},
                         {"\"2020-02-30 03:04:05\"", "dataCorrupted"},
                         {"\"\"", "dataCorrupted"},
                         {"\"\\ud800\"", "dataCorrupted"}})};
    return shape;
}

const Shape& texts() {
    static const Shape& shape =
        *new Shape{.empty = "[]",
                   .fits = {{R"(["a","$"])", R"(["a","$"])"}, {"[]", "[]"}, {"[\"\"]", "[\"\"]"}},
                   .unfit = joined(mismatches({"7", "\"a,b\"", "true", "{}", "{\"0\":\"a\"}"}),
                                   {{R"(["a",1])", "typeMismatch", "/1"},
                                    {R"([["a"]])", "typeMismatch", "/0"},
                                    {R"(["a",null])", "valueNotFound", "/1"},
                                    {R"(["a","b","\ud800"])", "dataCorrupted", "/2"}})};
    return shape;
}

const Shape& optionalTexts() {
    static const Shape& shape = *new Shape{.empty = "null", .fits = texts().fits, .unfit = texts().unfit};
    return shape;
}

Shape rawText(const std::string& raw, const std::string& name) {
    return {.empty = "null",
            .fits = {{'"' + raw + '"', '"' + name + '"'}},
            .unfit = joined(mismatches({"7", "0", "true", "{}", "[]", "[\"" + raw + "\"]"}),
                            {{"\"nonsense\"", "dataCorrupted"},
                             {"\"\"", "dataCorrupted"},
                             {"\"" + raw + " \"", "dataCorrupted"},
                             {"\"\\ud800\"", "dataCorrupted"}})};
}

Shape objectOf(std::vector<std::pair<std::string, std::string>> fits, std::vector<Unfit> unfit) {
    unfit.push_back({"{\"\\ud800\":1}", "dataCorrupted"});
    return {.empty = "null", .fits = std::move(fits), .unfit = joined(mismatches(noObjects), unfit)};
}

Shape listOf(const std::string& empty, std::vector<std::pair<std::string, std::string>> fits,
             const Unfit& bad) {
    const std::string list = fits.front().first;
    const std::string good = list.substr(0, list.size() - 1);
    const std::string next = "/" + std::to_string(ordered_json::parse(list).size());
    const std::vector<Unfit> unfit = {{"[" + bad.json + "]", bad.kind, "/0" + bad.rest},
                                      {good + "," + bad.json + "]", bad.kind, next + bad.rest},
                                      {"[null]", "typeMismatch", "/0"},
                                      {"[[]]", "typeMismatch", "/0"},
                                      {"[7]", "typeMismatch", "/0"}};
    return {.empty = empty,
            .fits = std::move(fits),
            .unfit = joined(mismatches({"7", "\"x\"", "true", "{}", "{\"0\":{}}"}), unfit)};
}

void expectDeclaredFields(const EntityRules& rules) {
    const ordered_json value = valueOf(rules, rules.minimal);
    std::vector<std::string> declared;
    for (const auto& [name, shown] : value.items()) declared.push_back(name);
    std::vector<std::string> expected;
    for (const FieldRule& field : rules.fields) expected.push_back(field.name);
    EXPECT_EQ(declared, expected);
}

void expectFieldsInEveryState(const EntityRules& rules) {
    for (const Variant& variant : {minimal(rules), full(rules)}) {
        expectValue(rules, variant.document, variant.value, "all");
        for (const FieldRule& field : rules.fields) {
            for (const auto& [json, shown] : field.shape.fits) {
                Variant changed = variant;
                changed.document.set(field.path, replaced(json, "$", field.path));
                show(rules, changed.value, field.name, replaced(shown, "$", field.path));
                expectValue(rules, changed.document, changed.value, field.name);
            }
            expectMisfit(rules, variant, field, {"", "keyNotFound"});
            expectMisfit(rules, variant, field, {"null", "valueNotFound"});
            for (const Unfit& unfit : field.shape.unfit) expectMisfit(rules, variant, field, unfit);
        }
    }
}

void expectContainersInEveryState(const EntityRules& rules) {
    const Variant all = full(rules);
    for (const ContainerRule& container : rules.containers) {
        std::vector<Unfit> states = {{"", "keyNotFound"}, {"null", "valueNotFound"}};
        states = joined(states, mismatches(noObjects));
        states.push_back({"{\"\\ud800\":1,\"id\":1}", "dataCorrupted"});
        for (const Unfit& state : states) {
            Variant changed = all;
            if (state.json.empty()) {
                changed.document.remove(container.path);
            } else {
                changed.document.set(container.path, state.json);
            }
            if (container.strictness == Strictness::required) {
                expectFailure(rules, changed.document, state.kind + " " + pathText(container.path, ""));
                continue;
            }
            for (const FieldRule& field : rules.fields) {
                if (!field.path.starts_with(container.path + ".")) continue;
                show(rules, changed.value, field.name, field.shape.empty);
            }
            expectValue(rules, changed.document, changed.value, container.path + " of " + state.json);
        }
    }
}

void expectAnObjectOnly(const DecodableType& type) {
    for (const std::string& json : noObjects) {
        EXPECT_EQ(outcomeOf(type, json).failure, "typeMismatch []") << json;
    }
    EXPECT_EQ(outcomeOf(type, "null").failure, "typeMismatch []");
    EXPECT_EQ(outcomeOf(type, "{\"\\ud800\":1}").failure, "dataCorrupted []");
}

void expectErrorsInOrder(const EntityRules& rules,
                         const std::vector<std::pair<std::string, std::string>>& faults) {
    for (std::size_t first = 0; first < faults.size(); ++first) {
        for (std::size_t second = first + 1; second < faults.size(); ++second) {
            Document alone(rules.minimal);
            alone.set(faults[first].first, faults[first].second);
            const std::string failure = outcomeOf(rules.type, alone.text()).failure;
            EXPECT_NE(failure, "") << alone.text();
            for (const bool isSwapped : {false, true}) {
                Document both(rules.minimal);
                for (const std::size_t which : {isSwapped ? second : first, isSwapped ? first : second}) {
                    both.remove(faults[which].first);
                    both.set(faults[which].first, faults[which].second);
                }
                expectFailure(rules, both, failure);
            }
        }
    }
}

std::vector<std::string> ignoredKeys(const TypePlan& plan) {
    std::vector<std::string> paths;
    addIgnoredKeys(*plan.object, "", paths);
    return paths;
}

std::string fullDocument(const EntityRules& rules) { return full(rules).document.text(); }

}  // namespace VanticRestKit::test
