#include <VanticRestKit/platform/http/detail/BrotliDecoder.h>

#include <brotli/decode.h>
#include <array>

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

    bool decode(std::string_view coded, ByteBuffer& plain) override {
        if (state_ == nullptr) return false;
        if (hasEnded()) return true;
        const auto* next = reinterpret_cast<const std::uint8_t*>(coded.data());
        std::size_t left = coded.size();
        std::array<char, 32 * 1024> room;
        while (true) {
            auto* out = reinterpret_cast<std::uint8_t*>(room.data());
            std::size_t outLeft = room.size();
            const auto answer = BrotliDecoderDecompressStream(state_, &left, &next, &outLeft, &out, nullptr);
            if (!plain.append({room.data(), room.size() - outLeft})) return false;
            if (answer == BROTLI_DECODER_RESULT_ERROR) {
                isOutOfMemory_ = lacksMemory(BrotliDecoderGetErrorCode(state_));
                return false;
            }
            if (answer != BROTLI_DECODER_RESULT_NEEDS_MORE_OUTPUT) return true;
        }
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
