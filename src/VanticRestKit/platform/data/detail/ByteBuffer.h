#pragma once

/// \file
/// `ByteBuffer`: bytes that are gathered piece by piece, and what happens if there is no memory for them.

#include <VanticRestKit/platform/data/Data.h>

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <memory>
#include <span>
#include <string_view>
#include <utility>

namespace VanticRestKit::detail {

/// Gathers bytes for a `Data`. Unlike a `std::string` it says so when there is no memory for them, and throws
/// nothing: what is gathered comes from a server, which must not be able to end the process.
class ByteBuffer {
public:
    ByteBuffer() = default;
    ByteBuffer(const ByteBuffer&) = delete;
    ByteBuffer& operator=(const ByteBuffer&) = delete;
    ByteBuffer(ByteBuffer&&) = delete;
    ByteBuffer& operator=(ByteBuffer&&) = delete;
    ~ByteBuffer() = default;

    std::size_t size() const noexcept { return size_; }
    std::string_view view() const noexcept { return {storage_ ? storage_->bytes : "", size_}; }

    /// Whether there was no memory for some bytes. What was gathered is dropped then, and nothing more is taken.
    bool hasFailed() const noexcept { return hasFailed_; }

    /// Gets memory for `size` bytes in all, if there is so much; otherwise changes nothing.
    void reserve(std::size_t size) { static_cast<void>(grow(size)); }

    /// Appends `bytes`. Returns false if there is no memory for them.
    [[nodiscard]] bool append(std::string_view bytes) {
        if (hasFailed_) return false;
        if (bytes.size() > std::numeric_limits<std::size_t>::max() / 4 - size_) return fail();
        // By half, and no less if there is not so much: that leaves memory for what is smaller and has no way to
        // fail.
        const std::size_t size = size_ + bytes.size();
        if (size > capacity_ && !grow(std::max(size, capacity_ + capacity_ / 2))) return fail();
        if (!bytes.empty()) std::memcpy(storage_->bytes + size_, bytes.data(), bytes.size());
        size_ = size;
        return true;
    }

    /// Memory after the last byte, to be written to; at least `minimum` bytes, at most `maximum`. What is written counts
    /// after `extend`. Empty if there is no memory.
    [[nodiscard]] std::span<char> spare(std::size_t minimum, std::size_t maximum) {
        if (hasFailed_) return {};
        const std::size_t size = size_ + minimum;
        if (size > capacity_ && !grow(std::max(size, capacity_ + capacity_ / 2))) {
            fail();
            return {};
        }
        return {storage_->bytes + size_, std::min(capacity_ - size_, maximum)};
    }

    /// Takes the first `written` bytes of what `spare` gave last.
    void extend(std::size_t written) noexcept { size_ += written; }

    /// Gives back the memory beyond the bytes gathered, if it is more than an eighth of theirs.
    void fit() noexcept {
        if (!storage_ || size_ == 0 || capacity_ - size_ <= size_ / 8) return;
        void* const bytes = std::realloc(storage_->bytes, size_ + Data::padding);
        if (bytes == nullptr) return;
        storage_->bytes = static_cast<char*>(bytes);
        capacity_ = size_;
    }

    /// The bytes gathered, without a copy. Nothing is gathered after this.
    Data take() noexcept {
        if (size_ == 0) return Data();
        shrink();
        std::memset(storage_->bytes + size_, 0, Data::padding);
        const char* const bytes = storage_->bytes;
        return Data(std::shared_ptr<const char>(std::move(storage_), bytes), std::exchange(size_, 0));
    }

private:
    struct Storage {
        Storage() = default;
        Storage(const Storage&) = delete;
        Storage& operator=(const Storage&) = delete;
        ~Storage() { std::free(bytes); }

        char* bytes = nullptr;
    };

    bool grow(std::size_t capacity) {
        if (capacity <= capacity_) return true;
        if (!storage_) storage_ = std::make_shared<Storage>();
        void* const bytes = std::realloc(storage_->bytes, capacity + Data::padding);
        if (bytes == nullptr) return false;
        storage_->bytes = static_cast<char*>(bytes);
        capacity_ = capacity;
        return true;
    }

    // What is kept for long must not hold much more memory than it needs. To make it smaller does not move it.
    void shrink() noexcept {
        constexpr std::size_t small = 1024;
        if (capacity_ <= 2 * size_ + small) return;
        if (void* const bytes = std::realloc(storage_->bytes, size_ + Data::padding)) {
            storage_->bytes = static_cast<char*>(bytes);
            capacity_ = size_;
        }
    }

    // At once, so that the error finds memory.
    bool fail() noexcept {
        storage_.reset();
        size_ = capacity_ = 0;
        hasFailed_ = true;
        return false;
    }

    // The owner of the bytes is as small as what the process allocates all the time; only the bytes themselves can be
    // too many. It becomes the owner of the `Data`.
    std::shared_ptr<Storage> storage_;
    std::size_t size_ = 0;
    std::size_t capacity_ = 0;
    bool hasFailed_ = false;
};

}  // namespace VanticRestKit::detail
