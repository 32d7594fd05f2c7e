// SPDX-License-Identifier: MIT
#include "ui/DifferenceCount.h"

#include <array>

#include "platform_wx/NativeLook.h"
#include "platform_wx/Spoken.h"
#include "platform_wx/WxText.h"
#include "ui/MarkColour.h"

namespace velquist::ui {
namespace {

constexpr int kField = 1;

wxString CountText(int count)
{
  if (count == 0) return "No differences";
  return count == 1 ? wxString("1 difference") : wxString::Format("%d differences", count);
}

}  // namespace

DifferenceCount::DifferenceCount(wxStatusBar* line, const std::function<void()>& compare)
    : wxButton(line, wxID_ANY, CountText(0), wxDefaultPosition, wxSize(1, 1),
               wxBORDER_NONE | wxBU_EXACTFIT, wxDefaultValidator, "DifferenceCount"),
      line_(line)
{
  platform::AllowSmallControls(*line);
  platform::SetLetters(*this, line->GetFont());
  // Room for the widest text, bold ones as well, so that the field never moves.
  const std::array<int, 2> widths = {-1, line->GetTextExtent(CountText(88) + "mmm").x};
  line->SetFieldsCount(static_cast<int>(widths.size()), widths.data());
  Bind(wxEVT_BUTTON, [compare](wxCommandEvent&) { compare(); });
  line->Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
    event.Skip();
    CallAfter(&DifferenceCount::Place);
  });
  Place();
}

void DifferenceCount::Place()
{
  wxRect field;
  if (line_->GetFieldRect(kField, field)) SetSize(field);
}

void DifferenceCount::ShowColour()
{
  SetMarked(*this, count_ > 0);
}

void DifferenceCount::BringInLine(int count, const std::string& reference_name)
{
  if (count == count_ && reference_name == reference_name_) return;
  count_ = count;
  reference_name_ = reference_name;
  SetLabel(CountText(count));
  ShowColour();  // of the new text
  const wxString tip = "Compare with " + platform::FromText(reference_name) + " (Ctrl+D)";
  SetToolTip(tip);
  platform::SetSpoken(*this, CountText(count), tip);
}

}  // namespace velquist::ui
