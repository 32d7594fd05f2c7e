// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include "platform/FileSystem.h"

namespace velquist::data {

/// The whole file as text. Throws FileError.
[[nodiscard]] inline std::string ReadText(const platform::FileSystem& files, std::string_view path)
{
  const auto bytes = files.ReadWhole(path);
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

}  // namespace velquist::data
