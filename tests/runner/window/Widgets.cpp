// SPDX-License-Identifier: MIT
#include "runner/window/Widgets.h"

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/choice.h>
#include <wx/radiobut.h>
#include <wx/statbox.h>
#include <wx/stattext.h>

#include "platform_wx/WxText.h"

namespace velquist::runner {
namespace {

using app::ControlKind;
using platform::ToText;

ControlKind KindOf(const wxWindow& widget)
{
  if (dynamic_cast<const wxButton*>(&widget) != nullptr) return ControlKind::kButton;
  if (dynamic_cast<const wxChoice*>(&widget) != nullptr) return ControlKind::kList;
  if (dynamic_cast<const wxCheckBox*>(&widget) != nullptr) return ControlKind::kCheck;
  if (dynamic_cast<const wxRadioButton*>(&widget) != nullptr) return ControlKind::kOption;
  if (dynamic_cast<const wxStaticBox*>(&widget) != nullptr) return ControlKind::kFrame;
  if (dynamic_cast<const wxStaticText*>(&widget) != nullptr) return ControlKind::kLabel;
  return ControlKind::kPicture;
}

bool IsShownWithin(const wxWindow& widget, const wxWindow* top)
{
  for (const wxWindow* window = &widget; window != top; window = window->GetParent())
    if (!window->IsShown()) return false;
  return true;
}

/// The widget's place within the client area of `top`, whose one child fills it.
app::Place PlaceWithin(const wxWindow& widget, const wxWindow* top)
{
  const wxSize size = widget.GetSize();
  wxPoint corner;
  for (const wxWindow* window = &widget; window != top; window = window->GetParent())
    corner += window->GetPosition();
  return {corner.x, corner.y, size.x, size.y};
}

}  // namespace

std::string NameText(std::string_view name, int index)
{
  std::string text(name);
  if (index >= 0) text += "(" + std::to_string(index) + ")";
  return text;
}

void Send(wxWindow& widget, wxEventType type, int value, const wxString& text)
{
  wxCommandEvent event(type, widget.GetId());
  event.SetEventObject(&widget);
  event.SetInt(value);
  event.SetString(text);
  widget.ProcessWindowEvent(event);
}

void SendKey(wxWindow& widget, int key)
{
  wxKeyEvent event(wxEVT_CHAR_HOOK);
  event.m_keyCode = key;
  event.SetEventObject(&widget);
  widget.ProcessWindowEvent(event);
}

void Press(wxWindow* around, const std::string& name)
{
  auto& button = Get<wxButton>(around, name);
  if (!button.IsEnabled() || !button.IsShown())
    throw std::runtime_error("the button " + name + " cannot be pressed");
  Send(button, wxEVT_BUTTON, 0);
}

void Choose(wxWindow* around, const std::string& name, int position)
{
  auto& list = Get<wxChoice>(around, name);
  if (position < 0 || position >= static_cast<int>(list.GetCount()))
    throw std::runtime_error("the list " + name + " has no item " + std::to_string(position));
  list.SetSelection(position);
  Send(list, wxEVT_CHOICE, position, list.GetString(static_cast<unsigned>(position)));
}

SeenControl Look(const wxWindow& widget, const wxWindow* top)
{
  SeenControl seen;
  seen.kind = KindOf(widget);
  seen.shown = IsShownWithin(widget, top);
  seen.enabled = widget.IsEnabled();
  seen.place = PlaceWithin(widget, top);
  seen.marked = widget.GetFont().GetWeight() >= wxFONTWEIGHT_BOLD && widget.UseForegroundColour() &&
                widget.GetForegroundColour() != widget.GetParent()->GetForegroundColour();
  switch (seen.kind) {
    case ControlKind::kList: {
      const auto& list = static_cast<const wxChoice&>(widget);
      for (const auto& item : list.GetStrings()) seen.items.push_back(ToText(item));
      seen.selection = list.GetSelection();
      seen.text = ToText(list.GetStringSelection());
      break;
    }
    case ControlKind::kCheck:
      seen.checked = static_cast<const wxCheckBox&>(widget).GetValue();
      break;
    case ControlKind::kOption:
      seen.checked = static_cast<const wxRadioButton&>(widget).GetValue();
      break;
    default: break;
  }
  if (seen.kind != ControlKind::kList && seen.kind != ControlKind::kPicture)
    seen.text = ToText(static_cast<const wxControl&>(widget).GetLabelText());
  return seen;
}

SeenControl LookAtMarquee(const ui::MarqueeBox& box, const wxWindow* top)
{
  SeenControl seen = Look(box, top);
  seen.kind = ControlKind::kLabel;
  seen.text = box.Text();
  const wxRect text = box.TextRect();
  seen.place = {seen.place.left + text.x, seen.place.top + text.y, text.width, text.height};
  return seen;
}

}  // namespace velquist::runner
