// SPDX-License-Identifier: MIT
#include "library/SetupFile.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <utility>

#include "data/ModYear.h"
#include "platform/FileHead.h"
#include "platform/FileReason.h"
#include "platform/Paths.h"
#include "platform/SystemFiles.h"
#include "setup/Identification.h"

namespace velquist::library {

namespace fs = std::filesystem;

std::span<const std::byte> SetupFile::Bytes() const noexcept
{
  const auto whole = std::span(head);
  return size == setup::kLongLayoutSize
             ? whole
             : whole.first(std::min(head.size(), setup::kShortLayoutSize));
}

std::optional<setup::Layout> SetupFile::Layout() const noexcept
{
  if (unreadable) return std::nullopt;
  if (size == setup::kShortLayoutSize) return setup::Layout::kShort;
  if (size == setup::kLongLayoutSize) return setup::Layout::kLong;
  return std::nullopt;
}

bool SetupFile::IsSetup() const noexcept
{
  return setup::HasMagic(head);
}

SetupFile ReadSetupFile(std::string path)
{
  SetupFile file;
  file.path = std::move(path);
  platform::FileHead head;
  const auto error =
      platform::ReadHead(platform::PathFromText(file.path), setup::kLongLayoutSize, head);
  if (!error) {
    file.size = head.stamp.size;
    file.modified = head.stamp.modified;
    file.head = std::move(head.bytes);
    // Cut off since its size was asked for.
    if (file.head.size() < std::min<std::uint64_t>(file.size, setup::kLongLayoutSize))
      file.size = file.head.size();
    return file;
  }
  std::error_code unknown;
  const auto host = platform::PathFromText(file.path);
  const auto status = platform::StatusOf(host, unknown);
  file.is_ordinary = fs::is_regular_file(status);
  file.is_there = fs::exists(status) || fs::is_symlink(fs::symlink_status(host, unknown));
  file.unreadable = fs::exists(status) && !file.is_ordinary && !fs::is_directory(status)
                        ? "It is not an ordinary file"
                        : platform::ReasonOf(error);
  return file;
}

bool HasSetupExtension(std::string_view path)
{
  constexpr std::size_t kDotAndExtension = 4;
  const auto name = FileNameOf(path);
  if (name.size() < kDotAndExtension || name[name.size() - kDotAndExtension] != '.' ||
      !setup::FormulaIndexOf(name))
    return false;
  return std::ranges::any_of(data::kModYears, [&](data::ModYear year) {
    return setup::ChassisIndexOf(year, setup::ChassisCodeOf(name)).has_value();
  });
}

std::string_view FileNameOf(std::string_view path)
{
#ifdef _WIN32
  return platform::FileNameOf(path);
#else
  // Others are part of a name.
  return path.substr(path.rfind('/') + 1);
#endif
}

}  // namespace velquist::library
