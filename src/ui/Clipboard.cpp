// SPDX-License-Identifier: MIT
#include "ui/Clipboard.h"

#include <wx/clipbrd.h>
#include <wx/image.h>
#include <wx/imagpng.h>

#include <utility>

#include "platform_wx/WxText.h"

namespace velquist::ui {

void Copy(std::unique_ptr<wxDataObject> copied)
{
  const wxClipboardLocker clipboard;
  if (!clipboard) return;
  wxTheClipboard->SetData(copied.release());
  wxTheClipboard->Flush();
}

void CopyText(const wxString& text)
{
  Copy(std::make_unique<wxTextDataObject>(text));
}

void CopyPicture(const wxBitmap& picture)
{
#if wxUSE_LIBPNG  // the form in which it is handed on, where the system has none of its own
  if (wxImage::FindHandler(wxBITMAP_TYPE_PNG) == nullptr) wxImage::AddHandler(new wxPNGHandler);
#endif
  Copy(std::make_unique<wxBitmapDataObject>(picture));
}

void CopySvg(std::string_view svg)
{
  auto drawing = std::make_unique<wxCustomDataObject>(wxDataFormat("image/svg+xml"));
  drawing->SetData(svg.size(), svg.data());
  auto copied = std::make_unique<wxDataObjectComposite>();
  copied->Add(drawing.release(), true);
  copied->Add(new wxTextDataObject(platform::FromText(svg)));
  Copy(std::move(copied));
}

}  // namespace velquist::ui
