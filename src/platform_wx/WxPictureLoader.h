// SPDX-License-Identifier: MIT
#pragma once

#include <wx/image.h>

#include <cstddef>
#include <deque>
#include <span>
#include <string>
#include <string_view>

#include "platform/FileSystem.h"
#include "platform/System.h"

namespace velquist::platform {

/// Decodes JPEG files, no larger than they are shown, and keeps the last few.
class WxPictureLoader final : public PictureLoader {
 public:
  WxPictureLoader(const FileSystem& files, const Resources& resources);

  /// What Load decodes shall fill a box of that size in pixels.
  void Expect(wxSize box);

  [[nodiscard]] Size Load(std::string_view path) override;

  /// The picture at `path`; the built-in one when `path` is empty or cannot be shown. It may be
  /// smaller than in its file, but fills a box of that size in pixels. Until another size is asked
  /// for, Load takes this one, too.
  [[nodiscard]] wxImage Picture(std::string_view path, wxSize box);

 private:
  /// What was decoded, and from what.
  struct Decoded {
    std::size_t hash = 0;  ///< of the file's bytes
    std::size_t length = 0;
    int shrunk = 1;   ///< by this factor
    Size size;        ///< in the file
    wxImage picture;  ///< invalid where it cannot be shown
  };

  const Decoded& Decode(std::span<const std::byte> bytes);
  const Decoded& DecodeFile(std::string_view path);

  const FileSystem& files_;
  const Resources& resources_;
  wxSize box_;
  std::deque<Decoded> kept_;  ///< the one used last in front
};

}  // namespace velquist::platform
