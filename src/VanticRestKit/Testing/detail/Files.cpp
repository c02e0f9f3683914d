#include <VanticRestKit/Testing/detail/Files.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>

namespace VanticRestKit::Testing::detail {

std::optional<std::string> readFile(const std::string& path) {
    std::error_code ignored;
    if (!std::filesystem::is_regular_file(path, ignored)) return std::nullopt;
    std::ifstream file(path, std::ios::binary);
    if (!file) return std::nullopt;
    return std::string(std::istreambuf_iterator<char>(file), {});
}

bool writeFile(const std::string& path, std::string_view content) {
    std::error_code ignored;
    std::filesystem::create_directories(std::filesystem::path(path).parent_path(), ignored);
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file << content;
    return static_cast<bool>(file.flush());
}

}  // namespace VanticRestKit::Testing::detail
