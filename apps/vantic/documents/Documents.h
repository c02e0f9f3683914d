#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace vantic {

/// A file, or standard input, as bytes. All functions throw `Failed` if it cannot be read.
class Input {
public:
    /// Standard input if no file is named, or "-".
    explicit Input(const std::optional<std::string>& file);
    ~Input();
    Input(const Input&) = delete;
    Input& operator=(const Input&) = delete;

    /// Everything that is left.
    std::string readAll();

    /// The next line without its line feed; nothing else is taken from it. The last line may lack the line
    /// feed. Empty at the end. The view lives until the next call.
    std::optional<std::string_view> readLine();

private:
    bool readBlock();

    int file_;
    std::string name_;
    std::string bytes_;
    std::size_t at_ = 0;
};

}  // namespace vantic
