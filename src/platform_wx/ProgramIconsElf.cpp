// SPDX-License-Identifier: MIT
#include <wx/image.h>
#include <wx/imagpng.h>
#include <wx/mstream.h>

#include <span>

#include "platform/EmbedElf.h"
#include "platform_wx/ProgramIcons.h"

VELQUIST_EMBED(velquist_icon_16, "icon/velquist-16.png");
VELQUIST_EMBED(velquist_icon_24, "icon/velquist-24.png");
VELQUIST_EMBED(velquist_icon_32, "icon/velquist-32.png");
VELQUIST_EMBED(velquist_icon_48, "icon/velquist-48.png");
VELQUIST_EMBED(velquist_icon_64, "icon/velquist-64.png");

namespace velquist::platform {
namespace {

void Add(wxIconBundle& icons, std::span<const std::byte> png)
{
  wxMemoryInputStream stream(png.data(), png.size());
  wxImage image;
  wxPNGHandler handler;
  if (!handler.LoadFile(&image, stream, false)) return;
  wxIcon icon;
  icon.CopyFromBitmap(wxBitmap(image));
  icons.AddIcon(icon);
}

}  // namespace

wxIconBundle ProgramIcons()
{
  wxIconBundle icons;
  Add(icons, {velquist_icon_16_begin, velquist_icon_16_end});
  Add(icons, {velquist_icon_24_begin, velquist_icon_24_end});
  Add(icons, {velquist_icon_32_begin, velquist_icon_32_end});
  Add(icons, {velquist_icon_48_begin, velquist_icon_48_end});
  Add(icons, {velquist_icon_64_begin, velquist_icon_64_end});
  return icons;
}

}  // namespace velquist::platform
