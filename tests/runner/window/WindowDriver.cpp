// SPDX-License-Identifier: MIT
#include <wx/checkbox.h>
#include <wx/dataview.h>
#include <wx/radiobut.h>
#include <wx/stattext.h>
#include <wx/statusbr.h>
#include <wx/textctrl.h>

#include <type_traits>

#include <wx/weakref.h>

#include <array>
#include <cmath>
#include <exception>
#include <functional>
#include <stdexcept>

#include "app/FormControlSettings.h"
#include "platform_wx/WxText.h"
#include "runner/Driver.h"
#include "runner/window/Widgets.h"
#include "runner/window/WindowSystem.h"
#include "ui/FrmHelp.h"
#include "ui/FrmInstallDelete.h"
#include "ui/FrmLibrary.h"
#include "ui/FrmMain.h"
#include "ui/FrmModYear.h"
#include "ui/PictureBoxes.h"

namespace velquist::runner {
namespace {

using app::ControlKind;
using platform::ToText;

int Rounded(float pixels)
{
  return static_cast<int>(std::nearbyint(pixels));
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
    if (frame_) {
      frame_->SetEvtHandlerEnabled(false);  // whom it would ask may be gone
      frame_->Destroy();
    }
    LetWindowSystemWork();
    library_.reset();
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
    return Look(*widget, frame_);
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

  [[nodiscard]] std::string Type(int slot, const std::string& text) override
  {
    SendKey(Get(frame_, NameText("CmdInc", slot)), WXK_RETURN);
    auto& number = Get<wxTextCtrl>(frame_, "Typed");
    number.SetValue(platform::FromText(text));
    SendKey(number, WXK_RETURN);
    LetWindowSystemWork();
    if (!number.IsShownOnScreen()) return {};
    auto refused = ToText(Get<wxStaticText>(frame_, "TypedRange").GetLabelText());
    SendKey(number, WXK_ESCAPE);
    LetWindowSystemWork();
    return refused;
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
    wxCommandEvent event(platform::EVT_TICK);
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

  [[nodiscard]] app::Library& Library() override
  {
    if (Window().Form().library.open) return OpenLibrary().Library();
    return library_.emplace(Window());
  }
  void FilterLibrary(std::string_view text) override
  {
    Get<wxTextCtrl>(&OpenLibrary(), "Filter").SetValue(platform::FromText(text));
    LetWindowSystemWork();
  }
  void SortLibrary(int column) override
  {
    auto& table = Get<wxDataViewCtrl>(&OpenLibrary(), "Setups");
    for (unsigned at = 0; at < table.GetColumnCount(); ++at) {
      auto* const heading = table.GetColumn(at);
      if (static_cast<int>(heading->GetModelColumn()) != column) continue;
      wxDataViewEvent event(wxEVT_DATAVIEW_COLUMN_HEADER_CLICK, &table, heading);
      table.ProcessWindowEvent(event);
    }
    LetWindowSystemWork();
  }
  void UseOfLibrary(LibraryCommand command, const std::string& path) override
  {
    constexpr std::array<const char*, 4> kButtons = {"Open", "Reference", "Export", "Show"};
    auto& library = OpenLibrary();
    auto& table = Get<wxDataViewCtrl>(&library, "Setups");
    LetWindowSystemWork();
    const auto& model = dynamic_cast<const wxDataViewVirtualListModel&>(*table.GetModel());
    const auto line = library.Library().Table().Find(path).value();
    table.Select(model.GetItem(static_cast<unsigned>(line)));
    wxDataViewEvent event(wxEVT_DATAVIEW_SELECTION_CHANGED, &table, table.GetSelection());
    table.ProcessWindowEvent(event);
    Press(&library, kButtons.at(static_cast<std::size_t>(command)));
    LetWindowSystemWork();
  }

  [[nodiscard]] const app::MainWindow& Window() const override { return *window_; }

 private:
  [[nodiscard]] ui::FrmLibrary& OpenLibrary() const
  {
    return Get<ui::FrmLibrary>(frame_, "FrmLibrary");
  }

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
  std::optional<app::Library> library_;
  wxWeakRef<ui::FrmMain> frame_;
};

}  // namespace

std::unique_ptr<Driver> MakeWindowDriver()
{
  return std::make_unique<WindowDriver>();
}

}  // namespace velquist::runner
