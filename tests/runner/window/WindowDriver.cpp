// SPDX-License-Identifier: MIT
#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/choice.h>
#include <wx/radiobut.h>
#include <wx/statbox.h>
#include <wx/stattext.h>
#include <wx/statusbr.h>
#include <wx/textctrl.h>

#include <type_traits>

#include <wx/weakref.h>

#include <cmath>
#include <exception>
#include <functional>
#include <stdexcept>

#include "app/FormControlSettings.h"
#include "ui/FrmHelp.h"
#include "ui/FrmInstallDelete.h"
#include "ui/FrmModYear.h"
#include "platform_wx/WxText.h"
#include "runner/Driver.h"
#include "runner/window/WindowSystem.h"
#include "ui/FrmMain.h"
#include "ui/PictureBoxes.h"

namespace velquist::runner {
namespace {

using app::ControlKind;
using platform::ToText;

std::string NameText(std::string_view name, int index)
{
  std::string text(name);
  if (index >= 0) text += "(" + std::to_string(index) + ")";
  return text;
}

int Rounded(float pixels)
{
  return static_cast<int>(std::nearbyint(pixels));
}

/// The widget of that name; throws when it is not there.
template <typename Widget = wxWindow>
Widget& Get(wxWindow* around, const std::string& name)
{
  auto* const found = wxWindow::FindWindowByName(name, around);
  auto* const widget = dynamic_cast<Widget*>(found);
  if (widget == nullptr) throw std::runtime_error("the window has no widget " + name);
  return *widget;
}

/// What the toolkit sends when the user has done something to `widget`.
void Send(wxWindow& widget, wxEventType type, int value, const wxString& text = {})
{
  wxCommandEvent event(type, widget.GetId());
  event.SetEventObject(&widget);
  event.SetInt(value);
  event.SetString(text);
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

SeenControl Look(const wxWindow& widget, const wxWindow* top)
{
  SeenControl seen;
  seen.kind = KindOf(widget);
  seen.shown = IsShownWithin(widget, top);
  seen.enabled = widget.IsEnabled();
  seen.place = PlaceWithin(widget, top);
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

/// The label that the box of the marquee paints.
SeenControl LookAtMarquee(const ui::MarqueeBox& box, const wxWindow* top)
{
  SeenControl seen = Look(box, top);
  seen.kind = ControlKind::kLabel;
  seen.text = box.Text();
  const wxRect text = box.TextRect();
  seen.place = {seen.place.left + text.x, seen.place.top + text.y, text.width, text.height};
  return seen;
}

/// Runs `actions` inside the loop of a dialog that is shown modally, and throws what they throw
/// once it has gone.
class Inside {
 public:
  Inside(wxDialog& dialog, std::function<void()> actions)
  {
    dialog.CallAfter([this, &dialog, act = std::move(actions)] {
      try {
        act();
      } catch (...) {
        failure_ = std::current_exception();
        if (dialog.IsModal()) dialog.EndModal(wxID_CANCEL);
      }
    });
  }

  void RethrowFailure() const
  {
    if (failure_) std::rethrow_exception(failure_);
  }

 private:
  std::exception_ptr failure_;
};

class WindowDriver final : public Driver {
 public:
  WindowDriver() = default;
  WindowDriver(const WindowDriver&) = delete;
  WindowDriver& operator=(const WindowDriver&) = delete;
  ~WindowDriver() override { WindowDriver::Stop(); }

  void Start(const app::Outside& outside, std::string_view command_line) override
  {
    Stop();
    resources_ = &outside.resources;
    pictures_.emplace(outside.files, outside.resources);
    window_.emplace(outside);
    window_->Form_Load(command_line);
    if (window_->Ended()) return;
    frame_ = new ui::FrmMain(*window_, outside.screen, *pictures_);
    AllowScriptedSize(outside.screen);
    frame_->Show();
    LetWindowSystemWork();
  }

  void Stop() override
  {
    if (frame_) frame_->Destroy();
    LetWindowSystemWork();
    window_.reset();
  }

  [[nodiscard]] bool Running() const override
  {
    return frame_ && !frame_->IsBeingDeleted() && !window_->Ended();
  }

  [[nodiscard]] std::optional<SeenControl> Seen(std::string_view name, int index) override
  {
    if (!Running()) return std::nullopt;
    if (const auto entry = frame_->GetMenus().Look(name)) {
      SeenControl seen;
      seen.kind = ControlKind::kMenu;
      seen.text = entry->text;
      seen.shown = entry->shown;
      seen.enabled = entry->enabled;
      seen.checked = entry->checked;
      return seen;
    }
    if (name == "LblMarquee") return LookAtMarquee(Get<ui::MarqueeBox>(frame_, "Picture1"), frame_);
    const auto* const widget = wxWindow::FindWindowByName(NameText(name, index), frame_);
    if (widget == nullptr) return std::nullopt;
    auto seen = Look(*widget, frame_);
    const auto* const control = window_->Form().Find(name, index);
    seen.marked = control != nullptr && control->marked;
    return seen;
  }

  [[nodiscard]] std::string Caption() override
  {
    return Running() ? ToText(frame_->GetTitle()) : std::string{};
  }

  [[nodiscard]] std::string Status() override
  {
    return Running() ? ToText(frame_->GetStatusBar()->GetStatusText()) : std::string{};
  }

  [[nodiscard]] bool Click(std::string_view name, int index) override
  {
    bool works = true;
    if (frame_->GetMenus().Look(name))
      works = frame_->GetMenus().Choose(name);
    else
      Press(frame_, NameText(name, index));
    LetWindowSystemWork();
    return works;
  }

  void Check(std::string_view name, int index, bool checked) override
  {
    auto& widget = Get(frame_, NameText(name, index));
    if (auto* const box = dynamic_cast<wxCheckBox*>(&widget)) {
      box->SetValue(checked);
      Send(widget, wxEVT_CHECKBOX, checked ? 1 : 0);
    } else {
      Get<wxRadioButton>(frame_, NameText(name, index)).SetValue(checked);
      Send(widget, wxEVT_RADIOBUTTON, checked ? 1 : 0);
    }
    LetWindowSystemWork();
  }

  void Select(std::string_view name, int index, int position) override
  {
    Choose(frame_, NameText(name, index), position);
    LetWindowSystemWork();
  }

  void Close() override
  {
    frame_->Close();
    LetWindowSystemWork();
  }

  void Focus() override
  {
    wxActivateEvent event(wxEVT_ACTIVATE, true, frame_->GetId());
    frame_->ProcessWindowEvent(event);
    LetWindowSystemWork();
  }

  void Tick() override
  {
    if (!Running()) return;
    wxTimerEvent event(frame_->MarqueeTimer());
    frame_->ProcessWindowEvent(event);
    LetWindowSystemWork();
  }

  std::optional<int> AnswerModYear(app::ModYearForm form, std::string_view message,
                                   std::optional<int> button) override
  {
    ui::FrmModYear dialog(frame_, form, message);
    const Inside inside(dialog, [&] {
      if (button)
        Press(&dialog, NameText("Command1", *button));
      else
        dialog.Close();
    });
    const auto answer = dialog.Ask();
    inside.RethrowFailure();
    return answer;
  }

  void AnswerInstallDelete(app::InstallDeleteForm& form,
                           const std::vector<DeleteStep>& steps) override
  {
    ui::FrmInstallDelete dialog(frame_, form);
    const Inside inside(dialog, [&] {
      for (const auto& step : steps) {
        if (form.MustClose()) return;
        switch (step.kind) {
          case DeleteStep::Kind::kSelect: Choose(&dialog, "Combo1", step.position); break;
          case DeleteStep::Kind::kDelete: Press(&dialog, "DeleteButton"); break;
          case DeleteStep::Kind::kCancel: Press(&dialog, "CancelButton"); break;
        }
      }
    });
    dialog.ShowModal();
    inside.RethrowFailure();
  }

  void AnswerHelp() override
  {
    auto* const help = new ui::FrmHelp(frame_, resources_->Help());
    help->Show();
    LetWindowSystemWork();
    const auto shown = Get<wxTextCtrl>(help, "Text1").GetValue();
    help->Close();
    LetWindowSystemWork();
    if (shown.empty()) throw std::runtime_error("the help window shows no text");
  }

  [[nodiscard]] const app::MainWindow& Window() const override { return *window_; }

 private:
  /// Some systems keep a window within the real desktop unless it has a largest size of its own.
  void AllowScriptedSize(const platform::Screen& screen)
  {
    const auto scale = app::ScaleFor(screen.Width(), screen.Height());
    const wxSize size(Rounded(scale.fx * app::kDesignClientWidth),
                      Rounded(scale.fy * app::kDesignClientHeight));
    frame_->SetMaxClientSize(2 * size);
    if (frame_->GetClientSize() != size) frame_->SetClientSize(size);
  }

  const platform::Resources* resources_ = nullptr;
  std::optional<platform::WxPictureLoader> pictures_;
  std::optional<app::MainWindow> window_;
  wxWeakRef<ui::FrmMain> frame_;
};

}  // namespace

std::unique_ptr<Driver> MakeWindowDriver()
{
  return std::make_unique<WindowDriver>();
}

}  // namespace velquist::runner
