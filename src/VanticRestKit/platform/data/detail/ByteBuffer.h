#pragma once

/// \file
/// `ByteBuffer`: collects bytes piece by piece, and fails without an exception if memory is exhausted.

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

/// Collects bytes for a `Data`. Unlike a `std::string`, it reports exhausted memory without an exception: the bytes
/// come from a server, which must not be able to end the process.
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

    /// Whether memory was exhausted. The collected bytes are then dropped, and no more are accepted.
    bool hasFailed() const noexcept { return hasFailed_; }

    /// Reserves memory for `size` bytes in total. Has no effect if there is not enough memory.
    void reserve(std::size_t size) { static_cast<void>(grow(size)); }

    /// Appends `bytes`. Returns false if there is no memory for them.
    [[nodiscard]] bool append(std::string_view bytes) {
        if (hasFailed_) return false;
        if (bytes.size() > std::numeric_limits<std::size_t>::max() / 4 - size_) return fail();
        // Grows by half. Fails if that much is not available, even if a smaller growth would succeed: this leaves
        // memory for small allocations, which cannot report a failure.
        const std::size_t size = size_ + bytes.size();
        if (size > capacity_ && !grow(std::max(size, capacity_ + capacity_ / 2))) return fail();
        if (!bytes.empty()) std::memcpy(storage_->bytes + size_, bytes.data(), bytes.size());
        size_ = size;
        return true;
    }

    /// Writable memory after the last byte: at least `minimum` and at most `maximum` bytes. `extend` adds what was
    /// written there. Empty if memory is exhausted.
    [[nodiscard]] std::span<char> spare(std::size_t minimum, std::size_t maximum) {
        if (hasFailed_) return {};
        const std::size_t size = size_ + minimum;
        if (size > capacity_ && !grow(std::max(size, capacity_ + capacity_ / 2))) {
            fail();
            return {};
        }
        return {storage_->bytes + size_, std::min(capacity_ - size_, maximum)};
    }

    /// Adds the first `written` bytes of the memory that `spare` returned last.
    void extend(std::size_t written) noexcept { size_ += written; }

    /// Releases unused memory if it is more than an eighth of the collected bytes.
    void fit() noexcept {
        if (!storage_ || size_ == 0 || capacity_ - size_ <= size_ / 8) return;
        void* const bytes = std::realloc(storage_->bytes, size_ + Data::padding);
        if (bytes == nullptr) return;
        storage_->bytes = static_cast<char*>(bytes);
        capacity_ = size_;
    }

    /// Returns the collected bytes without a copy. Nothing may be added afterwards.
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

    // A `Data` may be kept for long, so it must not hold much more memory than it needs. Shrinking does not move the
    // bytes.
    void shrink() noexcept {
        constexpr std::size_t small = 1024;
        if (capacity_ <= 2 * size_ + small) return;
        if (void* const bytes = std::realloc(storage_->bytes, size_ + Data::padding)) {
            storage_->bytes = static_cast<char*>(bytes);
            capacity_ = size_;
        }
    }

    // Releases the memory at once, so that the error can be allocated.
    bool fail() noexcept {
        storage_.reset();
        size_ = capacity_ = 0;
        hasFailed_ = true;
        return false;
    }

    // Becomes the owner of the `Data`. This small object is allocated in the usual way: only the bytes themselves can
    // exceed the memory.
    std::shared_ptr<Storage> storage_;
    std::size_t size_ = 0;
    std::size_t capacity_ = 0;
    bool hasFailed_ = false;
};

}  // namespace VanticRestKit::detail
