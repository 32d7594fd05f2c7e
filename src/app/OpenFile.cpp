// SPDX-License-Identifier: MIT
#include "app/OpenFile.h"

namespace velquist::app {

void OpenFile::Remember(const platform::FileSystem& files, const std::string& read_or_written)
{
  *this = {read_or_written, files.Stamp(read_or_written), std::nullopt};
}

bool OpenFile::IsChangedOnDisk(const platform::FileSystem& files) const
{
  if (path.empty()) return false;
  const auto now = files.Stamp(path);
  return now && now != stamp;
}

}  // namespace velquist::app
