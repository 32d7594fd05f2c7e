// SPDX-License-Identifier: MIT
#include "platform_wx/WxText.h"

#include <wx/control.h>

namespace velquist::platform {

wxString FromText(std::string_view text)
{
  wxString shown = wxString::FromUTF8(text.data(), text.size());
  if (shown.empty() && !text.empty()) shown = wxString::From8BitData(text.data(), text.size());
  return shown;
}

std::string ToText(const wxString& text)
{
  const auto bytes = text.utf8_str();
  return {bytes.data(), bytes.length()};
}

wxString FromPlainText(std::string_view text)
{
  return wxControl::EscapeMnemonics(FromText(text));
}

}  // namespace velquist::platform
