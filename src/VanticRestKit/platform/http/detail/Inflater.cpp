#include <VanticRestKit/platform/http/detail/Inflater.h>

#include <zlib.h>
#include <algorithm>
#include <array>
#include <limits>
#include <string>

namespace VanticRestKit::detail {

namespace {

// What inflateInit2 takes for each frame: 15 is the largest window, 16 more asks for gzip, less than 0 for
// none.
constexpr int gzipFrame = 15 + 16;
constexpr int zlibFrame = 15;
constexpr int noFrame = -15;

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

    bool decode(std::string_view coded, ByteBuffer& plain) override {
        if (!isReady_) {
            // The first two bytes tell the frame of a deflate; they may come one by one.
            head_ += coded;
            if (!isGzip_ && head_.size() < 2) return true;
            if (!begin()) return false;
            const std::string head = std::move(head_);
            return inflateAll(head, plain);
        }
        return inflateAll(coded, plain);
    }

    bool hasEnded() const override { return hasEnded_; }

private:
    bool begin() {
        int frame = gzipFrame;
        if (!isGzip_) {
            const auto byte = [this](std::size_t i) { return static_cast<unsigned char>(head_[i]); };
            frame = beginsZlibFrame(byte(0), byte(1)) ? zlibFrame : noFrame;
        }
        const int answer = inflateInit2(&stream_, frame);
        isReady_ = answer == Z_OK;
        isOutOfMemory_ = answer == Z_MEM_ERROR;
        return isReady_;
    }

    bool inflateAll(std::string_view coded, ByteBuffer& plain) {
        while (!coded.empty()) {
            constexpr std::size_t most = std::numeric_limits<uInt>::max();
            const std::string_view piece = coded.substr(0, most);
            if (!inflatePiece(piece, plain)) return false;
            coded.remove_prefix(piece.size());
        }
        return true;
    }

    bool inflatePiece(std::string_view coded, ByteBuffer& plain) {
        // zlib does not write to its input; its interface only fails to say so.
        stream_.next_in = const_cast<Bytef*>(reinterpret_cast<const Bytef*>(coded.data()));
        stream_.avail_in = static_cast<uInt>(coded.size());
        std::array<char, 32 * 1024> room;
        while (true) {
            if (hasEnded_ && !beginNext()) return true;
            stream_.next_out = reinterpret_cast<Bytef*>(room.data());
            stream_.avail_out = static_cast<uInt>(room.size());
            const int answer = inflate(&stream_, Z_NO_FLUSH);
            if (!plain.append({room.data(), room.size() - stream_.avail_out})) return false;
            isOutOfMemory_ = answer == Z_MEM_ERROR;
            hasEnded_ = answer == Z_STREAM_END;
            if (answer == Z_BUF_ERROR) return true;
            if (answer != Z_OK && !hasEnded_) return false;
            if (stream_.avail_in == 0 && stream_.avail_out != 0) return true;
        }
    }

    // Whether another gzip file follows the one that ended.
    bool beginNext() {
        constexpr Bytef gzipMark = 0x1F;
        if (!isGzip_ || stream_.avail_in == 0 || *stream_.next_in != gzipMark) return false;
        hasEnded_ = inflateReset(&stream_) != Z_OK;
        return !hasEnded_;
    }

    const bool isGzip_;
    bool isReady_ = false;
    bool hasEnded_ = false;
    z_stream stream_{};
    std::string head_;
};

}  // namespace

std::unique_ptr<ContentDecoder> makeGzipDecoder() { return std::make_unique<Inflater>(true); }

std::unique_ptr<ContentDecoder> makeDeflateDecoder() { return std::make_unique<Inflater>(false); }

}  // namespace VanticRestKit::detail
