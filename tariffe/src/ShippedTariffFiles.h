#pragma once
// The official fee-table files as built into the library from sql/tariffe/
// (the generated ShippedTariffFiles.cpp): each file's name and its whole text.
#include <span>
#include <string_view>

namespace avlor::tariffe_detail {

struct ShippedTariffFile {
    std::string_view name; // "FonteTariffe.csv", "Onorari2004Euro.csv", ...
    std::string_view text;
};

// Every shipped file, in order of name.
[[nodiscard]] std::span<const ShippedTariffFile> shippedTariffFiles() noexcept;

} // namespace avlor::tariffe_detail
