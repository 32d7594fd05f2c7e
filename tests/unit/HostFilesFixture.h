// SPDX-License-Identifier: MIT
// What the tests of the file system share: one file in a folder of a few levels, and how errors are
// told.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>

#include "TemporaryFolder.h"
#include "platform/Errors.h"
#include "platform/HostFileSystem.h"

namespace velquist::platform {

namespace fs = std::filesystem;
using namespace velquist::samples;

/// The error that `action` ends with: "PATH | REASON", or that there was none.
template <class Action>
std::string ErrorOf(const Action& action)
{
  try {
    action();
  } catch (const FileError& error) {
    EXPECT_EQ(error.what(), error.Path() + ": " + error.Reason());
    return error.Path() + " | " + error.Reason();
  }
  return "no error";
}

inline std::string Expected(std::string_view path, std::errc reason)
{
  return std::string(path) + " | " + std::make_error_code(reason).message();
}

class HostFiles : public ::testing::Test {
 protected:
  HostFiles()
  {
    fs::create_directories(folder / "Players/Me/Setups/Monza");
    WriteFile(folder / "Players/Me/Setups/Monza/Fast Lap.LO1", "PGTS fast");
  }

  [[nodiscard]] std::string At(std::string_view path) const
  {
    return folder.Text() + std::string(path);
  }

  TemporaryFolder folder;
  HostFileSystem files;
};

}  // namespace velquist::platform
