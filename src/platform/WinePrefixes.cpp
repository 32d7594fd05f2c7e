// SPDX-License-Identifier: MIT
#include "platform/WinePrefixes.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "platform/Paths.h"

namespace velquist::platform {
namespace {

constexpr std::string_view kDrive = "/drive_c";
constexpr std::size_t kMostInFolder = 100;

/// Folders of prefixes below the home directory; `inside` leads from such a folder's directory to
/// the prefix.
struct Folder {
  std::string_view path;
  std::string_view inside;
};
constexpr std::array<Folder, 6> kInHome = {{
    {"/Games", ""},
    {"/.var/app/com.usebottles.bottles/data/bottles/bottles", ""},
    {"/.steam/steam/steamapps/compatdata", "/pfx"},
    {"/.var/app/com.valvesoftware.Steam/.local/share/Steam/steamapps/compatdata", "/pfx"},
    {"/Games/Heroic/Prefixes", ""},
    {"/Games/Heroic/Prefixes/default", ""},
}};

/// The same below the directory of the user's data.
constexpr std::array<Folder, 4> kInData = {{
    {"/lutris", ""},
    {"/lutris/prefixes", ""},
    {"/bottles/bottles", ""},
    {"/Steam/steamapps/compatdata", "/pfx"},
}};

class PrefixSearch {
 public:
  explicit PrefixSearch(const FileSystem& files) : files_(files) {}

  void Look(const std::string& directory, std::string_view inside = {})
  {
    const auto below = std::string(inside).append(kDrive);
    auto drive = directory + below;
    // One number names one prefix; the folder of Steam is known under two paths.
    const bool known = std::ranges::any_of(found_, [&](const auto& prefix) {
      return prefix.drive == drive || (!inside.empty() && prefix.drive.ends_with(below) &&
                                       FileNameOf(prefix.directory) == FileNameOf(directory));
    });
    if (!known && files_.Exists(drive)) found_.push_back({directory, std::move(drive)});
  }

  void LookIn(const std::string& around, const Folder& folder)
  {
    const auto directory = around + std::string(folder.path);
    auto names = files_.ListSubdirectories(directory, kMostInFolder);
    std::ranges::sort(names);
    for (const auto& name : names)
      Look(std::string(directory).append("/").append(name), folder.inside);
  }

  [[nodiscard]] std::vector<WinePrefix> Found() && { return std::move(found_); }

 private:
  const FileSystem& files_;
  std::vector<WinePrefix> found_;
};

}  // namespace

std::vector<WinePrefix> WinePrefixes(const Environment& environment, const FileSystem& files)
{
  PrefixSearch search(files);
  if (const auto chosen = environment("WINEPREFIX"); chosen && !chosen->empty())
    search.Look(*chosen);
  const auto home = environment("HOME");
  if (!home || home->empty()) return std::move(search).Found();
  search.Look(*home + "/.wine");
  const auto set = environment("XDG_DATA_HOME");
  const auto data = set && !set->empty() ? *set : *home + "/.local/share";
  for (const auto& folder : kInData) search.LookIn(data, folder);
  for (const auto& folder : kInHome) search.LookIn(*home, folder);
  return std::move(search).Found();
}

}  // namespace velquist::platform
