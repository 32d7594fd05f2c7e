// SPDX-License-Identifier: MIT
#include "platform/CommandLine.h"

#include "platform/Paths.h"

#ifdef _WIN32
#include <windows.h>

#include <filesystem>

#include "platform/HostFileSystem.h"
#endif

namespace velquist::platform {
namespace {

constexpr std::string_view kDirectoryOption = "--program-directory=";
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

bool IsDirectoryOption(std::string_view word)
{
  return word.starts_with(kDirectoryOption);
}

}  // namespace

CommandLine FromWords(const std::vector<std::string>& words)
{
  CommandLine line;
  std::string text;
  for (const auto& word : words) {
    if (&word == words.data() && IsDirectoryOption(word)) {
      line.program_directory = word.substr(kDirectoryOption.size());
      continue;
    }
    if (!text.empty()) text += ' ';
    text += word;
  }
  line.text = WithoutQuotes(text);
  return line;
}

CommandLine FromWholeText(std::string_view text)
{
  CommandLine line;
  std::string_view rest = text;
  const std::string first = TakeWord(rest);
  if (IsDirectoryOption(first)) {
    line.program_directory = first.substr(kDirectoryOption.size());
    text = rest;
  }
  line.text = WithoutQuotes(WithoutBlanks(text));
  return line;
}

#ifdef _WIN32

CommandLine ReadCommandLine(int /*argc*/, char** /*argv*/)
{
  const std::string whole = PathText(std::filesystem::path(::GetCommandLineW()));
  std::string_view text = whole;
  (void)TakeWord(text);
  return FromWholeText(text);
}

#else

CommandLine ReadCommandLine(int argc, char** argv)
{
  return FromWords({argv + 1, argv + argc});
}

#endif

}  // namespace velquist::platform
