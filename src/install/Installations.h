// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/FileSystem.h"

/// The directories of a game installation: installation\Players\player\Setups\track.
namespace velquist::install {

/// Players or tracks listed at most.
inline constexpr std::size_t kMostNames = 1001;

/// What stands before the first "\Players" of a setup file's path; nothing without it.
[[nodiscard]] std::optional<std::string> InstallationOfPath(std::string_view setup_path);

/// What stands between the first "\Players\" of a setup file's path and the first "\Setups" behind
/// it; nothing where one is missing.
[[nodiscard]] std::optional<std::string> PlayerOfPath(std::string_view setup_path);

/// Where a setup file lies whose path is installation\players\player\setups\track\file.
struct SetupPlace {
  std::string installation;
  std::string player;
  std::string track;
};

/// The place of a path of that form, nothing for any other.
[[nodiscard]] std::optional<SetupPlace> PlaceOfPath(std::string_view setup_path);

/// installation\players\player\setups\track, where a setup is opened from and saved to.
[[nodiscard]] std::string SetupDirectory(std::string_view installation, std::string_view player,
                                         std::string_view track);

/// True for a directory that holds a Players directory.
[[nodiscard]] bool HasPlayers(const platform::FileSystem& files, std::string_view installation);

[[nodiscard]] std::vector<std::string> ListPlayers(const platform::FileSystem& files,
                                                   std::string_view installation);
[[nodiscard]] std::vector<std::string> ListTracks(const platform::FileSystem& files,
                                                  std::string_view installation,
                                                  std::string_view player);

}  // namespace velquist::install
