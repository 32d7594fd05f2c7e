// SPDX-License-Identifier: MIT
#pragma once

#include <wx/string.h>

#include <string>
#include <string_view>

namespace velquist::platform {

/// The program's UTF-8 text as the toolkit's. Bytes that are no UTF-8, such as an old directory
/// name, are taken as Latin-1, so that something is shown for them.
[[nodiscard]] wxString FromText(std::string_view text);
[[nodiscard]] std::string ToText(const wxString& text);

/// As FromText, for a place where `&` would mark a mnemonic.
[[nodiscard]] wxString FromPlainText(std::string_view text);

}  // namespace velquist::platform
