// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace velquist::fuzz {

inline std::string_view TextOf(const std::uint8_t* data, std::size_t size)
{
  return {reinterpret_cast<const char*>(data), size};
}

/// Ends the run with the input as a finding unless `holds`.
inline void Require(bool holds, const char* claim)
{
  if (holds) return;
  std::fprintf(stderr, "does not hold: %s\n", claim);
  std::abort();
}

}  // namespace velquist::fuzz
