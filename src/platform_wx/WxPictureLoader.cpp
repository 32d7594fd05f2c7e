// SPDX-License-Identifier: MIT
#include "platform_wx/WxPictureLoader.h"

#include <wx/imagjpeg.h>
#include <wx/log.h>
#include <wx/mstream.h>

#include "platform/Errors.h"
#include "platform/JpegHeader.h"

namespace velquist::platform {
namespace {

/// An invalid image when the bytes are broken or too many pixels.
wxImage Decoded(std::span<const std::byte> bytes)
{
  // A picture that is cut short would be decoded with a grey rest.
  if (ShowableJpegSize(bytes).width == 0 || IsCutShort(bytes)) return {};
  const wxLogNull quiet;  // a broken picture is no news to the user
  wxMemoryInputStream stream(bytes.data(), bytes.size());
  wxImage image;
  wxJPEGHandler handler;
  if (!handler.LoadFile(&image, stream, false)) return {};
  return image;
}

}  // namespace

WxPictureLoader::WxPictureLoader(const FileSystem& files, const Resources& resources)
    : files_(files), resources_(resources)
{
}

PictureLoader::Size WxPictureLoader::Load(std::string_view path)
{
  path_ = path;
  picture_ = wxImage();
  try {
    picture_ = Decoded(files_.ReadWhole(path));
  } catch (const FileError&) {
    // Nothing to show: as for a broken picture.
  }
  return picture_.IsOk() ? Size{picture_.GetWidth(), picture_.GetHeight()} : Size{};
}

const wxImage& WxPictureLoader::Picture(std::string_view path)
{
  if (path.empty()) return BuiltIn();
  if (path != path_) (void)Load(path);
  return picture_.IsOk() ? picture_ : BuiltIn();
}

const wxImage& WxPictureLoader::BuiltIn()
{
  if (!built_in_.IsOk()) built_in_ = Decoded(resources_.Picture());
  return built_in_;
}

}  // namespace velquist::platform
