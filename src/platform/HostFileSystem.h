// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>

#include "platform/FileSystem.h"
#include "platform/SystemFiles.h"  // PathText, the way back from HostPath

namespace velquist::platform {

/// The host path of a path text. `\` and `/` separate; where the host tells letter case apart,
/// each part that does not exist as spelled is looked up without regard to case, and a part that
/// does not exist at all stays as spelled.
[[nodiscard]] std::filesystem::path HostPath(std::string_view path);

/// The files of this machine.
class HostFileSystem final : public FileSystem {
 public:
  [[nodiscard]] bool Exists(std::string_view path) const override;
  [[nodiscard]] std::vector<std::byte> ReadWhole(std::string_view path) const override;
  void WriteOver(std::string_view path, std::span<const std::byte> bytes) override;
  void WriteText(std::string_view path, std::string_view text) override;
  [[nodiscard]] std::vector<std::string> ListSubdirectories(std::string_view directory,
                                                            std::size_t most) const override;
};

}  // namespace velquist::platform
