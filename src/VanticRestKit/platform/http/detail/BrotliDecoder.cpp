#include <VanticRestKit/platform/http/detail/BrotliDecoder.h>

#include <VanticRestKit/platform/dispatch/DispatchQueue.h>

#include <brotli/decode.h>
#include <algorithm>
#include <atomic>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <utility>

namespace VanticRestKit::detail {

namespace {

// Brotli writes nothing until its window is full or its input is used up, and the body chooses the size of the window:
// up to 16 MB, which takes about 100 ms on a busy machine. A body that needs a larger allocation than this (256 KB and
// brotli's overhead) is decoded on another thread.
constexpr std::size_t maxInlineAllocation = 260 * 1024;
// How much of a body is kept in case it must be decoded again on another thread.
constexpr std::size_t maxSeen = 1024 * 1024;

// The codes of allocation errors are a range.
bool lacksMemory(BrotliDecoderErrorCode error) {
    return error <= BROTLI_DECODER_ERROR_ALLOC_CONTEXT_MODES &&
           error >= BROTLI_DECODER_ERROR_ALLOC_BLOCK_TYPE_TREES;
}

const std::uint8_t* bytesOf(std::string_view text) {
    return reinterpret_cast<const std::uint8_t*>(text.data());
}

/// Decodes a body window by window on its own queue. Shared by the decoder and its job; while `isWorking`, only the job
/// may use it.
class Window {
public:
    Window() : state_(BrotliDecoderCreateInstance(nullptr, nullptr, nullptr)) {}
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;
    ~Window() { BrotliDecoderDestroyInstance(state_); }

    /// Appends `more` to the input and starts decoding it on the queue.
    static void fill(const std::shared_ptr<Window>& window, std::string_view more) {
        window->input_.erase(0, window->input_.size() - window->left_).append(more);
        window->left_ = window->input_.size();
        window->isWorking_ = true;
        window->queue_.async([window] {
            window->decompress();
            window->isWorking_ = false;
        });
    }

    bool isWorking() const { return isWorking_; }

    // The following must not be called while it works.

    bool isBroken() const { return state_ == nullptr || result_ == BROTLI_DECODER_RESULT_ERROR; }
    bool isOutOfMemory() const { return state_ == nullptr || lacksMemory(BrotliDecoderGetErrorCode(state_)); }
    bool hasEnded() const { return BrotliDecoderIsFinished(state_) == BROTLI_TRUE; }
    /// Whether it stopped because the window was full, so that it can continue without more input.
    bool wasFull() const { return result_ == BROTLI_DECODER_RESULT_NEEDS_MORE_OUTPUT; }
    /// The next bytes of the window, at most `maxSize` of them.
    std::string_view take(std::size_t maxSize) {
        // To brotli, zero means everything.
        if (maxSize == 0 || BrotliDecoderHasMoreOutput(state_) == BROTLI_FALSE) return {};
        std::size_t size = maxSize;
        const auto* const bytes = BrotliDecoderTakeOutput(state_, &size);
        return {reinterpret_cast<const char*>(bytes), size};
    }

private:
    void decompress() {
        if (state_ == nullptr) return;
        const std::uint8_t* next = bytesOf(input_) + (input_.size() - left_);
        std::size_t noSpace = 0;
        result_ = BrotliDecoderDecompressStream(state_, &left_, &next, &noSpace, nullptr, nullptr);
    }

    const DispatchQueue queue_{"vrk.http.brotli"};
    BrotliDecoderState* const state_;
    BrotliDecoderResult result_ = BROTLI_DECODER_RESULT_NEEDS_MORE_INPUT;
    std::string input_;
    std::size_t left_ = 0;
    std::atomic<bool> isWorking_ = false;
};

class BrotliDecoder final : public ContentDecoder {
public:
    BrotliDecoder() : state_(BrotliDecoderCreateInstance(&allocate, &deallocate, this)) {
        isOutOfMemory_ = state_ == nullptr;
    }
    ~BrotliDecoder() override { BrotliDecoderDestroyInstance(state_); }

    std::optional<std::size_t> decode(std::string_view& coded, char* plain, std::size_t size) override {
        if (window_) return decodeWithWindow(coded, plain, size);
        return state_ == nullptr ? std::nullopt : decodeInline(coded, plain, size);
    }

    bool hasMore() const override { return isPending_; }
    bool isWorking() const override { return window_ && window_->isWorking(); }

    bool hasEnded() const override {
        if (window_) return !window_->isWorking() && !window_->isBroken() && window_->hasEnded();
        return state_ != nullptr && BrotliDecoderIsFinished(state_) == BROTLI_TRUE;
    }

private:
    static void* allocate(void* decoder, std::size_t size) {
        auto& self = *static_cast<BrotliDecoder*>(decoder);
        if (self.mayMove_ && size > maxInlineAllocation) {
            self.needsMore_ = true;
            return nullptr;
        }
        return std::malloc(size);
    }
    static void deallocate(void*, void* memory) { std::free(memory); }

    std::optional<std::size_t> decodeInline(std::string_view& coded, char* plain, std::size_t size) {
        const auto* next = bytesOf(coded);
        std::size_t left = coded.size();
        auto* out = reinterpret_cast<std::uint8_t*>(plain);
        std::size_t outLeft = size;
        if (!hasEnded()) {
            const auto result = BrotliDecoderDecompressStream(state_, &left, &next, &outLeft, &out, nullptr);
            written_ += size - outLeft;
            if (needsMore_) {
                move(coded);
                return size - outLeft;
            }
            if (result == BROTLI_DECODER_RESULT_ERROR) {
                isOutOfMemory_ = lacksMemory(BrotliDecoderGetErrorCode(state_));
                return std::nullopt;
            }
        }
        if (mayMove_) keep(coded.substr(0, coded.size() - left));
        coded.remove_prefix(hasEnded() ? coded.size() : coded.size() - left);
        if (seen_.size() > maxSeen) move(coded);
        return size - outLeft;
    }

    void keep(std::string_view used) {
        // After this much output the window has reached its full size.
        mayMove_ = written_ <= maxInlineAllocation;
        if (mayMove_) {
            seen_.append(used);
        } else {
            seen_ = {};
        }
    }

    // Starts again from the beginning on another thread. `coded` is the rest of the input after `seen_`.
    void move(std::string_view& coded) {
        mayMove_ = false;
        seen_.append(coded);
        coded = {};
        window_ = std::make_shared<Window>();
        fill(seen_);
        seen_ = {};
        BrotliDecoderDestroyInstance(std::exchange(state_, nullptr));
    }

    void fill(std::string_view more) {
        isPending_ = true;
        Window::fill(window_, more);
    }

    std::optional<std::size_t> decodeWithWindow(std::string_view& coded, char* plain, std::size_t size) {
        if (window_->isWorking()) return 0;
        if (window_->isBroken()) {
            isOutOfMemory_ = window_->isOutOfMemory();
            return std::nullopt;
        }
        while (written_ > 0) {
            const std::size_t again = window_->take(written_).size();
            if (again == 0) break;
            written_ -= again;
        }
        std::size_t count = 0;
        while (count < size) {
            const std::string_view piece = window_->take(size - count);
            if (piece.empty()) break;
            std::memcpy(plain + count, piece.data(), piece.size());
            count += piece.size();
        }
        if (count == size) return count;
        isPending_ = false;
        if (!window_->hasEnded() && (window_->wasFull() || !coded.empty())) fill(coded);
        coded = {};
        return count;
    }

    // Whether decoding can still be moved to another thread if it needs much memory.
    bool mayMove_ = true;
    bool needsMore_ = false;
    // Declared after the flags, which `allocate` reads while the state is made.
    BrotliDecoderState* state_;
    std::string seen_;
    // How many bytes have been written; after the move, how many of them must still be skipped.
    std::size_t written_ = 0;
    std::shared_ptr<Window> window_;
    // Whether the window has output that was not taken yet.
    bool isPending_ = false;
};

}  // namespace

std::unique_ptr<ContentDecoder> makeBrotliDecoder() { return std::make_unique<BrotliDecoder>(); }

}  // namespace VanticRestKit::detail
