// SPDX-License-Identifier: MIT
#include <wx/dcclient.h>

#include "platform_wx/KeptPicture.h"

namespace velquist::platform {

struct KeptPicture::Kept {
  wxBitmap picture;
};

KeptPicture::KeptPicture(const wxWindow&, const wxBitmap& picture)
    : kept_(std::make_shared<Kept>(Kept{picture})), scale_(picture.GetScaleFactor())
{
}

void KeptPicture::Draw(wxDC& dc, wxPoint at) const
{
  dc.DrawBitmap(kept_->picture, at);
}

bool KeptPicture::DrawAtOnce(wxWindow& window, wxPoint at) const
{
  wxClientDC shown(&window);
  Draw(shown, at);
  return true;
}

}  // namespace velquist::platform
