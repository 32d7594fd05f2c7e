// SPDX-License-Identifier: MIT
// The input is a picture of a car: its header, and what the decoder makes of it.
#include <cstdint>
#include <span>

#include "Fuzz.h"
#include "MemoryFiles.h"
#include "Nothing.h"
#include "platform/JpegHeader.h"
#include "platform_wx/WxPictureLoader.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
  using namespace velquist;
  using fuzz::Require;
  const auto bytes = std::as_bytes(std::span(data, size));
  const auto found = platform::JpegSize(bytes);
  const auto shown = platform::ShowableJpegSize(bytes);
  Require(platform::ScanCount(bytes) >= 0, "passes are counted");
  Require(shown.width == 0 || (shown.width == found.width && shown.height == found.height),
          "shown as large as it is");
  Require(static_cast<long long>(shown.width) * shown.height <= platform::kMostPixels,
          "no more than is shown");
  (void)platform::IsCutShort(bytes);
  // Time is for broken pictures, not for large ones.
  if (static_cast<long long>(shown.width) * shown.height > 250'000) return 0;

  testing::MemoryFiles files;
  files.Put("/x.jpg", fuzz::TextOf(data, size));
  const testing::NoResources resources;
  platform::WxPictureLoader loader(files, resources);
  const auto loaded = loader.Load("/x.jpg");
  Require(loaded.width == 0 || loaded.width == shown.width, "as the header says, or not at all");
  const auto picture = loader.Picture("/x.jpg", wxSize(64, 64));
  // Not the other way round: on a busy machine the time for it may be up.
  Require(!picture.IsOk() || loaded.width > 0, "only what can be loaded is shown");
  return 0;
}
