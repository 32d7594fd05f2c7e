// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "app/Dialogs.h"
#include "platform/FileSystem.h"
#include "platform/System.h"

namespace velquist::app {

/// Everything outside the program, passed in at construction. Outlives the window.
struct Outside {
  platform::FileSystem& files;
  Dialogs& dialogs;
  platform::Process& process;
  platform::FileManager& file_manager;
  platform::Clock& clock;
  platform::Random& random;
  platform::Screen& screen;
  platform::PictureLoader& pictures;
  platform::Resources& resources;
  std::string program_directory;  ///< without trailing separator
};

}  // namespace velquist::app
