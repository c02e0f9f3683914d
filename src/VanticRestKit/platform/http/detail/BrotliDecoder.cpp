#include <VanticRestKit/platform/http/detail/BrotliDecoder.h>

#include <brotli/decode.h>
#include <cstdint>

namespace VanticRestKit::detail {

namespace {

// The errors of allocation are a range.
bool lacksMemory(BrotliDecoderErrorCode error) {
    return error <= BROTLI_DECODER_ERROR_ALLOC_CONTEXT_MODES &&
           error >= BROTLI_DECODER_ERROR_ALLOC_BLOCK_TYPE_TREES;
}

class BrotliDecoder final : public ContentDecoder {
public:
    BrotliDecoder() : state_(BrotliDecoderCreateInstance(nullptr, nullptr, nullptr)) {
        isOutOfMemory_ = state_ == nullptr;
    }
    ~BrotliDecoder() override { BrotliDecoderDestroyInstance(state_); }

    std::optional<std::size_t> decode(std::string_view& coded, char* plain, std::size_t size) override {
        if (state_ == nullptr) return std::nullopt;
        const auto* next = reinterpret_cast<const std::uint8_t*>(coded.data());
        std::size_t left = coded.size();
        auto* out = reinterpret_cast<std::uint8_t*>(plain);
        std::size_t outLeft = size;
        if (!hasEnded()) {
            const auto answer = BrotliDecoderDecompressStream(state_, &left, &next, &outLeft, &out, nullptr);
            if (answer == BROTLI_DECODER_RESULT_ERROR) {
                isOutOfMemory_ = lacksMemory(BrotliDecoderGetErrorCode(state_));
                return std::nullopt;
            }
        }
        coded.remove_prefix(hasEnded() ? coded.size() : coded.size() - left);
        return size - outLeft;
    }

    bool hasEnded() const override {
        return state_ != nullptr && BrotliDecoderIsFinished(state_) == BROTLI_TRUE;
    }

private:
    BrotliDecoderState* state_;
};

}  // namespace

std::unique_ptr<ContentDecoder> makeBrotliDecoder() { return std::make_unique<BrotliDecoder>(); }

}  // namespace VanticRestKit::detail
