// SPDX-License-Identifier: MIT
#include "install/Installations.h"

#include "platform/Paths.h"

namespace velquist::install {
namespace {

constexpr std::string_view kPlayers = "\\Players";
constexpr std::string_view kPlayersDirectory = "\\Players\\";
constexpr std::string_view kSetups = "\\Setups";

}  // namespace

std::optional<std::string> InstallationOfPath(std::string_view setup_path)
{
  const auto at = platform::FindPart(setup_path, kPlayers);
  if (at == std::string_view::npos) return std::nullopt;
  return std::string(setup_path.substr(0, at));
}

std::optional<std::string> PlayerOfPath(std::string_view setup_path)
{
  const auto players = platform::FindPart(setup_path, kPlayersDirectory);
  if (players == std::string_view::npos) return std::nullopt;
  const auto start = players + kPlayersDirectory.size();
  const auto setups = platform::FindPart(setup_path, kSetups, start);
  if (setups == std::string_view::npos) return std::nullopt;
  return std::string(setup_path.substr(start, setups - start));
}

std::optional<SetupPlace> PlaceOfPath(std::string_view setup_path)
{
  const auto track = platform::DirectoryOf(setup_path);
  const auto setups = platform::DirectoryOf(track);
  const auto player = platform::DirectoryOf(setups);
  const auto players = platform::DirectoryOf(player);
  const auto installation = platform::DirectoryOf(players);
  const auto name = [](std::string_view directory) {
    return std::string(platform::FileNameOf(directory));
  };
  if (installation.empty() || name(player).empty() || name(track).empty() ||
      !platform::SamePathText(platform::FileNameOf(setups), "setups") ||
      !platform::SamePathText(platform::FileNameOf(players), "players"))
    return std::nullopt;
  return SetupPlace{std::string(installation), name(player), name(track)};
}

std::string SetupDirectory(std::string_view installation, std::string_view player,
                           std::string_view track)
{
  std::string directory(installation);
  directory.append("\\players\\").append(player).append("\\setups\\").append(track);
  return directory;
}

bool HasPlayers(const platform::FileSystem& files, std::string_view installation)
{
  return files.Exists(std::string(installation).append(kPlayers));
}

std::vector<std::string> ListPlayers(const platform::FileSystem& files,
                                     std::string_view installation)
{
  return files.ListSubdirectories(std::string(installation).append(kPlayersDirectory), kMostNames);
}

std::vector<std::string> ListTracks(const platform::FileSystem& files,
                                    std::string_view installation, std::string_view player)
{
  return files.ListSubdirectories(std::string(installation)
                                      .append(kPlayersDirectory)
                                      .append(player)
                                      .append(kSetups)
                                      .append("\\"),
                                  kMostNames);
}

}  // namespace velquist::install
