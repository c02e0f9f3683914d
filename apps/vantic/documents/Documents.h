#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace vantic {

/// The bytes of a file or of standard input. All functions throw `Failed` if reading fails.
class Input {
public:
    /// Opens the file, or standard input if it is empty or "-".
    explicit Input(const std::optional<std::string>& file);
    ~Input();
    Input(const Input&) = delete;
    Input& operator=(const Input&) = delete;

    /// The rest of the input.
    std::string readAll();

    /// The next line, without its line feed but otherwise unchanged. The last line may have no line feed. Empty at the
    /// end. The view is valid until the next call.
    std::optional<std::string_view> readLine();

private:
    bool readBlock();

    int file_;
    std::string name_;
    std::string bytes_;
    std::size_t at_ = 0;
};

}  // namespace vantic
