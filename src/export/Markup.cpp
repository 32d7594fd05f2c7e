// SPDX-License-Identifier: MIT
#include "export/Markup.h"

#include "platform/TextEncoding.h"

namespace velquist::text_export {

std::string Escaped(std::string_view text)
{
  std::string escaped;
  for (const char c : platform::InUtf8(text)) {
    switch (c) {
      case '&': escaped += "&amp;"; break;
      case '<': escaped += "&lt;"; break;
      case '>': escaped += "&gt;"; break;
      case '"': escaped += "&quot;"; break;
      default:
        if (static_cast<unsigned char>(c) < ' ')
          escaped += "\xEF\xBF\xBD";
        else
          escaped += c;
    }
  }
  return escaped;
}

}  // namespace velquist::text_export
