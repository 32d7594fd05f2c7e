// SPDX-License-Identifier: MIT
#include "ui/Clipboard.h"

#include <wx/clipbrd.h>
#include <wx/dataobj.h>

#include <memory>

#include "platform_wx/WxText.h"

namespace velquist::ui {
namespace {

void Put(std::unique_ptr<wxDataObject> copied)
{
  const wxClipboardLocker clipboard;
  if (!clipboard) return;
  wxTheClipboard->SetData(copied.release());
  wxTheClipboard->Flush();
}

}  // namespace

void CopyText(const wxString& text)
{
  Put(std::make_unique<wxTextDataObject>(text));
}

void CopyPicture(const wxBitmap& picture)
{
  Put(std::make_unique<wxBitmapDataObject>(picture));
}

void CopySvg(std::string_view svg)
{
  auto drawing = std::make_unique<wxCustomDataObject>(wxDataFormat("image/svg+xml"));
  drawing->SetData(svg.size(), svg.data());
  auto copied = std::make_unique<wxDataObjectComposite>();
  copied->Add(drawing.release(), true);
  copied->Add(new wxTextDataObject(platform::FromText(svg)));
  Put(std::move(copied));
}

}  // namespace velquist::ui
