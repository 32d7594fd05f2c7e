// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace velquist::fuzz {

inline std::string_view TextOf(const std::uint8_t* data, std::size_t size)
{
  return {reinterpret_cast<const char*>(data), size};
}

/// What stands between the line ends.
inline std::vector<std::string> LinesOf(std::string_view text)
{
  std::vector<std::string> lines;
  while (!text.empty()) {
    const auto end = std::min(text.find('\n'), text.size());
    lines.emplace_back(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return lines;
}

/// Ends the run with the input as a finding unless `holds`.
inline void Require(bool holds, const char* claim)
{
  if (holds) return;
  std::fprintf(stderr, "does not hold: %s\n", claim);
  std::abort();
}

}  // namespace velquist::fuzz
