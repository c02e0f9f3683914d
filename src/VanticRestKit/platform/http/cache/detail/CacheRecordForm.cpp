#include <VanticRestKit/platform/http/cache/detail/CacheRecordForm.h>

#include <limits>
#include <memory>
#include <optional>
#include <utility>

namespace VanticRestKit::detail {

namespace {

constexpr std::string_view mark = "VRC1";
constexpr std::uint64_t maxFields = 10'000;

void addNumber(std::string& to, std::uint64_t number) {
    for (int i = 0; i < 8; ++i) to += static_cast<char>((number >> (8 * i)) & 0xffU);
}

void addText(std::string& to, std::string_view text) {
    addNumber(to, text.size());
    to += text;
}

/// Reads values one after another from bytes that may be truncated.
class Reader {
public:
    explicit Reader(std::string_view bytes) : rest_(bytes) {}

    std::string_view take(std::uint64_t size) {
        if (size > rest_.size()) {
            isGood_ = false;
            return {};
        }
        const std::string_view taken = rest_.substr(0, static_cast<std::size_t>(size));
        rest_.remove_prefix(taken.size());
        return taken;
    }

    std::uint64_t number() {
        std::uint64_t number = 0;
        const std::string_view bytes = take(8);
        for (std::size_t i = 0; i < bytes.size(); ++i) {
            number |= static_cast<std::uint64_t>(static_cast<unsigned char>(bytes[i])) << (8 * i);
        }
        return number;
    }

    std::chrono::milliseconds time() {
        // Values out of this range would overflow when ages are computed.
        constexpr std::int64_t limit = std::numeric_limits<std::int64_t>::max() / 16;
        const auto milliseconds = static_cast<std::int64_t>(number());
        if (milliseconds < -limit || milliseconds > limit) isGood_ = false;
        return std::chrono::milliseconds(isGood_ ? milliseconds : 0);
    }

    std::string_view text() { return take(number()); }

    bool isGood() const noexcept { return isGood_; }
    bool hasEnded() const noexcept { return rest_.empty(); }

private:
    std::string_view rest_;
    bool isGood_ = true;
};

}  // namespace

Data recordHead(const StoredResponse& response) {
    const ResponseParts& parts = response.parts();
    std::string head(mark);
    addNumber(head, static_cast<std::uint64_t>(parts.status));
    addNumber(head, parts.lacksBody ? 1 : 0);
    addNumber(head, static_cast<std::uint64_t>(parts.received.wall.count()));
    addNumber(head, static_cast<std::uint64_t>((parts.received.steady - parts.requested.steady).count()));
    addNumber(head, parts.fields.size());
    for (const auto& [name, value] : parts.fields) {
        addText(head, name);
        addText(head, value);
    }
    return Data(std::move(head));
}

CacheRecord recordOf(std::string key, const StoredResponse& response) {
    return {.key = std::move(key),
            .variant = response.variant(),
            .head = recordHead(response),
            .body = response.body()};
}

StoredPointer responseOf(const CacheRecord& record) {
    Reader reader(record.head.view());
    if (reader.take(mark.size()) != mark) return nullptr;
    ResponseParts parts;
    parts.status = static_cast<std::int64_t>(reader.number());
    parts.lacksBody = reader.number() != 0;
    parts.received.wall = reader.time();
    // Ages depend only on the difference between the two times.
    const std::chrono::milliseconds delay = reader.time();
    parts.requested = {.wall = parts.received.wall - delay, .steady = -delay};
    const std::uint64_t count = reader.number();
    if (count > maxFields) return nullptr;
    for (std::uint64_t i = 0; i < count && reader.isGood(); ++i) {
        const std::string_view name = reader.text();
        parts.fields.emplace(name, reader.text());
    }
    if (!reader.isGood() || !reader.hasEnded() || parts.status < 200 || parts.status > 999) return nullptr;
    parts.body = record.body;
    parts.variant = record.variant;
    return std::make_shared<const StoredResponse>(std::move(parts));
}

}  // namespace VanticRestKit::detail
