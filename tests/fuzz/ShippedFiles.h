// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "Fuzz.h"
#include "MemoryFiles.h"

namespace velquist::fuzz {

/// What ships beside the program, in "/program".
inline testing::MemoryFiles& ShippedFiles()
{
  static testing::MemoryFiles files;
  static const bool is_filled = [] {
    for (const auto& entry : std::filesystem::directory_iterator(VELQUIST_PROGRAM_FILES)) {
      if (!entry.is_regular_file()) continue;
      std::ifstream stream(entry.path(), std::ios::binary);
      std::ostringstream content;
      content << stream.rdbuf();
      files.Put("/program/" + entry.path().filename().string(), content.str());
    }
    return true;
  }();
  Require(is_filled && files.Exists("/program/67 Setup Data.ini"), "the shipped files are there");
  return files;
}

}  // namespace velquist::fuzz
