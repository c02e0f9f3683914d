#pragma once

/// \file
/// `Data`: bytes that are shared and never change.

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace VanticRestKit {

namespace detail {
class ByteBuffer;
}  // namespace detail

/// An immutable run of bytes. Copies share one buffer, so a copy costs a reference count.
///
/// Behind the last byte lie `padding` zero bytes that belong to the buffer, so that a reader may load whole
/// words at the end without looking at the length first. Any number of threads may read one `Data`.
class Data {
public:
    /// How many readable zero bytes follow the last byte.
    static constexpr std::size_t padding = 64;

    /// No bytes. A `Data` without bytes is still a value: an empty body is not an absent one.
    Data() noexcept = default;

    /// Copies `bytes`.
    explicit Data(std::string_view bytes) : Data(withRoom(bytes)) {}

    /// Takes over `bytes`; allocates only where its capacity has no room for the padding.
    explicit Data(std::string&& bytes) : size_(bytes.size()) {
        bytes.append(padding, '\0');
        const auto held = std::make_shared<const std::string>(std::move(bytes));
        bytes_ = std::shared_ptr<const char>(held, held->data());
    }

    /// Copies a text up to its NUL.
    explicit Data(const char* text) : Data(std::string_view(text)) {}

    Data(const Data&) = default;
    /// Shares the bytes of `other`.
    Data& operator=(const Data&) = default;
    /// What was moved from has no bytes.
    Data(Data&& other) noexcept : bytes_(std::move(other.bytes_)), size_(std::exchange(other.size_, 0)) {}
    /// Takes over the bytes of `other`, which is then empty.
    Data& operator=(Data&& other) noexcept {
        bytes_ = std::move(other.bytes_);
        size_ = std::exchange(other.size_, 0);
        return *this;
    }
    ~Data() = default;

    /// The first byte. It stays where it is as long as this `Data` or a copy of it lives.
    const char* data() const noexcept { return bytes_ ? bytes_.get() : noBytes; }
    /// The number of bytes.
    std::size_t size() const noexcept { return size_; }
    /// Whether there are no bytes.
    bool empty() const noexcept { return size_ == 0; }

    /// The bytes as text. The view lives as long as this `Data` or a copy of it.
    std::string_view view() const noexcept { return {data(), size_}; }

    /// Whether both have the same bytes.
    friend bool operator==(const Data& a, const Data& b) noexcept { return a.view() == b.view(); }

private:
    friend class detail::ByteBuffer;

    /// Takes part in owning `bytes`, which the padding follows.
    Data(std::shared_ptr<const char> bytes, std::size_t size) noexcept
        : bytes_(std::move(bytes)), size_(size) {}

    static std::string withRoom(std::string_view bytes) {
        std::string copy;
        copy.reserve(bytes.size() + padding);
        copy.assign(bytes);
        return copy;
    }

    static constexpr char noBytes[padding] = {};

    /// Null where there are no bytes.
    std::shared_ptr<const char> bytes_{};
    std::size_t size_{};
};

}  // namespace VanticRestKit
