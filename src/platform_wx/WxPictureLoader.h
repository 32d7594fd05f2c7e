// SPDX-License-Identifier: MIT
#pragma once

#include <wx/image.h>

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "platform/FileSystem.h"
#include "platform/System.h"

namespace velquist::platform {

/// Decodes JPEG files and keeps the one read last.
class WxPictureLoader final : public PictureLoader {
 public:
  WxPictureLoader(const FileSystem& files, const Resources& resources);

  [[nodiscard]] Size Load(std::string_view path) override;

  /// The picture at `path`; the built-in one when `path` is empty or cannot be shown.
  [[nodiscard]] const wxImage& Picture(std::string_view path);

 private:
  const wxImage& BuiltIn();

  const FileSystem& files_;
  const Resources& resources_;
  std::string path_;  ///< of `picture_`
  wxImage picture_;
  wxImage built_in_;
};

}  // namespace velquist::platform
