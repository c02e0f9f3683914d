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

// Brotli writes nothing until the window of the body is full or its input is used up, and a window is as large as the
// body asks for: up to 16 MB, which takes some 100 ms on a busy machine. A body that needs more than this at once is
// decoded on another thread: 256 KB, and what brotli puts around them.
constexpr std::size_t maxHere = 260 * 1024;
// How much of a body is kept in case that it has to be decoded anew there.
constexpr std::size_t maxSeen = 1024 * 1024;

// The errors of allocation are a range.
bool lacksMemory(BrotliDecoderErrorCode error) {
    return error <= BROTLI_DECODER_ERROR_ALLOC_CONTEXT_MODES &&
           error >= BROTLI_DECODER_ERROR_ALLOC_BLOCK_TYPE_TREES;
}

const std::uint8_t* bytesOf(std::string_view text) {
    return reinterpret_cast<const std::uint8_t*>(text.data());
}

/// Decodes a body window by window on a queue of its own. The decoder and its job share it, and it belongs to the job
/// while `isWorking`.
class Window {
public:
    Window() : state_(BrotliDecoderCreateInstance(nullptr, nullptr, nullptr)) {}
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;
    ~Window() { BrotliDecoderDestroyInstance(state_); }

    /// Fills the window with more of the input, which `more` is added to.
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

    // The following are to be called while it does not work.

    bool isBroken() const { return state_ == nullptr || result_ == BROTLI_DECODER_RESULT_ERROR; }
    bool isOutOfMemory() const { return state_ == nullptr || lacksMemory(BrotliDecoderGetErrorCode(state_)); }
    bool hasEnded() const { return BrotliDecoderIsFinished(state_) == BROTLI_TRUE; }
    /// Whether it stopped because the window was full, so that it may go on without more input.
    bool wasFull() const { return result_ == BROTLI_DECODER_RESULT_NEEDS_MORE_OUTPUT; }
    /// The next bytes of the window, `most` of them at most.
    std::string_view take(std::size_t most) {
        // Zero stands for all there is.
        if (most == 0 || BrotliDecoderHasMoreOutput(state_) == BROTLI_FALSE) return {};
        std::size_t size = most;
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
        if (window_) return decodeThere(coded, plain, size);
        return state_ == nullptr ? std::nullopt : decodeHere(coded, plain, size);
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
        if (self.mayMove_ && size > maxHere) {
            self.needsMore_ = true;
            return nullptr;
        }
        return std::malloc(size);
    }
    static void deallocate(void*, void* memory) { std::free(memory); }

    std::optional<std::size_t> decodeHere(std::string_view& coded, char* plain, std::size_t size) {
        const auto* next = bytesOf(coded);
        std::size_t left = coded.size();
        auto* out = reinterpret_cast<std::uint8_t*>(plain);
        std::size_t outLeft = size;
        if (!hasEnded()) {
            const auto answer = BrotliDecoderDecompressStream(state_, &left, &next, &outLeft, &out, nullptr);
            written_ += size - outLeft;
            if (needsMore_) {
                move(coded);
                return size - outLeft;
            }
            if (answer == BROTLI_DECODER_RESULT_ERROR) {
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
        // So much came out of one window that it is as large as it will be.
        mayMove_ = written_ <= maxHere;
        if (mayMove_) {
            seen_.append(used);
        } else {
            seen_ = {};
        }
    }

    // Begins anew on another thread. `coded` is all that is to follow what was seen.
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

    std::optional<std::size_t> decodeThere(std::string_view& coded, char* plain, std::size_t size) {
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

    // Whether a body that needs much memory is to be moved to another thread.
    bool mayMove_ = true;
    bool needsMore_ = false;
    // Declared after the flags: `allocate` reads them while the state is made.
    BrotliDecoderState* state_;
    std::string seen_;
    // How many bytes have been written; after the move, how many of them are still to be passed over.
    std::size_t written_ = 0;
    std::shared_ptr<Window> window_;
    // Whether the window was filled and not taken out whole.
    bool isPending_ = false;
};

}  // namespace

std::unique_ptr<ContentDecoder> makeBrotliDecoder() { return std::make_unique<BrotliDecoder>(); }

}  // namespace VanticRestKit::detail
