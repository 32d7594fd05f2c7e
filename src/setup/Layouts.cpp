// SPDX-License-Identifier: MIT
#include "setup/Layouts.h"

#include <algorithm>
#include <array>

#include "setup/SetupRecord.h"
#include "setup/SlotTable.h"

namespace velquist::setup {
namespace {

constexpr std::array kMagic = {std::byte{'P'}, std::byte{'G'}, std::byte{'T'}, std::byte{'S'}};
constexpr std::byte kBlank{0x20};
constexpr std::size_t kFillerSize = 3;

struct HeaderBytes {
  std::byte layout_code;  ///< offset 4
  std::byte size_low;     ///< offset 8
  std::byte size_high;    ///< offset 9
};
constexpr HeaderBytes kShortHeader = {std::byte{3}, std::byte{249}, std::byte{0}};
constexpr HeaderBytes kLongHeader = {std::byte{4}, std::byte{1}, std::byte{1}};

/// Sets the three header bytes and blanks the filler at the end.
void Mark(Bytes& buffer, const HeaderBytes& header)
{
  buffer[4] = header.layout_code;
  buffer[8] = header.size_low;
  buffer[9] = header.size_high;
  std::fill(buffer.end() - kFillerSize, buffer.end(), kBlank);
}

}  // namespace

std::size_t ReadSetupFile(const platform::FileSystem& files, std::string_view path,
                          Bytes& SetupBuffer)
{
  auto bytes = files.ReadWhole(path);
  const auto length = bytes.size();
  if (length != 0) SetupBuffer = std::move(bytes);
  return length;
}

void WriteSetupFile(platform::FileSystem& files, std::string_view path, const Bytes& SetupBuffer)
{
  files.WriteOver(path, SetupBuffer);
}

bool HasMagic(std::span<const std::byte> SetupBuffer) noexcept
{
  return SetupBuffer.size() >= kMagic.size() &&
         std::equal(kMagic.begin(), kMagic.end(), SetupBuffer.begin());
}

bool IsSetupFile(const platform::FileSystem& files, std::string_view path, Bytes& SetupBuffer)
{
  ReadSetupFile(files, path, SetupBuffer);
  return HasMagic(SetupBuffer);
}

void ConvertLayout(Bytes& SetupBuffer, Layout wanted)
{
  if (wanted == Layout::kShort && SetupBuffer.size() == kLongLayoutSize) {
    SetupBuffer.resize(kShortLayoutSize);
    Mark(SetupBuffer, kShortHeader);
  } else if (wanted == Layout::kLong && SetupBuffer.size() == kShortLayoutSize) {
    SetupBuffer.resize(kLongLayoutSize);
    WriteSingleAt(SetupBuffer, kNoWing, static_cast<std::size_t>(SlotOffset[kFrontWing]));
    WriteSingleAt(SetupBuffer, kNoWing, static_cast<std::size_t>(SlotOffset[kRearWing]));
    Mark(SetupBuffer, kLongHeader);
  }
}

}  // namespace velquist::setup
