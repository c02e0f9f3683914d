#include <VanticRestKit/lumeno/Playlist/Streams.h>

#include <VanticRestKit/platform/json/Table.h>

namespace VanticRestKit {

template <>
const TypePlan& planOf<StreamInfo>() {
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<StreamInfo>(
        lenient<&StreamInfo::sd>("sd"),
        lenient<&StreamInfo::sdLow>("sd-low"),
        lenient<&StreamInfo::hd720>("720"),
        lenient<&StreamInfo::hd1080>("1080"),
        lenient<&StreamInfo::protected_>("protected"));
    // clang-format on
    return plan;
}

std::vector<StreamInfo::StreamLevel> StreamInfo::StreamLevel::highToLow() {
    return {hd1080, hd720, sd, sdLow};
}

std::vector<StreamInfo::StreamLevel> StreamInfo::StreamLevel::lowToHigh() {
    const std::vector<StreamLevel> levels = highToLow();
    return {levels.rbegin(), levels.rend()};
}

std::optional<std::string> StreamInfo::url(LevelArgument argument) const {
    switch (argument.for_.value()) {
        case StreamLevel::sd: return sd;
        case StreamLevel::sdLow: return sdLow;
        case StreamLevel::hd720: return hd720;
        case StreamLevel::hd1080: return hd1080;
    }
    return std::nullopt;
}

std::optional<std::string> StreamInfo::url(PreferenceArgument argument) const {
    for (const StreamLevel level :
         argument.preferHighest.value() ? StreamLevel::highToLow() : StreamLevel::lowToHigh()) {
        std::optional<std::string> address = url({.for_ = level});
        if (address) return address;
    }
    return std::nullopt;
}

template <>
const TypePlan& planOf<Streams>() {
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<Streams>(
        optional<&Streams::mpegdash>("mpegdash"),
        optional<&Streams::fairplay>("fairplay"),
        required<&Streams::hls>("hls"));
    // clang-format on
    return plan;
}

}  // namespace VanticRestKit
