#include <VanticRestKit/platform/http/detail/Inflater.h>

#include <zlib.h>
#include <algorithm>
#include <cstddef>
#include <limits>
#include <string>

namespace VanticRestKit::detail {

namespace {

// The argument of inflateInit2 for each format: 15 is the largest window, adding 16 selects gzip, and a negative value
// a raw stream.
constexpr int gzipFrame = 15 + 16;
constexpr int zlibFrame = 15;
constexpr int noFrame = -15;

constexpr std::size_t maxAtOnce = std::numeric_limits<uInt>::max();

bool beginsZlibFrame(unsigned first, unsigned second) {
    constexpr unsigned deflateMethod = 8;
    return (first & 0x0FU) == deflateMethod && (first * 256 + second) % 31 == 0;
}

class Inflater final : public ContentDecoder {
public:
    explicit Inflater(bool isGzip) : isGzip_(isGzip) {}
    ~Inflater() override {
        if (isReady_) inflateEnd(&stream_);
    }

    std::optional<std::size_t> decode(std::string_view& coded, char* plain, std::size_t size) override {
        stream_.next_out = reinterpret_cast<Bytef*>(plain);
        stream_.avail_out = static_cast<uInt>(std::min(size, maxAtOnce));
        const uInt available = stream_.avail_out;
        if (!isReady_) {
            // The first two bytes determine the format of a deflate body; they may arrive one at a time.
            if (!isGzip_ && head_.size() + coded.size() < 2) {
                head_ += coded;
                coded = {};
                return 0;
            }
            if (!begin(coded)) return std::nullopt;
            // A single byte produces no output yet.
            std::string_view head = head_;
            if (!head.empty() && !inflateAll(head)) return std::nullopt;
        }
        if (!inflateAll(coded)) return std::nullopt;
        return available - stream_.avail_out;
    }

    bool hasEnded() const override { return hasEnded_; }

private:
    bool begin(std::string_view coded) {
        int frame = gzipFrame;
        if (!isGzip_) {
            const auto byte = [this, coded](std::size_t i) {
                return static_cast<unsigned char>(i < head_.size() ? head_[i] : coded[i - head_.size()]);
            };
            frame = beginsZlibFrame(byte(0), byte(1)) ? zlibFrame : noFrame;
        }
        const int result = inflateInit2(&stream_, frame);
        isReady_ = result == Z_OK;
        isOutOfMemory_ = result == Z_MEM_ERROR;
        return isReady_;
    }

    // Inflates until `coded` is used up or the output is full. Returns whether the coding is valid so far.
    bool inflateAll(std::string_view& coded) {
        while (true) {
            // zlib does not write to its input, although the pointer is not const.
            stream_.next_in = const_cast<Bytef*>(reinterpret_cast<const Bytef*>(coded.data()));
            stream_.avail_in = static_cast<uInt>(std::min(coded.size(), maxAtOnce));
            if (hasEnded_ && !beginNext()) {
                coded = {};
                return true;
            }
            const uInt offered = stream_.avail_in;
            const int result = inflate(&stream_, Z_NO_FLUSH);
            coded.remove_prefix(offered - stream_.avail_in);
            isOutOfMemory_ = result == Z_MEM_ERROR;
            hasEnded_ = result == Z_STREAM_END;
            // It needs more input, or more space for its output.
            if (result == Z_BUF_ERROR) return true;
            if (result != Z_OK && !hasEnded_) return false;
            if (stream_.avail_out == 0 || coded.empty()) return true;
        }
    }

    // Whether another gzip member follows the one that ended. After anything else the rest of the body is ignored, even
    // if a later piece looks like the start of a member.
    bool beginNext() {
        constexpr Bytef gzipMark = 0x1F;
        if (stream_.avail_in == 0) return false;
        ignoresRest_ |= !isGzip_ || *stream_.next_in != gzipMark;
        if (ignoresRest_) return false;
        hasEnded_ = inflateReset(&stream_) != Z_OK;
        return !hasEnded_;
    }

    const bool isGzip_;
    bool isReady_ = false;
    bool hasEnded_ = false;
    bool ignoresRest_ = false;
    z_stream stream_{};
    std::string head_;
};

}  // namespace

std::unique_ptr<ContentDecoder> makeGzipDecoder() { return std::make_unique<Inflater>(true); }

std::unique_ptr<ContentDecoder> makeDeflateDecoder() { return std::make_unique<Inflater>(false); }

}  // namespace VanticRestKit::detail
