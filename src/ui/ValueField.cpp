// SPDX-License-Identifier: MIT
#include "ui/ValueField.h"

#include <wx/settings.h>
#include <wx/sizer.h>
#include <wx/toplevel.h>

#include <algorithm>
#include <utility>

#include "app/ValueTexts.h"
#include "platform_wx/NativeLook.h"
#include "platform_wx/Spoken.h"
#include "platform_wx/WxText.h"
#include "ui/MarkColour.h"
#include "ui/StepButton.h"

namespace velquist::ui {
namespace {

constexpr unsigned kLongest = 24;

std::size_t At(int slot)
{
  return static_cast<std::size_t>(slot);
}

}  // namespace

ValueField::ValueField(wxWindow& panel, const app::MainWindow& window, Type type)
    : panel_(panel), window_(window), type_(std::move(type))
{
  // On some systems a label has no window that the mouse could be in.
  panel.Bind(wxEVT_LEFT_DCLICK, [this](wxMouseEvent& event) {
    const auto label = std::ranges::find_if(labels_, [&](const wxWindow* each) {
      return each != nullptr && each->IsShown() && each->GetRect().Contains(event.GetPosition());
    });
    if (label != labels_.end())
      Open(static_cast<int>(label - labels_.begin()));
    else
      event.Skip();
  });
  panel.Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
    event.Skip();
    if (slot_ < 0) return;
    number_->CallAfter([this] {  // the value stands elsewhere then
      if (slot_ >= 0) Place(*labels_.at(At(slot_)));
    });
  });
}

void ValueField::Add(const app::ControlDesign& design, wxWindow& made)
{
  if (design.shape == app::Shape::kStepButton) buttons_.at(At(design.index)) = &made;
  if (design.name != "Label1") return;
  labels_.at(At(design.index)) = &made;
  made.Bind(wxEVT_LEFT_DCLICK, [this, slot = design.index](wxMouseEvent&) { Open(slot); });
}

void ValueField::Open(int slot)
{
  auto* const label = labels_.at(At(slot));
  auto* const button = buttons_.at(At(slot));
  if (label == nullptr || button == nullptr || !label->IsShownOnScreen()) return;
  const wxString name = platform::FromText(app::ValueName(slot));
  const wxString range = platform::FromText("From " + app::RangeText(window_, slot) + ".");
  const wxString number = platform::FromText(app::NumberText(window_, slot));
  if (slot_ >= 0) Close(false);
  if (box_ == nullptr) Make();
  auto* const focused = dynamic_cast<StepButton*>(wxWindow::FindFocus());
  back_ =
      focused == nullptr || focused->GetPosition().y != button->GetPosition().y ? button : focused;
  platform::SetSpoken(*number_, name, range);
  // Nothing of what lies beneath it shows through, in the colours of now.
  box_->SetBackgroundColour(wxSystemSettings::GetColour(wxSYS_COLOUR_BTNFACE));
  number_->ChangeValue(number);
  number_->SetFont(label->GetFont().GetBaseFont());
  range_->SetFont(label->GetFont().GetBaseFont().Smaller());
  ShowRange(range, false);
  slot_ = slot;
  Place(*label);
  box_->Show();
  box_->Raise();
  number_->SetFocus();
  number_->SelectAll();
}

void ValueField::Make()
{
  box_ = new wxPanel(&panel_, wxID_ANY, wxDefaultPosition, wxSize(1, 1), wxBORDER_SIMPLE, "Typing");
  box_->Hide();
  number_ = new wxTextCtrl(box_, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
                           wxTE_PROCESS_ENTER | wxTE_CENTRE, wxDefaultValidator, "Typed");
  number_->SetMaxLength(kLongest);
  range_ = new wxStaticText(box_, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
                            wxALIGN_CENTRE_HORIZONTAL, "TypedRange");
  auto* const lines = new wxBoxSizer(wxVERTICAL);
  lines->Add(number_, wxSizerFlags().Expand());
  lines->Add(range_, wxSizerFlags().Expand().Border(wxALL, 4));
  box_->SetSizer(lines);
  number_->Bind(wxEVT_CHAR_HOOK, &ValueField::OnKeyDown, this);
  number_->Bind(wxEVT_KILL_FOCUS, &ValueField::OnFocusGone, this);
}

/// The number over the label, all of it within the panel.
void ValueField::Place(const wxWindow& label)
{
  constexpr int kBesideRange = 4;  // parts of the letters' height
  const wxRect over = label.GetRect();
  // As large as the label, unless the letters need more.
  number_->InvalidateBestSize();
  number_->SetMinSize(wxDefaultSize);
  number_->SetMinSize(wxSize(over.width, std::max(over.height, number_->GetBestSize().y)));
  box_->GetSizer()->GetItem(range_)->SetBorder(range_->GetCharHeight() / kBesideRange);
  const wxRect within = panel_.GetClientRect();
  box_->GetSizer()->SetSizeHints(box_);
  const wxSize size = box_->GetBestSize();
  const int left = over.x + (over.width - size.x) / 2;
  box_->SetSize(std::clamp(left, 0, std::max(0, within.width - size.x)),
                std::clamp(over.y, 0, std::max(0, within.height - size.y)), size.x, size.y);
  box_->Layout();
  platform::KeepSiblingsOff(*box_, box_->GetRect());
}

void ValueField::ShowRange(const wxString& range, bool refused)
{
  range_->SetLabel(range);
  SetMarked(*range_, refused);
  if (refused) platform::Announce(*range_, range);
}

void ValueField::OnKeyDown(wxKeyEvent& event)
{
  switch (event.GetKeyCode()) {
    case WXK_RETURN:
    case WXK_NUMPAD_ENTER:
    case WXK_TAB: return Take();
    case WXK_ESCAPE: return Close(true);
    default: event.Skip();
  }
}

/// What has it now is known behind this event.
void ValueField::OnFocusGone(wxFocusEvent& event)
{
  event.Skip();
  number_->CallAfter([this] {
    const auto* const now = wxWindow::FindFocus();
    if (slot_ >= 0 && now != nullptr && now != number_) Close(false);
  });
}

void ValueField::Take()
{
  const int slot = slot_;
  if (slot < 0) return;
  const auto refused = type_(slot, platform::ToText(number_->GetValue()));
  if (slot_ != slot) return;
  if (refused.empty()) return Close(true);
  ShowRange(platform::FromText(refused), true);
  Place(*labels_.at(At(slot)));
  number_->SetFocus();
  number_->SelectAll();
}

void ValueField::Close(bool focus_back)
{
  slot_ = -1;
  if (focus_back) back_->SetFocus();
  box_->Hide();
  platform::KeepSiblingsOff(*box_, wxRect());
}

}  // namespace velquist::ui
