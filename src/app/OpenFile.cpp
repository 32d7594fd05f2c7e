// SPDX-License-Identifier: MIT
#include "app/OpenFile.h"

namespace velquist::app {

OpenFile OpenFile::AsItIs(const platform::FileSystem& files, const std::string& path)
{
  return {.path = path, .stamp = files.Stamp(path), .told = std::nullopt};
}

bool OpenFile::IsAt(const platform::FileSystem& files, std::string_view other) const
{
  return files.HostText(other) == files.HostText(path);
}

bool OpenFile::IsChangedOnDisk(const platform::FileSystem& files) const
{
  if (path.empty()) return false;
  const auto now = files.Stamp(path);
  return now && now != stamp;
}

}  // namespace velquist::app
