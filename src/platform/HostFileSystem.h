// SPDX-License-Identifier: MIT
#pragma once

#include "platform/FileSystem.h"
#include "platform/HostPath.h"
#include "platform/SystemFiles.h"  // PathText, the way back from HostPath

namespace velquist::platform {

/// The files of this machine.
class HostFileSystem final : public FileSystem {
 public:
  [[nodiscard]] bool Exists(std::string_view path) const override;
  [[nodiscard]] std::vector<std::byte> ReadWhole(std::string_view path) const override;
  void WriteOver(std::string_view path, std::span<const std::byte> bytes) override;
  void WriteText(std::string_view path, std::string_view text) override;
  [[nodiscard]] std::vector<std::string> ListSubdirectories(std::string_view directory,
                                                            std::size_t most) const override;
  [[nodiscard]] std::optional<FileStamp> Stamp(std::string_view path) const override;
  [[nodiscard]] std::optional<std::string> NameOnDisk(std::string_view path) const override;
  [[nodiscard]] std::string HostText(std::string_view path) const override;
};

}  // namespace velquist::platform
