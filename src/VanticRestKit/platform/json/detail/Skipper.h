#pragma once

#include <VanticRestKit/platform/json/detail/Scanner.h>

#include <bitset>
#include <cstddef>

namespace VanticRestKit::json {

/// For walks that nobody watches.
struct Unobserved {
    void opened() const noexcept {}
    void closed(const char*) const noexcept {}
};

/// Walks one value without looking at what it means. No recursion: which brackets are open is a row of bits.
/// The observer is told of each bracket that opens, and of the place behind each that closes.
template <class Observer>
class Skipper {
public:
    Skipper(const char* at, const char* end, std::size_t depth, Observer observer)
        : at_(at), end_(end), depth_(depth), floor_(depth), observer_(observer) {}

    /// Behind the value, or null where its structure is broken.
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

    /// How far the walk came: past the value, or at the token with which its structure breaks.
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
        const char* const behind = startsNumber(*at_) ? scanNumber(at_) : scanLiteral(at_, end_);
        if (behind == nullptr) return false;
        at_ = behind;
        return true;
    }

    bool open(bool isObject) {
        if (depth_ == deepest) return false;
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

    /// What follows a value. One comma before the bracket is let through.
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
    std::bitset<deepest> objects_;
    Observer observer_;
};

}  // namespace VanticRestKit::json
