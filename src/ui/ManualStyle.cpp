// SPDX-License-Identifier: MIT
#include "ui/ManualStyle.h"

#include <algorithm>

#include "platform_wx/NativeLook.h"

namespace velquist::ui {
namespace {

// In letters of middling width.
constexpr int kIndent = 3;
constexpr int kColumn = 24;

bool IsHeading(const wxString& line, const wxString& before)
{
  return before.empty() && !line.empty() && line == line.Upper() && line != line.Lower();
}

}  // namespace

void StyleManual(wxTextCtrl& text)
{
  const int letter = text.GetTextExtent("n").x;
  const int indent = platform::TenthsOfMillimeter(text, kIndent * letter);
  const int column = platform::TenthsOfMillimeter(text, kColumn * letter);
  wxArrayInt tabs;
  tabs.push_back(indent);
  tabs.push_back(column);
  const auto item = [&](int further_lines) {
    wxTextAttr style;
    style.SetTabs(tabs);
    style.SetLeftIndent(0, further_lines);
    return style;
  };
  const wxTextAttr plain_item = item(indent);
  const wxTextAttr term = item(column);
  wxTextAttr heading;
  heading.SetFont(text.GetFont().Bold());

  const wxString all = text.GetValue();
  wxString before;
  for (std::size_t begin = 0; begin < all.length();) {
    const std::size_t end = std::min(all.find('\n', begin), all.length());
    wxString line = all.substr(begin, end - begin);
    line.Trim();  // some systems keep the first half of a line's end
    const auto from = static_cast<long>(begin);
    const auto to = static_cast<long>(end);
    if (line.StartsWith("\t"))
      text.SetStyle(from, to, line.find('\t', 1) == wxString::npos ? plain_item : term);
    else if (begin == 0 || IsHeading(line, before))
      text.SetStyle(from, to, heading);
    before = line;
    begin = end + 1;
  }
}

}  // namespace velquist::ui
