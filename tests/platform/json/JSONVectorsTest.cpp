// Compares both engines with the platform's recorded results for thousands of small documents.

#include <platform/json/BothEngines.h>
#include <VanticRestKit/platform/json/DecodingError.h>

#include <support/Vectors.h>
#include <VanticRestKit/platform/json/Table.h>

#include <functional>
#include <map>

namespace VanticRestKit {
namespace {

enum class Letter { a };

/// A required value under the key "v".
template <class T>
struct Required {
    T v{};
    friend bool operator==(const Required&, const Required&) = default;
};

/// An optional value under the key "v".
template <class T>
struct Optional {
    std::optional<T> v{};
    friend bool operator==(const Optional&, const Optional&) = default;
};

struct Opened {};
struct OpenedObject : Opened {};
struct OpenedArray {
    std::vector<std::string> v{};
};
struct Anything {};

}  // namespace

template <>
struct RawTexts<Letter> {
    static constexpr RawCase<Letter> cases[] = {{Letter::a, "a", "a"}};
};

#define HELD(T)                                                                                              \
    template <>                                                                                              \
    const TypePlan& planOf<Required<T>>() {                                                                  \
        static const TypePlan& plan = mapping::object<Required<T>>(mapping::required<&Required<T>::v>("v")); \
        return plan;                                                                                         \
    }                                                                                                        \
    template <>                                                                                              \
    const TypePlan& planOf<Optional<T>>() {                                                                  \
        static const TypePlan& plan = mapping::object<Optional<T>>(mapping::optional<&Optional<T>::v>("v")); \
        return plan;                                                                                         \
    }
HELD(std::string)
HELD(bool)
HELD(double)
HELD(std::int64_t)
HELD(std::uint64_t)
HELD(std::vector<std::string>)
HELD(Letter)
#undef HELD

template <>
const TypePlan& planOf<Opened>() {
    static const TypePlan& plan = mapping::object<Opened>();
    return plan;
}
template <>
const TypePlan& planOf<Anything>() {
    static const TypePlan& plan = mapping::makeAnythingPlan("Anything");
    return plan;
}
template <>
const TypePlan& planOf<OpenedObject>() {
    static const TypePlan& plan = mapping::object<OpenedObject>(mapping::requiredObject("v"));
    return plan;
}
template <>
const TypePlan& planOf<OpenedArray>() {
    // clang-format off
    static const TypePlan& plan = mapping::object<OpenedArray>(
        mapping::required<&OpenedArray::v, mapping::keepDecodable>("v"));
    // clang-format on
    return plan;
}

namespace {

using nlohmann::json;
using Answer = json;

Answer answerOf(const std::optional<Error>& error) {
    const DecodingError* fault = error->as<DecodingError>();
    json path = json::array();
    for (const CodingKey& step : fault->codingPath()) {
        if (step.key() != nullptr) {
            path.push_back(*step.key());
        } else {
            path.push_back(*step.index());
        }
    }
    return {{"error", nameOf(fault->kind())}, {"path", path}};
}

template <class T>
Answer shown(const T& value) {
    if constexpr (std::is_same_v<T, std::int64_t> || std::is_same_v<T, std::uint64_t>) {
        return std::to_string(value);
    } else if constexpr (std::is_same_v<T, Letter>) {
        return "case a";
    } else {
        return value;
    }
}

template <class T>
Answer top(std::string_view document) {
    std::optional<Error> error;
    const std::optional<T> value = test::decoded<T>(document, &error);
    return value ? Answer{{"ok", shown(*value)}} : answerOf(error);
}

template <class T>
Answer opened(std::string_view document) {
    std::optional<Error> error;
    return test::decoded<T>(document, &error) ? Answer{{"ok", "opened"}} : answerOf(error);
}

template <class T>
Answer decode(std::string_view document) {
    std::optional<Error> error;
    const std::optional<Required<T>> value = test::decoded<Required<T>>(document, &error);
    return value ? Answer{{"ok", shown(value->v)}} : answerOf(error);
}

template <class T>
Answer ifPresent(std::string_view document) {
    std::optional<Error> error;
    const std::optional<Optional<T>> value = test::decoded<Optional<T>>(document, &error);
    if (!value) return answerOf(error);
    return {{"ok", value->v ? shown(*value->v) : json()}};
}

using Ask = std::function<Answer(std::string_view)>;

template <class T>
std::pair<Ask, Ask> both() {
    return {decode<T>, ifPresent<T>};
}

const std::map<std::string, std::pair<Ask, Ask>> questions = {
    {"String", both<std::string>()},
    {"Int", both<std::int64_t>()},
    {"UInt", both<std::uint64_t>()},
    {"Double", both<double>()},
    {"Bool", both<bool>()},
    {"[String]", both<std::vector<std::string>>()},
    {"Enum", both<Letter>()},
    {"Object", {opened<OpenedObject>, nullptr}},
    {"Array", {opened<OpenedArray>, nullptr}},
    {"Ignore", {opened<Opened>, nullptr}},
};

const std::map<std::string, Ask> topQuestions = {
    {"String", top<std::string>}, {"Int", top<std::int64_t>}, {"UInt", top<std::uint64_t>},
    {"Double", top<double>},      {"Bool", top<bool>},        {"[String]", top<std::vector<std::string>>},
    {"Object", opened<Opened>},   {"Any", opened<Anything>},
};

std::string bytesOf(const std::string& hex) {
    std::string bytes;
    for (std::size_t i = 0; i + 1 < hex.size(); i += 2) {
        bytes.push_back(static_cast<char>(std::stoi(hex.substr(i, 2), nullptr, 16)));
    }
    return bytes;
}

void compare(const json& line, const char* question, const Ask& ask, const std::string& document) {
    if (!line["out"].contains(question)) return;
    const Answer answer = ask(document);
    if (test::isFree(line)) return;
    EXPECT_EQ(answer, line["out"][question]) << question << " of " << line["in"];
}

TEST(JSONReading, ReadsEachValueUnderAKeyLikeThePlatform) {
    for (const json& line : test::vectors("json_read.jsonl")) {
        const auto& [decode, ifPresent] = questions.at(line["in"]["type"]);
        compare(line, "decode", decode, line["in"]["json"]);
        if (ifPresent) compare(line, "ifPresent", ifPresent, line["in"]["json"]);
    }
}

TEST(JSONReading, ReadsEachRootValueLikeThePlatform) {
    for (const json& line : test::vectors("json_top.jsonl")) {
        const Answer answer = topQuestions.at(line["in"]["type"])(line["in"]["json"].get<std::string>());
        if (test::isFree(line)) continue;
        EXPECT_EQ(answer, line["out"]) << line["in"];
    }
}

TEST(JSONReading, ValidatesTheBytesOnlyOfStringsThatAreRead) {
    for (const json& line : test::vectors("json_bytes.jsonl")) {
        const std::string document = bytesOf(line["in"]["hex"]);
        compare(line, "decode", decode<std::string>, document);
        compare(line, "ifPresent", ifPresent<std::string>, document);
        compare(line, "ignore", opened<Opened>, document);
    }
}

TEST(JSONReading, AllowsAtMost512Levels) {
    for (const json& line : test::vectors("json_depth.jsonl")) {
        const auto levels = line["in"]["n"].get<std::size_t>();
        std::string objects;
        for (std::size_t i = 0; i < levels; ++i) objects += i + 1 < levels ? "{\"v\":" : "{";
        const auto arrays = std::string(levels, '[') + std::string(levels, ']');
        objects += std::string(levels, '}');
        EXPECT_EQ(opened<Anything>(arrays), line["out"]["arrays"]) << levels;
        EXPECT_EQ(opened<Anything>(objects), line["out"]["objects"]) << levels;
    }
}

}  // namespace
}  // namespace VanticRestKit
