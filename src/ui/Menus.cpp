// SPDX-License-Identifier: MIT
#include "ui/Menus.h"

#include <algorithm>

#include "app/FormControlSettings.h"
#include "platform_wx/WxText.h"

namespace velquist::ui {
namespace {

wxString EntryText(const app::Control& control)
{
  const wxString caption = platform::FromText(control.design->caption);
  const wxString text = platform::FromText(control.text);
  const bool as_designed = text == caption || text == wxMenuItem::GetLabelText(caption);
  wxString shown = as_designed ? caption : platform::FromPlainText(control.text);
  if (!control.design->shortcut.empty())
    shown += "\t" + platform::FromText(control.design->shortcut);
  return shown;
}

/// Systems do not report that a radio item is chosen which is marked already.
wxItemKind KindOf(const app::ControlDesign& design)
{
  if (!design.exclusive) return wxITEM_NORMAL;
  return design.chosen_again ? wxITEM_CHECK : wxITEM_RADIO;
}

}  // namespace

Menus::Menus(const app::MainForm& form, int first_id) : bar_(new wxMenuBar)
{
  int id = first_id;
  for (const auto& design : app::FormControlSettings()) {
    if (design.kind == app::ControlKind::kMenu) Add(design.In(form), id);
    ++id;
  }
}

void Menus::Add(const app::Control& control, int id)
{
  const auto& design = *control.design;
  const bool opens = std::ranges::any_of(app::FormControlSettings(), [&design](const auto& other) {
    return other.kind == app::ControlKind::kMenu && other.frame == design.name;
  });
  Entry entry;
  entry.control = &control;
  entry.text = control.text;
  entry.menu = opens ? new wxMenu : nullptr;
  if (const Entry* const parent = Find(design.frame)) {
    entry.parent = parent->menu;
    if (design.begins_group) entry.parent->AppendSeparator();
    entry.item = new wxMenuItem(entry.parent, id, EntryText(control),
                                platform::FromText(design.tip), KindOf(design), entry.menu);
    if (!design.other_shortcut.empty())
      if (wxAcceleratorEntry other; other.FromString(platform::FromText(design.other_shortcut)))
        entry.item->AddExtraAccel(other);
    entry.parent->Append(entry.item);
  } else {
    bar_->Append(entry.menu, EntryText(control));
  }
  entries_.push_back(entry);
}

const Menus::Entry* Menus::Find(std::string_view name) const
{
  const auto found = std::ranges::find_if(
      entries_, [name](const Entry& entry) { return entry.control->design->name == name; });
  return found == entries_.end() ? nullptr : &*found;
}

void Menus::BringInLine()
{
  for (auto& entry : entries_) {
    const auto& control = *entry.control;
    if (entry.item == nullptr) continue;
    if (control.text != entry.text) {
      entry.item->SetItemLabel(EntryText(control));
      entry.text = control.text;
    }
    // An entry outside its menu has no native part that could be enabled.
    if (control.shown && !entry.shown) ShowEntry(entry, true);
    if (entry.shown)
      entry.item->Enable(control.enabled);
    else
      entry.item->wxMenuItemBase::Enable(control.enabled);
    if (!control.shown && entry.shown) ShowEntry(entry, false);
    // A radio item loses its mark to another one alone.
    const bool may_lose_mark = entry.item->IsCheck();
    if (entry.item->IsCheckable() && control.checked != entry.item->IsChecked() &&
        (control.checked || may_lose_mark))
      entry.item->Check(control.checked);
  }
}

void Menus::ShowEntry(Entry& entry, bool shown)
{
  entry.shown = shown;
  if (!shown) {
    entry.parent->Remove(entry.item);
    return;
  }
  // Behind the entry before it that is shown, and in front of the next group's line.
  std::size_t at = 0;
  for (const auto& other : entries_) {
    if (&other == &entry) break;
    if (other.parent != entry.parent || other.item == nullptr || !other.shown) continue;
    std::size_t position = 0;
    entry.parent->FindChildItem(other.item->GetId(), &position);
    at = position + 1;
  }
  const bool line_follows =
      at < entry.parent->GetMenuItemCount() && entry.parent->FindItemByPosition(at)->IsSeparator();
  if (line_follows && entry.control->design->begins_group) ++at;
  entry.parent->Insert(at, entry.item);
}

std::optional<Menus::Seen> Menus::Look(std::string_view name) const
{
  const Entry* const found = Find(name);
  if (found == nullptr) return std::nullopt;
  const Entry& entry = *found;
  if (entry.item == nullptr) {
    const auto position = static_cast<std::size_t>(std::count_if(
        entries_.data(), &entry, [](const Entry& other) { return other.item == nullptr; }));
    return Seen{platform::ToText(bar_->GetMenuLabelText(position)), true,
                bar_->IsEnabledTop(position), false};
  }
  const Entry* const around = Find(entry.control->design->frame);
  return Seen{platform::ToText(entry.item->GetItemLabelText()),
              entry.shown && (around->item == nullptr || around->shown), entry.item->IsEnabled(),
              entry.item->IsCheckable() && entry.item->IsChecked()};
}

bool Menus::Choose(std::string_view name) const
{
  const Entry& entry = *Find(name);
  if (entry.menu != nullptr) return false;
  if (entry.item->IsCheckable()) entry.item->Check();
  return entry.parent->SendEvent(entry.item->GetId());
}

}  // namespace velquist::ui
