// SPDX-License-Identifier: MIT
#include "platform/CommandLine.h"

#include <charconv>
#include <filesystem>
#include <system_error>
#include <utility>

#include "platform/HostFileSystem.h"
#include "platform/HostPath.h"
#include "platform/Paths.h"

#ifdef _WIN32
#include <windows.h>
#endif

namespace velquist::platform {
namespace {

constexpr std::string_view kDirectoryOption = "--program-directory=";
constexpr std::string_view kPlaceOption = "--window-at=";
constexpr std::string_view kBlanks = " \t";

std::string_view WithoutBlanks(std::string_view text)
{
  const auto first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

/// Takes the first word off `text`: up to a blank outside quotes, the quotes left out.
std::string TakeWord(std::string_view& text)
{
  text = WithoutBlanks(text);
  std::string word;
  bool quoted = false;
  std::size_t at = 0;
  for (; at < text.size(); ++at) {
    if (text[at] == '"')
      quoted = !quoted;
    else if (!quoted && kBlanks.find(text[at]) != std::string_view::npos)
      break;
    else
      word += text[at];
  }
  text = WithoutBlanks(text.substr(at));
  return word;
}

std::optional<ScreenPlace> ReadPlace(std::string_view text)
{
  ScreenPlace place;
  const char* const end = text.data() + text.size();
  const auto left = std::from_chars(text.data(), end, place.left);
  if (left.ec != std::errc() || left.ptr == end || *left.ptr != ',') return std::nullopt;
  const auto top = std::from_chars(left.ptr + 1, end, place.top);
  if (top.ec != std::errc() || top.ptr != end) return std::nullopt;
  return place;
}

/// Takes what `word` says into `line`; false when it is no option.
bool TakeOption(std::string_view word, CommandLine& line)
{
  if (word.starts_with(kDirectoryOption))
    line.program_directory = word.substr(kDirectoryOption.size());
  else if (word.starts_with(kPlaceOption))
    line.window_at = ReadPlace(word.substr(kPlaceOption.size()));
  else
    return false;
  return true;
}

CommandLine WithWholePath(CommandLine line)
{
  line.text = WholePath(std::move(line.text));
  return line;
}

}  // namespace

CommandLine FromWords(const std::vector<std::string>& words)
{
  CommandLine line;
  std::string text;
  auto word = words.begin();
  while (word != words.end() && TakeOption(*word, line)) ++word;
  for (; word != words.end(); ++word) {
    if (!text.empty()) text += ' ';
    text += *word;
  }
  line.text = WithoutQuotes(text);
  return line;
}

CommandLine FromWholeText(std::string_view text)
{
  CommandLine line;
  std::string_view rest = text;
  while (TakeOption(TakeWord(rest), line)) text = rest;
  line.text = WithoutQuotes(WithoutBlanks(text));
  return line;
}

std::string WholePath(std::string text)
{
  const auto path = HostPath(text);
  if (path.empty() || path.has_root_path()) return text;
  std::error_code error;
  const auto here = std::filesystem::current_path(error);
  return error ? text : PathText((here / path).lexically_normal());
}

#ifdef _WIN32

CommandLine ReadCommandLine(int /*argc*/, char** /*argv*/)
{
  const std::string whole = PathText(std::filesystem::path(::GetCommandLineW()));
  std::string_view text = whole;
  (void)TakeWord(text);
  return WithWholePath(FromWholeText(text));
}

#else

CommandLine ReadCommandLine(int argc, char** argv)
{
  return WithWholePath(FromWords({argv + 1, argv + argc}));
}

#endif

}  // namespace velquist::platform
