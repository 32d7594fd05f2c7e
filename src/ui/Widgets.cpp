// SPDX-License-Identifier: MIT
#include "ui/Widgets.h"

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/choice.h>
#include <wx/radiobut.h>
#include <wx/stattext.h>

#include <algorithm>
#include <utility>

#include "app/FormControlSettings.h"
#include "platform_wx/ListChoice.h"
#include "platform_wx/NativeLook.h"
#include "platform_wx/Spoken.h"
#include "platform_wx/WxText.h"
#include "ui/MarkColour.h"

namespace velquist::ui {
namespace {

using app::ControlKind;

/// The system draws something of its own beside the text.
bool HasMark(ControlKind kind)
{
  return kind == ControlKind::kCheck || kind == ControlKind::kOption || kind == ControlKind::kFrame;
}

/// The longest caption of the boxes and options below each other, which have letters of one size;
/// the text of a frame alone.
wxString LongestText(const app::Control& control)
{
  if (control.design->kind == ControlKind::kFrame) return platform::FromText(control.text);
  wxString longest;
  for (const auto& design : app::FormControlSettings()) {
    if (design.kind != ControlKind::kCheck && design.kind != ControlKind::kOption) continue;
    const wxString caption = wxControl::RemoveMnemonics(platform::FromText(design.caption));
    if (caption.length() > longest.length()) longest = caption;
  }
  return longest;
}

/// The text or the widest item.
wxString Widest(const wxWindow& window, const app::Control& control)
{
  if (control.design->kind != ControlKind::kList) return platform::FromText(control.text);
  wxString widest;
  int width = 0;
  for (const auto& each : control.items) {
    const wxString item = platform::FromText(each);
    const int its = window.GetTextExtent(item).x;
    if (std::exchange(width, std::max(width, its)) < its) widest = item;
  }
  return widest;
}

/// That of the control; of a frame, that above what stands in it.
int HeightForText(const app::Control& control)
{
  const auto& frame = *control.design;
  if (frame.kind != ControlKind::kFrame) return control.place.height;
  int top = frame.place.top + frame.place.height;
  for (const auto& design : app::FormControlSettings())
    if (design.frame == frame.name && design.frame_index == frame.index)
      top = std::min(top, design.place.top);
  return (top - frame.place.top) * control.place.height / frame.place.height;
}

/// Makes the letters smaller until `text` is whole within `width` pixels: the mark or margin beside
/// the label does not shrink with the letters on every system, nor do the smallest letters with the
/// screen.
void MakeLettersFit(wxWindow& control, const wxString& text, int letters, int width)
{
  constexpr int kSmallestLetters = 6;  // pixels
  const wxString label = wxControl::RemoveMnemonics(control.GetLabel());
  const auto wanted = [&] {
    const int beside = control.GetBestSize().x - control.GetTextExtent(label).x;
    return control.GetTextExtent(text).x + beside;
  };
  while (wanted() > width && letters > kSmallestLetters)
    platform::SetLetters(control, ControlFont(--letters));
}

long LabelStyle(const app::ControlDesign& design)
{
  const long alignment =
      design.alignment == app::Alignment::kLeft ? wxALIGN_LEFT : wxALIGN_CENTRE_HORIZONTAL;
  return alignment | (design.ellipsis ? wxST_ELLIPSIZE_MIDDLE : 0);
}

}  // namespace

wxString WindowName(const app::ControlDesign& design)
{
  const wxString name = platform::FromText(design.name);
  return design.index < 0 ? name : wxString::Format("%s(%d)", name, design.index);
}

wxString LabelText(const app::Control& control)
{
  const wxString caption = platform::FromText(control.design->caption);
  const wxString text = platform::FromText(control.text);
  if (text == caption || text == wxControl::RemoveMnemonics(caption)) return caption;
  return wxControl::EscapeMnemonics(text);
}

wxRect PlaceOf(const app::Control& control)
{
  const auto& place = control.place;
  return {place.left, place.top, place.width, place.height};
}

const wxString& LetterFace()
{
  static const wxString kFace = platform::LetterFace("Arial");
  return kFace;
}

wxFont ControlFont(int pixels)
{
  return platform::ControlFont(LetterFace(), pixels);
}

ControlWidget::ControlWidget(const app::Control& control, wxWindow& window)
    : control_(&control), window_(&window)
{
  last_.design = control.design;
  last_.shown = window.IsShown();
  if (window.GetLabel() == LabelText(control)) last_.text = control.text;
  if (window.GetRect() == PlaceOf(control)) last_.place = control.place;
  window.SetMinSize(wxSize(1, 1));  // the toolkit takes the first size for it
  // Each new kind of letters has the system look at all widgets that are there already.
  platform::SetLetters(window, ControlFont(control.font_size));
  last_.font_size = control.font_size;
  letters_ = control.font_size;
}

void ControlWidget::BringInLine(bool shown)
{
  const bool other_letters = control_->font_size != last_.font_size;
  const bool other_fit =
      HasMark(Design().kind) && !control_->text.empty() &&
      (other_letters || control_->text != last_.text || control_->place.width != last_.place.width);
  news_ = news_ || other_letters || control_->place != last_.place ||
          control_->text != last_.text || control_->items != last_.items;
  if (other_letters) letters_ = control_->font_size;
  const bool other_mark = control_->marked != last_.marked;
  // Before the letters, of which the toolkit would make the control's own with each text.
  if (Design().kind == ControlKind::kList)
    ShowItems();
  else if (control_->text != last_.text)
    ShowText();
  if (other_letters || other_fit) platform::SetLetters(*window_, ControlFont(letters_));
  if (other_mark || (other_letters && control_->marked)) SetMarked(*window_, control_->marked);
  last_.marked = control_->marked;
  last_.font_size = control_->font_size;
  if (control_->checked != last_.checked) ShowChecked();
  if (control_->place != last_.place) ShowPlace();
  unmeasured_ = unmeasured_ || other_fit;
  if (control_->enabled != last_.enabled) {
    window_->Enable(control_->enabled);
    last_.enabled = control_->enabled;
  }
  if (shown != last_.shown) {
    window_->Show(shown);
    last_.shown = shown;
  }
}

bool ControlWidget::TakeNews()
{
  if (!std::exchange(news_, false)) return false;
  bool other = false;
  if (std::exchange(fitted_letters_, control_->font_size) != control_->font_size) {
    // The widget still has these letters.
    const wxString label = wxControl::RemoveMnemonics(window_->GetLabel());
    const bool is_list = Design().kind == ControlKind::kList;
    const wxString text = is_list ? Widest(*window_, *control_) : label;
    beside_ = window_->GetBestSize() - window_->GetTextExtent(text);
    other = true;
  }
  if (fitted_ != control_->place || other) widest_.clear();
  other = other || fitted_ != control_->place;
  fitted_ = control_->place;
  const wxString text =
      HasMark(Design().kind) ? LongestText(*control_) : Widest(*window_, *control_);
  const bool forgets = Design().ellipsis && text != widest_;  // names of any length come and go
  if (!forgets && window_->GetTextExtent(text).x <= window_->GetTextExtent(widest_).x) return other;
  widest_ = text;
  return true;
}

bool ControlWidget::Fits(int letters) const
{
  const auto& design = Design();
  // Values are set off when they differ.
  const wxFont font = ControlFont(letters);
  const wxFont heaviest = design.caption.empty() ? font.Bold() : font;
  wxSize wanted;
  window_->GetTextExtent(widest_, &wanted.x, &wanted.y, nullptr, nullptr, &heaviest);
  wanted += beside_ * (static_cast<double>(letters) / fitted_letters_) + wxSize(1, 0);
  return wanted.x <= control_->place.width && wanted.y <= HeightForText(*control_);
}

int ControlWidget::LettersThatFit(int letters) const
{
  while (letters > control_->font_size && !Fits(letters)) --letters;
  return letters;
}

void ControlWidget::Enlarge(int letters)
{
  if (std::exchange(letters_, letters) == letters) return;
  platform::SetLetters(*window_, ControlFont(letters_));
  if (control_->marked) SetMarked(*window_, true);
  unmeasured_ = HasMark(Design().kind) && !control_->text.empty();
}

void ControlWidget::KeepTextWhole()
{
  if (!std::exchange(unmeasured_, false)) return;
  MakeLettersFit(*window_, LongestText(*control_), letters_, control_->place.width);
}

void ControlWidget::Tell(Told told)
{
  if (Design().kind == ControlKind::kList && Design().ellipsis) told.whole = control_->text;
  if (told == told_) return;
  told_ = std::move(told);
  Describe(*window_, Design(), *told_);
}

void ControlWidget::TakeUserChange()
{
  switch (Design().kind) {
    case ControlKind::kList:
      last_.selection = static_cast<wxChoice*>(window_)->GetSelection();
      break;
    case ControlKind::kCheck: last_.checked = static_cast<wxCheckBox*>(window_)->GetValue(); break;
    case ControlKind::kOption:
      last_.checked = static_cast<wxRadioButton*>(window_)->GetValue();
      break;
    default: break;
  }
}

void ControlWidget::ShowText()
{
  if (Design().kind != ControlKind::kPicture) window_->SetLabel(LabelText(*control_));
  last_.text = control_->text;
}

void ControlWidget::ShowItems()
{
  auto& list = *static_cast<wxChoice*>(window_);
  if (control_->items != last_.items) {
    wxArrayString items;
    for (const auto& item : control_->items) items.Add(platform::FromText(item));
    platform::SetItems(list, items);
    last_.items = control_->items;
    last_.selection = wxNOT_FOUND;
  }
  if (control_->selection != last_.selection) {
    list.SetSelection(control_->selection);
    last_.selection = control_->selection;
  }
}

void ControlWidget::ShowChecked()
{
  if (Design().kind == ControlKind::kCheck) {
    static_cast<wxCheckBox*>(window_)->SetValue(control_->checked);
  } else if (Design().kind == ControlKind::kOption && control_->checked) {
    // The other option buttons of the group are cleared by this one.
    static_cast<wxRadioButton*>(window_)->SetValue(true);
  }
  last_.checked = control_->checked;
}

void ControlWidget::ShowPlace()
{
  window_->SetSize(PlaceOf(*control_), wxSIZE_FORCE);
  last_.place = control_->place;
}

wxWindow* MakeWidget(const app::Control& control, wxWindow* parent, wxWindowID id)
{
  const auto& design = *control.design;
  const wxRect place = PlaceOf(control);
  const wxPoint at = place.GetPosition();
  const wxSize size = place.GetSize();
  const wxString name = WindowName(design);
  switch (design.kind) {
    case ControlKind::kButton:
      return new wxButton(parent, id, LabelText(control), at, size, 0, wxDefaultValidator, name);
    case ControlKind::kList: {
      auto* const list =
          new wxChoice(parent, id, at, size, 0, nullptr, 0, wxDefaultValidator, name);
      platform::SetUpChoice(
          *list, design.opens_first ? platform::ListKeys::kOpen : platform::ListKeys::kChoose);
      if (design.ellipsis) platform::CutItemsAtStart(*list);
      return list;
    }
    case ControlKind::kCheck: {
      auto* const box =
          new wxCheckBox(parent, id, LabelText(control), at, size, 0, wxDefaultValidator, name);
      platform::AllowCutLabel(*box);
      return box;
    }
    case ControlKind::kOption: {
      auto* const option =
          new wxRadioButton(parent, id, LabelText(control), at, size,
                            design.begins_group ? wxRB_GROUP : 0, wxDefaultValidator, name);
      platform::AllowCutLabel(*option);
      return option;
    }
    case ControlKind::kFrame: return platform::MakeFrame(parent, id, name);
    default: {
      const long style = wxST_NO_AUTORESIZE | LabelStyle(design);
      auto* const label = new wxStaticText(parent, id, LabelText(control), at, size, style, name);
      platform::CentreVertically(*label);
      return label;
    }
  }
}

void Describe(wxWindow& window, const app::ControlDesign& design, const Told& told)
{
  const auto join = [](wxString text, const char* between, const wxString& behind) {
    if (!text.empty() && !behind.empty()) text += between;
    return text + behind;
  };
  const wxString tip = platform::FromText(design.tip);
  const wxString changed = platform::FromText(told.difference);
  platform::SetSpoken(window, platform::FromText(design.spoken),
                      join(told.more.empty() ? tip : platform::FromText(told.more), ", ", changed));
  wxString shown = join(tip, "\n", platform::FromText(told.line));
  if (design.kind == ControlKind::kFrame && !design.shortcut.empty())
    shown = platform::FromText(design.shortcut) + " comes here";
  shown = join(join(shown, "\n", changed), "\n", platform::FromText(told.whole));
  if (shown == window.GetToolTipText()) return;
  if (shown.empty())
    window.UnsetToolTip();
  else
    window.SetToolTip(shown);
}

}  // namespace velquist::ui
