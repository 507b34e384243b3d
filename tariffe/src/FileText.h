#pragma once
#include <filesystem>
#include <string>

namespace avlor::tariffe_detail {

// The whole content of a file; Error naming the file and the system's
// reason when it cannot be read.
[[nodiscard]] std::string readFileText(const std::filesystem::path& path);

} // namespace avlor::tariffe_detail
