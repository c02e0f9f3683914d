#include "catalogue/Picture.h"

#include <cstdint>
#include <cstdio>
#include <vector>

namespace VanticRestKit::sample {

namespace {

struct Shape {
    const char* name;
    unsigned width;
    unsigned height;
    bool initialsOnly;  // too small for a title
};
constexpr Shape shapes[] = {
    {"landscape", 640, 360, false},       {"portrait", 400, 600, true},
    {"portrait-titled", 400, 600, false}, {"episode-portrait", 400, 600, true},
    {"character-1", 480, 480, true},      {"character-2", 480, 480, true},
    {"square", 480, 480, false},          {"logo", 480, 480, true},
    {"banner", 1280, 320, false},         {"banner-small", 640, 160, false},
};

std::uint32_t hashOf(const std::string& text) {
    std::uint32_t hash = 2'166'136'261U;
    for (const char byte : text) hash = (hash ^ static_cast<unsigned char>(byte)) * 16'777'619U;
    return hash;
}

std::string escaped(const std::string& text) {
    std::string result;
    for (const char c : text) {
        switch (c) {
            case '&': result += "&amp;"; break;
            case '<': result += "&lt;"; break;
            case '>': result += "&gt;"; break;
            case '"': result += "&quot;"; break;
            default: result += c;
        }
    }
    return result;
}

std::vector<std::string> words(const std::string& text) {
    std::vector<std::string> found(1);
    for (const char c : text) {
        if (c != ' ') {
            found.back() += c;
        } else if (!found.back().empty()) {
            found.emplace_back();
        }
    }
    return found;
}

std::vector<std::string> linesOf(const std::string& title, std::size_t width) {
    std::vector<std::string> lines(1);
    for (const auto& word : words(title)) {
        if (!lines.back().empty() && lines.back().size() + 1 + word.size() > width) lines.emplace_back();
        lines.back() += (lines.back().empty() ? "" : " ") + word;
    }
    return lines;
}

std::string initialsOf(const std::string& title) {
    std::string initials;
    for (const auto& word : words(title)) {
        if (word[0] >= 'A' && word[0] <= 'Z' && initials.size() < 3) initials += word[0];
    }
    return initials.empty() ? "?" : initials;
}

template <class... Values>
std::string format(const char* pattern, Values... values) {
    char text[512];
    std::snprintf(text, sizeof text, pattern, values...);
    return text;
}

/// A sky and three hills.
std::string ground(const Shape& shape, std::uint32_t hash) {
    const unsigned hue = hash % 360;
    std::string svg = format(R"svg(<rect width="%u" height="%u" fill="hsl(%u,45%%,30%%)"/>)svg", shape.width,
                             shape.height, hue);
    for (unsigned i = 0; i < 3; ++i) {
        const unsigned x = (hash >> (8 * i)) % shape.width;
        const unsigned radius = shape.height / 4 + (hash >> (5 * i)) % (shape.height / 3);
        svg += format(R"svg(<circle cx="%u" cy="%u" r="%u" fill="hsl(%u,50%%,%u%%)"/>)svg", x, shape.height,
                      radius, (hue + 25 + 20 * i) % 360, 36 + 6 * i);
    }
    return svg;
}

}  // namespace

std::string drawnPicture(const std::string& title, const std::string& name) {
    for (const Shape& shape : shapes) {
        if (name != shape.name) continue;
        std::string svg = format(
            R"svg(<svg xmlns="http://www.w3.org/2000/svg" width="%u" height="%u" viewBox="0 0 %u %u">)svg",
            shape.width, shape.height, shape.width, shape.height);
        svg += "<title>" + escaped(title) + "</title>" + ground(shape, hashOf(title + name));
        const unsigned size =
            shape.initialsOnly ? shape.width / 4 : (shape.width < 500 ? 44 : shape.height / 7);
        const auto lines = shape.initialsOnly ? std::vector<std::string>{initialsOf(title)}
                                              : linesOf(title, shape.width / size * 5 / 3);
        svg += format(
            R"svg(<g font-family="sans-serif" font-weight="bold" font-size="%u" fill="#fff" text-anchor="middle">)svg",
            size);
        unsigned y = shape.height / 2 - size * (static_cast<unsigned>(lines.size()) - 1) * 6 / 10 + size / 3;
        for (const auto& line : lines) {
            svg += format(R"svg(<text x="%u" y="%u">)svg", shape.width / 2, y) + escaped(line) + "</text>";
            y += size * 6 / 5;
        }
        return svg + "</g></svg>\n";
    }
    return {};
}

}  // namespace VanticRestKit::sample
