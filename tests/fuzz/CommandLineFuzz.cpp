// SPDX-License-Identifier: MIT
// The input is the command line of the window's program: a text, or words, a line each.
#include <cstdint>
#include <string>
#include <vector>

#include "Fuzz.h"
#include "platform/CommandLine.h"
#include "platform/Paths.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
  using namespace velquist;
  using fuzz::Require;
  const std::string text(fuzz::TextOf(data, size));
  const auto whole = platform::FromWholeText(text);
  Require(text.find(whole.text) != std::string::npos, "the path is part of the text");
  const auto words = fuzz::LinesOf(text);
  const auto joined = platform::FromWords(words);
  Require(joined.text.size() <= text.size(), "nothing is added");
  const bool has_option = !words.empty() && words.front().starts_with("--");
  if (!has_option) {
    Require(!joined.program_directory && !joined.window_at, "options stand in front");
    std::string all;
    for (const auto& word : words) all.append(all.empty() ? "" : " ").append(word);
    Require(joined.text == platform::WithoutQuotes(all), "words are joined by blanks");
  }
  if (text.find('\0') == std::string::npos) {
    const auto path = platform::WholePath(joined.text);
    Require(platform::WholePath(path) == path, "a whole path stays");
  }
  return 0;
}
