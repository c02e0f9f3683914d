#include <platform/json/Mutations.h>

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <utility>
#include <vector>

namespace VanticRestKit::test {

namespace {

struct JSONTree {
    enum class Kind { plain, array, object };
    Kind kind = Kind::plain;
    std::string plain{};
    /// Keys with their quotes, "" for the elements of an array.
    std::vector<std::pair<std::string, JSONTree>> members{};
};

/// Values of every type, valid and invalid.
// clang-format off
constexpr std::string_view samples[] = {
    "null", "true", "false", "0", "1", "-1", "1.5", "-0", "1e2", "18446744073709551615", "18446744073709551616",
    "9223372036854775808", "1e400", "01", "1.", "-", "\"\"", "\"x\"", "\"1\"", "\"true\"", "\"episode\"", "\"video\"",
    "\"show\"", "\"Series\"", "\"va\"", "\"live\"", "\"2020-01-02 03:04:05\"", "\"2020-01-02T03:04:05+0000\"",
    "\"\\u00e9\\n\"", "\"\\ud800\"", "\"\xff\"", "\"\xc3\xa9\"", "\"a\tb\"", "\"exactly15 bytes\"", "\"exactly 16 bytes\"",
    "\"a text of more than thirty-two bytes, all plain\"", "[]", "{}", "[null]", "[1]", "[\"a\"]", "[\"a\",1]", "[[]]",
    "[{}]", "[{\"href\":\"h\"}]", "{\"href\":\"h\"}", "{\"id\":1}", "{\"id\":\"1\"}", "{\"_links\":{}}",
    "[{\"_links\":{}},{}]", "{\"a\":{\"b\":[{}]}}", "{\"\\ud800\":1}", "{\"id\":\"i\",\"\\x\":1,\"href\":\"h\"}", "[1,]",
    "{\"a\":1,}", "\"/show/some-slug/x\"", "\"content://video/ZW1\"",
};
// clang-format on

class Parser {
public:
    explicit Parser(std::string_view json) : json_(json) {}

    JSONTree value() {
        skipBlanks();
        JSONTree tree;
        const char c = peek();
        if (c == '{' || c == '[') {
            tree.kind = c == '{' ? JSONTree::Kind::object : JSONTree::Kind::array;
            ++at_;
            members(tree);
        } else {
            tree.plain = c == '"' ? string() : word();
        }
        return tree;
    }

private:
    char peek() const { return at_ < json_.size() ? json_[at_] : '\0'; }

    void skipBlanks() {
        while (at_ < json_.size() && std::string_view(" \t\r\n").find(json_[at_]) != std::string_view::npos)
            ++at_;
    }

    void members(JSONTree& tree) {
        for (skipBlanks(); at_ < json_.size() && peek() != '}' && peek() != ']'; skipBlanks()) {
            std::string key;
            if (tree.kind == JSONTree::Kind::object) {
                key = string();
                skipBlanks();
                ++at_;  // the colon
            }
            tree.members.emplace_back(std::move(key), value());
            skipBlanks();
            if (peek() == ',') ++at_;
        }
        ++at_;
    }

    std::string string() {
        const std::size_t start = at_++;
        while (at_ < json_.size() && peek() != '"') at_ += peek() == '\\' ? 2 : 1;
        return std::string(json_.substr(start, ++at_ - start));
    }

    std::string word() {
        const std::size_t start = at_;
        at_ = std::min(json_.find_first_of(",]} \t\r\n", at_), json_.size());
        return std::string(json_.substr(start, at_ - start));
    }

    std::string_view json_;
    std::size_t at_ = 0;
};

void write(const JSONTree& tree, std::string& text) {
    if (tree.kind == JSONTree::Kind::plain) {
        text += tree.plain;
        return;
    }
    text += tree.kind == JSONTree::Kind::object ? '{' : '[';
    const char* separator = "";
    for (const auto& [key, value] : tree.members) {
        text += separator;
        separator = ",";
        if (tree.kind == JSONTree::Kind::object) text += key + ":";
        write(value, text);
    }
    text += tree.kind == JSONTree::Kind::object ? '}' : ']';
}

void collect(JSONTree& tree, std::vector<JSONTree*>& all, std::vector<JSONTree*>& full) {
    all.push_back(&tree);
    if (!tree.members.empty()) full.push_back(&tree);
    for (auto& [key, value] : tree.members) collect(value, all, full);
}

/// The key with one letter escaped, or with a sequence that makes it invalid.
std::string escaped(const std::string& key, Random& random) {
    if (key.size() < 3 || key.find('\\') != std::string::npos) return key;
    const std::size_t place = 1 + random.below(key.size() - 2);
    if (random.below(6) == 0) return key.substr(0, place) + "\\ud800" + key.substr(place);
    char escape[8];
    std::snprintf(escape, sizeof escape, "\\u%04x",
                  static_cast<unsigned>(static_cast<unsigned char>(key[place])));
    return key.substr(0, place) + escape + key.substr(place + 1);
}

JSONTree sample(Random& random) {
    return JSONTree{.plain = std::string(samples[random.below(std::size(samples))])};
}

/// Changes an array or object that is not empty.
void changeMembers(JSONTree& tree, Random& random) {
    auto& members = tree.members;
    const std::size_t place = random.below(members.size());
    const auto at = members.begin() + static_cast<std::ptrdiff_t>(place);
    const auto anywhere = [&] {
        return members.begin() + static_cast<std::ptrdiff_t>(random.below(members.size() + 1));
    };
    switch (random.below(7)) {
        case 0: members.erase(at); break;
        case 1: {
            auto copy = *at;
            members.insert(anywhere(), std::move(copy));
            break;
        }
        case 2: members.insert(anywhere(), {at->first, sample(random)}); break;
        case 3: {
            for (std::size_t i = members.size(); i > 1; --i)
                std::swap(members[i - 1], members[random.below(i)]);
            break;
        }
        case 4: at->first = escaped(at->first, random); break;
        case 5: std::swap(at->second, members[random.below(members.size())].second); break;
        case 6: {
            const std::string key = tree.kind == JSONTree::Kind::object ? "\"added\"" : "";
            members.insert(anywhere(), {key, sample(random)});
            break;
        }
        default: break;
    }
}

void changeBytes(std::string& text, Random& random) {
    constexpr std::string_view bytes("\"\\{}[]:,0-e.tn \xff\0u", 18);
    if (text.empty()) return;
    const std::size_t place = random.below(text.size());
    switch (random.below(4)) {
        case 0: text[place] = bytes[random.below(bytes.size())]; break;
        case 1: text.insert(place, 1, bytes[random.below(bytes.size())]); break;
        case 2: text.erase(place, 1); break;
        default: text.resize(place); break;
    }
}

}  // namespace

std::uint64_t Random::next() noexcept {
    state_ += 0x9E3779B97F4A7C15U;
    std::uint64_t mixed = state_;
    mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9U;
    mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EBU;
    return mixed ^ (mixed >> 31);
}

struct ChangeableDocument::Tree {
    JSONTree root;
};

ChangeableDocument::ChangeableDocument(std::string_view json)
    : tree_(std::make_shared<const Tree>(Tree{Parser(json).value()})) {}

std::string ChangeableDocument::text() const {
    std::string text;
    write(tree_->root, text);
    return text;
}

std::string ChangeableDocument::changed(Random& random) const {
    JSONTree tree = tree_->root;
    for (std::size_t changes = 1 + random.below(4); changes > 0; --changes) {
        std::vector<JSONTree*> all;
        std::vector<JSONTree*> full;
        collect(tree, all, full);
        if (random.below(2) == 0 || full.empty()) {
            *all[random.below(all.size())] = sample(random);
        } else {
            changeMembers(*full[random.below(full.size())], random);
        }
    }
    std::string text;
    write(tree, text);
    if (random.below(16) == 0) changeBytes(text, random);
    return text;
}

}  // namespace VanticRestKit::test
