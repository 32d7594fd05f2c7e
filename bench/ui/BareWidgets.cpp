// SPDX-License-Identifier: MIT
// The toolkit's own controls, as many of each kind as the editor has and at the same places, in the
// font that they come with: what its window costs before it does anything.
#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/choice.h>
#include <wx/panel.h>
#include <wx/radiobut.h>
#include <wx/statbox.h>
#include <wx/stattext.h>
#include <wx/statusbr.h>

#include "Bare.h"

namespace {

using namespace velquist;
using app::ControlKind;

wxWindow* MakeControl(wxWindow* parent, const app::ControlDesign& design)
{
  const wxPoint at(design.place.left, design.place.top);
  const wxSize size(design.place.width, design.place.height);
  // The editor shows a value where the design has no caption.
  const wxString text =
      design.caption.empty() ? wxString("12.50") : platform::FromText(design.caption);
  switch (design.kind) {
    case ControlKind::kButton: return new wxButton(parent, wxID_ANY, " ", at, size);
    case ControlKind::kList: {
      auto* const list = new wxChoice(parent, wxID_ANY, at, size, 1, &text);
      list->SetSelection(0);
      return list;
    }
    case ControlKind::kCheck: return new wxCheckBox(parent, wxID_ANY, text, at, size);
    case ControlKind::kOption:
      return new wxRadioButton(parent, wxID_ANY, text, at, size,
                               design.begins_group ? wxRB_GROUP : 0);
    case ControlKind::kFrame:
      return new wxStaticBox(parent, wxID_ANY, design.caption.empty() ? wxString() : text, at,
                             size);
    case ControlKind::kPicture: return new wxPanel(parent, wxID_ANY, at, size);
    default: return new wxStaticText(parent, wxID_ANY, text, at, size, wxST_NO_AUTORESIZE);
  }
}

wxFrame* MakeWindow()
{
  auto* const frame = bench::MakeFrame();
  auto* const panel = new wxPanel(frame);
  for (const auto& design : app::FormControlSettings())
    if (design.kind != ControlKind::kMenu && design.shape != app::Shape::kNone)
      MakeControl(panel, design);
  frame->CreateStatusBar();
  return frame;
}

}  // namespace

int main(int argc, char** argv)
{
  return bench::Run(argc, argv, MakeWindow);
}
