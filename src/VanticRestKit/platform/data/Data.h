#pragma once

/// \file
/// `Data`: shared, immutable bytes.

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace VanticRestKit {

namespace detail {
class ByteBuffer;
}  // namespace detail

/// Immutable bytes. Copies share one buffer, so a copy costs a reference count.
///
/// The last byte is followed by `padding` zero bytes that belong to the buffer, so that a parser may load whole words
/// at the end without checking the length first. Any number of threads may read one `Data`.
class Data {
public:
    /// The number of readable zero bytes after the last byte.
    static constexpr std::size_t padding = 64;

    /// No bytes. An empty `Data` is still a value: an empty body is not an absent one.
    Data() noexcept = default;

    /// Copies `bytes`.
    explicit Data(std::string_view bytes) : Data(withRoom(bytes)) {}

    /// Takes ownership of `bytes`; allocates only if its capacity cannot hold the padding.
    explicit Data(std::string&& bytes) : size_(bytes.size()) {
        bytes.append(padding, '\0');
        const auto held = std::make_shared<const std::string>(std::move(bytes));
        bytes_ = std::shared_ptr<const char>(held, held->data());
    }

    /// Copies a string up to its terminating NUL.
    explicit Data(const char* text) : Data(std::string_view(text)) {}

    Data(const Data&) = default;
    /// Shares the bytes of `other`.
    Data& operator=(const Data&) = default;
    /// A moved-from `Data` is empty.
    Data(Data&& other) noexcept : bytes_(std::move(other.bytes_)), size_(std::exchange(other.size_, 0)) {}
    /// Takes over the bytes of `other`, which is then empty.
    Data& operator=(Data&& other) noexcept {
        bytes_ = std::move(other.bytes_);
        size_ = std::exchange(other.size_, 0);
        return *this;
    }
    ~Data() = default;

    /// The first byte. Valid as long as this `Data` or a copy of it exists.
    const char* data() const noexcept { return bytes_ ? bytes_.get() : noBytes; }
    /// The number of bytes.
    std::size_t size() const noexcept { return size_; }
    /// Whether there are no bytes.
    bool empty() const noexcept { return size_ == 0; }

    /// The bytes as a string view, valid as long as this `Data` or a copy of it exists.
    std::string_view view() const noexcept { return {data(), size_}; }

    /// Whether both have the same bytes.
    friend bool operator==(const Data& a, const Data& b) noexcept { return a.view() == b.view(); }

private:
    friend class detail::ByteBuffer;

    /// Shares ownership of `bytes`, which are followed by the padding.
    Data(std::shared_ptr<const char> bytes, std::size_t size) noexcept
        : bytes_(std::move(bytes)), size_(size) {}

    static std::string withRoom(std::string_view bytes) {
        std::string copy;
        copy.reserve(bytes.size() + padding);
        copy.assign(bytes);
        return copy;
    }

    static constexpr char noBytes[padding] = {};

    /// Null if there are no bytes.
    std::shared_ptr<const char> bytes_{};
    std::size_t size_{};
};

}  // namespace VanticRestKit
