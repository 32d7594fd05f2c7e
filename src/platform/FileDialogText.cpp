// SPDX-License-Identifier: MIT
#include "platform/FileDialogText.h"

#include "platform/Paths.h"

namespace velquist::platform {
namespace {

constexpr std::string_view kWildcards = "*?";

/// What stands in `text` up to `separator`; `text` goes on behind it.
std::string_view TakeUpTo(std::string_view& text, char separator)
{
  const auto at = text.find(separator);
  const auto taken = text.substr(0, at);
  text = at == std::string_view::npos ? std::string_view{} : text.substr(at + 1);
  return taken;
}

std::string AnyCasePattern(std::string_view pattern)
{
  std::string any_case;
  for (const char c : pattern) {
    const bool lower = c >= 'a' && c <= 'z';
    const bool upper = c >= 'A' && c <= 'Z';
    if (lower || upper) {
      const char other = static_cast<char>(lower ? c - 'a' + 'A' : c - 'A' + 'a');
      any_case.append({'[', lower ? c : other, lower ? other : c, ']'});
    } else {
      any_case.push_back(c);
    }
  }
  return any_case;
}

}  // namespace

DialogStart SplitStart(std::string_view start)
{
  const auto name = FileNameOf(start);
  const bool pattern = name.find_first_of(kWildcards) != std::string_view::npos;
  return {std::string(DirectoryOf(start)), pattern ? std::string{} : std::string(name)};
}

std::string AnyCaseFilter(std::string_view filter)
{
  std::string result;
  while (!filter.empty()) {
    if (!result.empty()) result += '|';
    result += TakeUpTo(filter, '|');
    result += '|';
    auto patterns = TakeUpTo(filter, '|');
    bool first = true;
    while (!patterns.empty()) {
      const auto pattern = TakeUpTo(patterns, ';');
      if (pattern.empty()) continue;
      if (!first) result += ';';
      first = false;
      result += AnyCasePattern(pattern);
    }
  }
  return result;
}

}  // namespace velquist::platform
