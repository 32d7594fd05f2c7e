// SPDX-License-Identifier: MIT
#include "ui/FrmMain.h"

#include <wx/utils.h>
#include <wx/wupdlock.h>

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

#include "app/ComparisonTable.h"
#include "app/Flag.h"
#include "app/FormControlSettings.h"
#include "app/SpokenTexts.h"
#include "platform_wx/NativeLook.h"
#include "platform_wx/ProgramIcons.h"
#include "platform_wx/Spoken.h"
#include "platform_wx/WxText.h"
#include "ui/FileDrop.h"
#include "ui/MarkColour.h"
#include "ui/StatusLine.h"
#include "ui/StepButton.h"

namespace velquist::ui {
namespace {

using app::ControlKind;
using app::Shape;

/// Row N of the layout has the window id kFirstId + N.
constexpr int kFirstId = wxID_HIGHEST + 1;

constexpr int kLeastClientWidth = 700;
constexpr int kLeastClientHeight = 440;

int Rounded(float value)
{
  return static_cast<int>(std::nearbyint(value));
}

}  // namespace

FrmMain::FrmMain(app::MainWindow& window, const platform::Screen& screen,
                 platform::WxPictureLoader& pictures)
    : wxFrame(nullptr, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
              wxDEFAULT_FRAME_STYLE, "FrmMain"),
      window_(window),
      panel_(new wxPanel(this)),
      menus_(window.Form(), kFirstId),
      beside_({this, window, [this](const auto& event) { Handle(event); }}),
      field_(*panel_, window,
             [this](int slot, const std::string& number) {
               std::string refused;
               Handle([&] { refused = window_.Type(slot, number); });
               return refused;
             }),
      differences_(window),
      timer_(*this)
{
  SetIcons(platform::ProgramIcons());
  SetMenuBar(menus_.Bar());
  platform::AllowSmallControls(*panel_);
  platform::ChangeButtonsAtOnce(*this);
  MakeWidgets(pictures);
  MakeStatusLine();

  const auto scale = app::ScaleFor(screen.Width(), screen.Height());
  laid_out_for_ = wxSize(Rounded(static_cast<float>(app::kDesignClientWidth) * scale.fx),
                         Rounded(static_cast<float>(app::kDesignClientHeight) * scale.fy));
  SetMinClientSize(wxSize(std::min(kLeastClientWidth, laid_out_for_.x),
                          std::min(kLeastClientHeight, laid_out_for_.y)));
  platform::SetFirstClientSize(*this, laid_out_for_);
  ShowChanges();
  BindEvents();
  FocusFirstStepButton();
}

bool FrmMain::Show(bool show)
{
  const bool other = wxFrame::Show(show);
  if (show) ShowChanges();
  return other;
}

void FrmMain::RunMarquee()
{
  marquee_runs_ = true;
  SetTimer();
}

void FrmMain::MakeWidgets(platform::WxPictureLoader& pictures)
{
  int id = kFirstId;
  const wxFont usual = panel_->GetFont();
  for (const auto& design : app::FormControlSettings()) {
    platform::ExpectLetters(*panel_, ControlFont(design.In(window_.Form()).font_size));
    if (wxWindow* const made = MakeWindow(design, id, pictures)) {
      keys_.Add(design, *made);
      field_.Add(design, *made);
      const auto& control = design.In(window_.Form());
      if (&control == &window_.Form().Label4) file_label_ = made;
      widgets_.emplace_back(control, *made);
    }
    ++id;
  }
  platform::ExpectLetters(*panel_, usual);
  unsaved_ = new UnsavedMark(panel_);
  for (auto& widget : widgets_)
    if (widget.Design().kind == ControlKind::kFrame) platform::PutBehindSiblings(widget.Window());
}

void FrmMain::MakeStatusLine()
{
  const int letters = LargerLetters::Wanted(window_.Form().Label4, platform::TextScale(*this));
  wxStatusBar* const line = StatusLine(*this, ControlFont(letters));
  count_ = new DifferenceCount(line, [this] { Handle([this] { window_.Click("MnuCompare"); }); });
}

/// Null for what has no window of its own.
wxWindow* FrmMain::MakeWindow(const app::ControlDesign& design, wxWindowID id,
                              platform::WxPictureLoader& pictures)
{
  const auto& form = window_.Form();
  const wxString name = WindowName(design);
  switch (design.shape) {
    case Shape::kStepButton:
      return new StepButton(panel_, id, LabelText(design.In(form)), PlaceOf(design.In(form)), name,
                            [this, slot = design.index] { return window_.Car().Value(slot); });
    case Shape::kChart:
      return charts_.emplace_back(new ChartBox(panel_, id, name, SourceOf(window_, design)));
    case Shape::kCarPicture: return car_ = new CarPictureBox(panel_, id, name, pictures);
    case Shape::kMarquee: return marquee_ = new MarqueeBox(panel_, id, name, form.LblMarquee);
    case Shape::kNone: return nullptr;
    case Shape::kOfKind: break;
  }
  return design.kind == ControlKind::kMenu ? nullptr : MakeWidget(design.In(form), panel_, id);
}

void FrmMain::FocusFirstStepButton()
{
  const auto first = std::ranges::find(widgets_, Shape::kStepButton,
                                       [](const auto& widget) { return widget.Design().shape; });
  if (first != widgets_.end()) first->Window().SetFocus();
}

void FrmMain::BindEvents()
{
  Bind(wxEVT_BUTTON, &FrmMain::OnButton, this);
  Bind(wxEVT_CHOICE, &FrmMain::OnChosen, this);
  Bind(wxEVT_CHECKBOX, &FrmMain::OnChecked, this);
  Bind(wxEVT_RADIOBUTTON, &FrmMain::OnChecked, this);
  Bind(wxEVT_SIZE, &FrmMain::OnSize, this);
  Bind(wxEVT_CLOSE_WINDOW, &FrmMain::OnClose, this);
  Bind(wxEVT_MENU, [this](wxCommandEvent& event) {
    const wxBusyCursor busy;  // files are read and written; a box on the screen suspends it
    OnButton(event);
  });
  Bind(platform::EVT_TICK, [this](wxCommandEvent&) { OnTick(); });
  Bind(wxEVT_ACTIVATE, [this](wxActivateEvent& event) {
    event.Skip();
    if (!event.GetActive()) return;
    std::optional<wxBusyCursor> busy;  // the first one takes longer than a look at the file
    if (window_.State().open_file.IsChangedOnDisk(window_.Surroundings().files)) busy.emplace();
    Handle([this] { window_.Activated(); });
  });
  Bind(wxEVT_SYS_COLOUR_CHANGED, [this](wxSysColourChangedEvent& event) {
    event.Skip();
    for (auto& widget : widgets_)
      if (widget.Shown().marked) SetMarked(widget.Window(), true);
    count_->ShowColour();
  });
  Bind(wxEVT_ICONIZE, [this](wxIconizeEvent& event) {
    SetTimer();
    event.Skip();
  });
  // Outside the drop itself, which the other program waits for.
  SetDropTarget(new FileDrop([this](const wxString& path) {
    CallAfter([this, path] {
      const wxBusyCursor busy;
      Handle([&] { window_.FileDropped(platform::ToText(path)); });
    });
  }));
}

bool FrmMain::Give(const std::function<void()>& event)
{
  if (handling_ || IsBeingDeleted() || window_.Ended()) return false;
  {
    const app::Flag under_way(handling_, true);
    event();
  }
  if (!window_.Ended()) return true;
  timer_.Stop();
  Destroy();
  return false;
}

void FrmMain::Handle(const std::function<void()>& event)
{
  if (!Give(event)) return;
  ShowChanges();
  CallAfter(&FrmMain::LayOut);  // the size may have changed under a box on the screen
}

void FrmMain::LayOut()
{
  const wxSize now = GetClientSize();
  if (now == laid_out_for_ || handling_ || IsIconized() || now.x < 1 || now.y < 1) return;
  laid_out_for_ = now;
  const wxWindowUpdateLocker still(panel_);
  Handle([&] { window_.Resized(now.x, now.y); });
}

void FrmMain::ShowChanges()
{
  const auto& form = window_.Form();
  const wxString caption = platform::FromText(form.caption);
  if (GetTitle() != caption) SetTitle(caption);
  tips_.BringInLine();
  differences_.BringInLine();
  for (auto& widget : widgets_) {
    const auto& design = widget.Design();
    widget.BringInLine(form.IsShown(widget.Shown()));
    widget.Tell({app::SpokenText(window_, design), tips_.Of(design), differences_.Of(design), {}});
  }
  if (IsActive()) keys_.KeepFocus();
  // Not before the window is shown, which has the system work out the looks of everything again.
  if (IsShown()) {
    larger_letters_.BringInLine();
    for (auto& widget : widgets_) widget.KeepTextWhole();
  }
  count_->BringInLine(window_.Form().DifferenceCount(), app::ReferenceName(window_));
  ShowFile();
  menus_.BringInLine();
  for (auto* const chart : charts_) chart->BringInLine(window_.Car().SharedReference());
  car_->ShowPicture(form.car_picture);
  marquee_->BringInLine();
  beside_.BringInLine();
  SetTimer();  // which a box on the screen has held up
}

void FrmMain::ShowFile()
{
  const auto& form = window_.Form();
  const auto& list = form.Combo5.place;
  const auto& label = form.Label4.place;
  const int gap = list.left + list.width;
  unsaved_->SetSize(gap, label.top, label.left - gap, label.height);
  const bool unsaved = window_.Car().Changed();
  const bool saved = unsaved_->IsShown() && !unsaved;
  unsaved_->Show(unsaved);
  if (auto path = window_.SavePath(); path != save_path_) {
    save_path_ = std::move(path);
    file_label_->SetToolTip(platform::FromText(window_.Surroundings().files.HostText(save_path_)));
  }
  if (form.status == status_ && !saved) return;
  status_ = form.status;
  SetStatusText(platform::FromText(status_));
  platform::Announce(*GetStatusBar(), platform::FromText(status_));
}

/// Happens so often that it looks at the one thing alone that it can change.
void FrmMain::OnTick()
{
  if (!Give([this] { window_.Tick(); })) return;
  marquee_->BringInLine();
  SetTimer();
}

void FrmMain::SetTimer()
{
  if (!marquee_runs_ || IsIconized()) {
    timer_.Stop();
    return;
  }
  timer_.StartOnce(std::max(window_.UntilTick(), 1));
}

const app::ControlDesign* FrmMain::DesignOf(int id) const
{
  const auto rows = app::FormControlSettings();
  if (id < kFirstId || id - kFirstId >= static_cast<int>(rows.size())) return nullptr;
  return &rows[static_cast<std::size_t>(id - kFirstId)];
}

void FrmMain::TakeUserChange(const wxCommandEvent& event)
{
  for (auto& widget : widgets_)
    if (&widget.Window() == event.GetEventObject() || event.GetEventType() == wxEVT_RADIOBUTTON)
      widget.TakeUserChange();
}

void FrmMain::OnButton(wxCommandEvent& event)
{
  const auto* const design = DesignOf(event.GetId());
  if (design != nullptr)
    Handle([&] { window_.Click(design->name, design->index, event.GetExtraLong() != 0); });
}

void FrmMain::OnChosen(wxCommandEvent& event)
{
  const wxBusyCursor busy;  // a year or an installation reads its default setup
  TakeUserChange(event);
  const auto* const design = DesignOf(event.GetId());
  if (design != nullptr)
    Handle([&] { window_.Select(design->name, design->index, event.GetSelection()); });
}

void FrmMain::OnChecked(wxCommandEvent& event)
{
  TakeUserChange(event);
  const auto* const design = DesignOf(event.GetId());
  if (design != nullptr)
    Handle([&] { window_.Check(design->name, design->index, event.IsChecked()); });
}

void FrmMain::OnSize(wxSizeEvent& event)
{
  event.Skip();
  CallAfter(&FrmMain::LayOut);  // the client area follows after this event
}

void FrmMain::OnClose(wxCloseEvent& event)
{
  if (!event.CanVeto()) {
    Destroy();
    return;
  }
  bool may_go = false;
  if (!handling_) Handle([&] { may_go = window_.CloseRequested(); });
  if (may_go)
    Destroy();
  else
    event.Veto();
}

}  // namespace velquist::ui
