#pragma once
// The shipped figure files, built into the library from sql/parametri/ by
// parametri/CMakeLists.txt.
#include <span>
#include <string_view>

namespace avlor::parametri_detail {

struct ShippedParametriFile {
    std::string_view name; // "2014/tab02_....csv", "Affidabilita.csv"
    std::string_view text;
};

[[nodiscard]] std::span<const ShippedParametriFile> shippedParametriFiles() noexcept;

} // namespace avlor::parametri_detail
