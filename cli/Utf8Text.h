#pragma once
// Text as JSON can carry it. Older practice databases keep some texts in
// Latin-1 (a group name typed on a Windows workstation), and a caller can
// pass any bytes; JSON strings must be UTF-8. Valid UTF-8 passes unchanged;
// every byte that is not part of a valid UTF-8 sequence is read as the
// Latin-1 character of that byte, so "\xE0" (a Latin-1 "à") prints as "à"
// and nothing the database holds is dropped.
#include <string>
#include <string_view>

namespace avlor::cli {

[[nodiscard]] std::string utf8Text(std::string_view bytes);

} // namespace avlor::cli
