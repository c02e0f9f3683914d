#pragma once

#include <VanticRestKit/platform/json/detail/Scanner.h>

#include <bitset>
#include <cstddef>

namespace VanticRestKit::json {

/// An observer that does nothing.
struct Unobserved {
    void opened() const noexcept {}
    void closed(const char*) const noexcept {}
};

/// Validates the structure of one value and skips it. Not recursive: the open brackets are kept in a bit set. The
/// observer is told of each opening bracket, and of the position after each closing bracket.
template <class Observer>
class Skipper {
public:
    Skipper(const char* at, const char* end, std::size_t depth, Observer observer)
        : at_(at), end_(end), depth_(depth), floor_(depth), observer_(observer) {}

    /// The end of the value, or null if its structure is invalid.
    const char* run() {
        bool sound = value();
        while (sound && depth_ > floor_) {
            switch (next_) {
                case Next::key: sound = key(); break;
                case Next::value: sound = value(); break;
                case Next::separator: sound = separator(); break;
            }
        }
        return sound ? at_ : nullptr;
    }

    /// The position reached: after the value, or at the token that makes its structure invalid.
    const char* at() const noexcept { return at_; }

private:
    enum class Next { key, value, separator };

    bool value() {
        if (*at_ == '{' || *at_ == '[') return open(*at_ == '{');
        next_ = Next::separator;
        if (*at_ == '"') {
            const StringToken token = scanString(at_, end_);
            if (token.close == nullptr) return false;
            at_ = token.close + 1;
            return true;
        }
        const char* const next = startsNumber(*at_) ? scanNumber(at_) : scanLiteral(at_, end_);
        if (next == nullptr) return false;
        at_ = next;
        return true;
    }

    bool open(bool isObject) {
        if (depth_ == maxDepth) return false;
        objects_[depth_++] = isObject;
        observer_.opened();
        at_ = skipSpace(at_ + 1);
        if (*at_ == bracket()) {
            close();
        } else {
            next_ = isObject ? Next::key : Next::value;
        }
        return true;
    }

    bool key() {
        if (*at_ != '"') return false;
        const StringToken token = scanString(at_, end_);
        if (token.close == nullptr) return false;
        at_ = skipSpace(token.close + 1);
        if (*at_ != ':') return false;
        at_ = skipSpace(at_ + 1);
        next_ = Next::value;
        return true;
    }

    /// Reads what follows a value. One trailing comma is accepted.
    bool separator() {
        at_ = skipSpace(at_);
        if (*at_ == ',') {
            at_ = skipSpace(at_ + 1);
            next_ = objects_[depth_ - 1] ? Next::key : Next::value;
            if (*at_ == bracket()) close();
            return true;
        }
        if (*at_ != bracket()) return false;
        close();
        return true;
    }

    char bracket() const { return objects_[depth_ - 1] ? '}' : ']'; }

    void close() {
        --depth_;
        ++at_;
        next_ = Next::separator;
        observer_.closed(at_);
    }

    const char* at_;
    const char* end_;
    std::size_t depth_;
    std::size_t floor_;
    Next next_ = Next::value;
    std::bitset<maxDepth> objects_;
    Observer observer_;
};

}  // namespace VanticRestKit::json
