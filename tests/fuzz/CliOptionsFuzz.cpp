// SPDX-License-Identifier: MIT
// The input is the words of the command line program, a line each.
#include <cstdint>

#include "Fuzz.h"
#include "cli/Options.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
  using namespace velquist;
  using fuzz::Require;
  cli::Options options;
  const auto words = fuzz::LinesOf(fuzz::TextOf(data, size));
  if (const auto answer = cli::ReadOptions(words, options)) {
    Require(!answer->text.empty(), "an answer says something");
    return 0;
  }
  Require(!options.paths.empty(), "one path at least");
  if (options.hints.formula_index)
    Require(*options.hints.formula_index >= 0 && *options.hints.formula_index < 3, "a formula");
  if (options.command == cli::Command::kConvert)
    Require(options.to.has_value() && options.paths.size() == 1, "one file is converted to one");
  if (options.command == cli::Command::kCompare)
    Require(options.paths.size() == 2, "two files are compared");
  return 0;
}
