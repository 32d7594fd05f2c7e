// SPDX-License-Identifier: MIT
#include "ui/FrmGearing.h"

#include <wx/wupdlock.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>

#include "export/PictureSvg.h"
#include "platform_wx/Spoken.h"
#include "platform_wx/WxText.h"
#include "ui/Clipboard.h"
#include "ui/ForText.h"
#include "ui/MarkColour.h"
#include "ui/Widgets.h"

namespace velquist::ui {
namespace {

using platform::FromText;

constexpr int kGearingWidth = 900;
constexpr int kGearingHeight = 760;
constexpr int kLeastGearingWidth = 560;
constexpr int kLeastGearingHeight = 400;

constexpr int kUsualLetters = 15;
constexpr int kLeastLetters = 11;
constexpr int kMostLetters = 28;

// Letter heights.
constexpr double kRowHeight = 1.75;
constexpr double kTableFrame = 1.2;
constexpr double kRemarkHeight = 1.45;
constexpr int kRemarkLines = 4;

constexpr char kBetweenReadings[] = "; ";

constexpr std::array<const char*, 2> kPages = {"Thrust", "Engine speed"};

/// Words in the middle, numbers at their last digit.
wxAlignment AlignmentOf(std::size_t column)
{
  constexpr std::size_t kFirstNumber = 2;
  constexpr std::size_t kFirstYesOrNo = 8;
  return column >= kFirstNumber && column < kFirstYesOrNo ? wxALIGN_RIGHT : wxALIGN_CENTRE;
}

}  // namespace

FrmGearing::FrmGearing(const Setting& setting)
    : SideWindow(setting, &app::MainForm::gearing, "Velquist Gearing", "FrmGearing"),
      panel_(new wxPanel(this))
{
  heading_ = new wxStaticText(panel_, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
                              wxST_ELLIPSIZE_END | wxST_NO_AUTORESIZE, "Heading");
  MakeCharts(panel_);
  reading_ = new wxStaticText(panel_, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
                              wxST_ELLIPSIZE_END | wxST_NO_AUTORESIZE, "Reading");
  reading_->SetLabelText("Point at a chart, or move a cursor in it with Left and Right.");
  MakeTable(panel_);
  remarks_ = new wxTextCtrl(panel_, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
                            wxTE_MULTILINE | wxTE_READONLY, wxDefaultValidator, "Remarks");
  platform::SetSpoken(*remarks_, "What the numbers show", {});
  auto* const buttons = MakeButtons(panel_);

  auto* const rows = new wxBoxSizer(wxVERTICAL);
  const int gap = FromDIP(kGap);
  const auto wide = wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxTOP, gap);
  rows->Add(heading_, wide);
  rows->Add(pages_, wxSizerFlags(wide).Proportion(1));
  rows->Add(reading_, wide);
  rows->Add(table_, wide);
  rows->Add(remarks_, wide);
  rows->Add(buttons, wxSizerFlags(wide).Border(wxALL, gap));
  panel_->SetSizer(rows);

  const int height = std::max(ForText(*this, kGearingHeight), OfDesktop(kUsualPercent).y);
  TakeSize(wxSize(height * kGearingWidth / kGearingHeight, height),
           ForText(*this, wxSize(kLeastGearingWidth, kLeastGearingHeight)));
  BindEvents();
  ScaleLetters();
  table_->SetFocus();
}

void FrmGearing::MakeCharts(wxPanel* panel)
{
  constexpr std::array<app::GearingChart, 2> kCharts = {app::GearingChart::kThrust,
                                                        app::GearingChart::kSawTooth};
  pages_ = new wxNotebook(panel, wxID_ANY, wxDefaultPosition, wxDefaultSize, 0, "Charts");
  for (std::size_t page = 0; page < kPages.size(); ++page) {
    charts_.at(page) =
        new GearingChartBox(pages_, page == 0 ? "ThrustChart" : "SawToothChart", kCharts.at(page),
                            [this](double speed) { MoveCursor(speed); });
    platform::SetSpoken(*charts_.at(page), kPages.at(page),
                        "Left and right move a cursor through the road speeds");
    pages_->AddPage(charts_.at(page), kPages.at(page));
  }
}

void FrmGearing::MakeTable(wxPanel* panel)
{
  table_ = new wxDataViewListCtrl(panel, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                                  wxDV_SINGLE | wxDV_ROW_LINES);
  table_->SetName("Gears");
  TellRowsApart(*table_);
  const auto headings = app::GearingHeadings(false);
  for (std::size_t column = 0; column < headings.size(); ++column)
    table_->AppendTextColumn(FromText(headings.at(column)), wxDATAVIEW_CELL_INERT,
                             wxCOL_WIDTH_AUTOSIZE, AlignmentOf(column));
  platform::SetSpoken(*table_, "Gears", "Plus and minus step the selected gear");
}

wxSizer* FrmGearing::MakeButtons(wxPanel* panel)
{
  auto* const row = new wxBoxSizer(wxHORIZONTAL);
  const auto beside = wxSizerFlags().Border(wxRIGHT, FromDIP(kGap));
  const auto add = [&](wxButton* button, std::function<void()> pressed) {
    button->Bind(wxEVT_BUTTON, [pressed = std::move(pressed)](wxCommandEvent&) { pressed(); });
    row->Add(button, beside);
  };
  add(MakeButton(panel, "StepUp", "Gear +", "Take the next ratio for the selected gear (+)",
                 "Increase gear"),
      [this] { StepGear("CmdInc"); });
  add(MakeButton(panel, "StepDown", "Gear -", "Take the ratio before for the selected gear (-)",
                 "Decrease gear"),
      [this] { StepGear("CmdDec"); });
  row->AddStretchSpacer();
  add(MakeButton(panel, "CopyTable", "Copy &Table", "Copy table and sentences as text (Ctrl+C)"),
      [this] { CopyText(FromText(app::GearingText(view_))); });
  add(MakeButton(panel, "CopyPicture", "Copy &Picture", "Copy the chart as a picture"),
      [this] { CopyPicture(ShownChart().Painted()); });
  add(MakeButton(panel, "CopySvg", "Copy S&VG", "Copy the chart as a drawing that scales (SVG)"),
      [this] { CopySvg(text_export::SvgDocument(ShownChart().Recorded(), "Velquist Gearing")); });
  add(MakeButton(panel, "CloseButton", "C&lose", "Close this window (Escape)"),
      [this] { Close(); });
  return row;
}

void FrmGearing::BindEvents()
{
  Bind(wxEVT_CHAR_HOOK, &FrmGearing::OnKey, this);
  panel_->Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
    event.Skip();
    ScaleLetters();
  });
}

void FrmGearing::OnKey(wxKeyEvent& event)
{
  const int with = event.GetModifiers() & ~wxMOD_SHIFT;
  const int key = event.GetUnicodeKey() == WXK_NONE ? event.GetKeyCode() : event.GetUnicodeKey();
  if (with == wxMOD_CONTROL && key == 'C' && !remarks_->HasFocus()) {
    CopyText(FromText(app::GearingText(view_)));
  } else if (with == wxMOD_NONE && (key == '+' || key == '=' || key == WXK_NUMPAD_ADD)) {
    StepGear("CmdInc");
  } else if (with == wxMOD_NONE && (key == '-' || key == WXK_NUMPAD_SUBTRACT)) {
    StepGear("CmdDec");
  } else if (with == wxMOD_NONE && (key == WXK_LEFT || key == WXK_RIGHT) && table_->HasFocus()) {
    // Which has nothing to do with them itself.
    MoveCursor(cursor_ + (key == WXK_LEFT ? -1 : 1));
  } else {
    event.Skip();
  }
}

void FrmGearing::ScaleLetters()
{
  const wxSize client = panel_->GetClientSize();
  const int in_proportion =
      std::min(client.y * kUsualLetters / kGearingHeight, client.x * kUsualLetters / kGearingWidth);
  // Larger ones, which the system asks for, take some of the charts' room.
  const int larger =
      std::min(ForText(*this, std::min(in_proportion, kUsualLetters)), in_proportion * 4 / 3);
  const int letters = std::clamp(std::max(in_proportion, larger), FromDIP(kLeastLetters),
                                 ForText(*this, kMostLetters));
  if (letters == letters_) return;
  letters_ = letters;
  const wxWindowUpdateLocker still(panel_);
  const wxFont font = ControlFont(letters);
  for (wxWindow* const child : panel_->GetChildren()) child->SetFont(font);
  heading_->SetFont(font.Bold());
  remarks_->SetMinSize(wxSize(-1, static_cast<int>(kRemarkLines * kRemarkHeight * letters)));
  FitTable();
}

/// As high as its rows.
void FrmGearing::FitTable()
{
  const double lines = (table_->GetItemCount() + 1) * kRowHeight + kTableFrame;
  const wxSize least(-1, static_cast<int>(lines * letters_));
  if (table_->GetMinSize() != least) table_->SetMinSize(least);
  panel_->Layout();
}

void FrmGearing::BringInLine()
{
  auto input = app::GearingInputOf(Program().Car(), Program().State().Units);
  if (input == input_) return;
  view_ = app::ViewGearing(input);
  input_ = std::move(input);
  heading_->SetLabelText(FromText(app::GearingHeading(input_)));
  ShowRows();
  ShowRemarks();
  for (auto* const chart : charts_) chart->ShowView(view_);
  if (reads_cursor_)
    reading_->SetLabelText(FromText(app::ReadingText(view_, cursor_, kBetweenReadings)));
}

/// Touches only what differs, so that the selection stays.
void FrmGearing::ShowRows()
{
  const auto headings = app::GearingHeadings(input_.metric);
  for (unsigned column = 0; column < headings.size(); ++column)
    if (auto* const shown = table_->GetColumn(column);
        shown->GetTitle() != FromText(headings.at(column)))
      shown->SetTitle(FromText(headings.at(column)));
  const auto rows = app::GearingRows(view_);
  while (table_->GetItemCount() > static_cast<int>(rows.size()))
    table_->DeleteItem(static_cast<unsigned>(table_->GetItemCount() - 1));
  for (unsigned row = 0; row < rows.size(); ++row) {
    if (row >= static_cast<unsigned>(table_->GetItemCount())) {
      wxVector<wxVariant> cells;
      for (const auto& cell : rows[row]) cells.push_back(FromText(cell));
      table_->AppendItem(cells);
      continue;
    }
    for (unsigned column = 0; column < headings.size(); ++column)
      if (const auto text = FromText(rows[row].at(column));
          table_->GetTextValue(row, column) != text)
        table_->SetTextValue(text, row, column);
  }
  if (table_->GetSelectedRow() == wxNOT_FOUND && !rows.empty()) table_->SelectRow(0);
  FitTable();
}

void FrmGearing::ShowRemarks()
{
  auto text = app::RemarksText(view_);
  if (!text.empty()) text.pop_back();
  if (const auto shown = FromText(text); remarks_->GetValue() != shown)
    remarks_->ChangeValue(shown);
}

void FrmGearing::MoveCursor(double speed)
{
  cursor_ = std::clamp(std::round(speed), 0.0, charts::SpeedAxis(view_.picture).maximum);
  for (auto* const chart : charts_) chart->ShowCursor(cursor_);
  reads_cursor_ = true;
  Say(app::ReadingText(view_, cursor_, kBetweenReadings));
}

void FrmGearing::Say(std::string_view text)
{
  reading_->SetLabelText(FromText(text));
  platform::Announce(*reading_, FromText(text));
}

void FrmGearing::StepGear(std::string_view button)
{
  const int row = table_->GetSelectedRow();
  if (row == wxNOT_FOUND) return;
  reads_cursor_ = false;
  GiveEvent([&] { Program().Click(button, app::SlotOfGearingRow(row)); });
  const auto rows = app::GearingRows(view_);
  const auto at = static_cast<std::size_t>(row);
  if (at < rows.size()) Say(rows[at][0] + ": " + rows[at][1] + " (" + rows[at][2] + ")");
}

GearingChartBox& FrmGearing::ShownChart() const
{
  return *charts_.at(static_cast<std::size_t>(std::max(pages_->GetSelection(), 0)));
}

}  // namespace velquist::ui
