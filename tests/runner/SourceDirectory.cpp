// SPDX-License-Identifier: MIT
#include "runner/SourceDirectory.h"

namespace velquist::testing {

const std::filesystem::path& SourceDirectory()
{
  static const std::filesystem::path directory = VELQUIST_SOURCE_DIR;
  return directory;
}

}  // namespace velquist::testing
