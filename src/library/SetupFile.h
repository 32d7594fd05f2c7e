// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "setup/Layouts.h"

namespace velquist::library {

/// A file as it was when it was looked at, however large: its first bytes alone are read.
struct SetupFile {
  std::string path;                       ///< as spelled
  std::optional<std::string> unreadable;  ///< why; nothing but the path is known then
  bool is_there = true;                   ///< the path names something, if only a link
  bool is_ordinary = true;                ///< it leads to a file, not to a pipe or to nothing
  std::uint64_t size = 0;                 ///< bytes
  std::int64_t modified = 0;              ///< nanoseconds since 1970
  std::vector<std::byte> head;            ///< 272 bytes at most

  /// The bytes as a setup, in the long layout for a file of exactly its size alone.
  [[nodiscard]] std::span<const std::byte> Bytes() const noexcept;
  /// Nothing for a file of another size.
  [[nodiscard]] std::optional<setup::Layout> Layout() const noexcept;
  [[nodiscard]] bool IsSetup() const noexcept;  ///< has a setup's first four bytes
};

[[nodiscard]] SetupFile ReadSetupFile(std::string path);

/// The name ends in a dot, the code of a car of any mod year and a formula digit.
[[nodiscard]] bool HasSetupExtension(std::string_view path);

/// What stands behind the last separator of this machine.
[[nodiscard]] std::string_view FileNameOf(std::string_view path);

}  // namespace velquist::library
