// SPDX-License-Identifier: MIT
#include "app/FormControlSettings.h"

#include <cmath>
#include <deque>
#include <string>

#include "setup/SlotTable.h"

namespace velquist::app {
namespace {

using enum ControlKind;

constexpr int kFileNameSize = 12;
constexpr int kTitleSize = 14;  ///< titles of frames
constexpr int kTextSize = 15;   ///< lists and options
constexpr int kCaptionSize = 16;
constexpr int kValueSize = 18;  ///< values and step buttons
constexpr int kStepHeight = 30;

/// Pixels; smaller letters cannot be read on any screen.
constexpr int kSmallestLetters = 9;

/// How a slot's buttons are called in tool tips and for screen readers.
constexpr std::array<std::string_view, kSlotControls> kSlotNames = {
    "left front tire pressure",
    "right front tire pressure",
    "left rear tire pressure",
    "right rear tire pressure",
    "left front wheel rate",
    "right front wheel rate",
    "left rear wheel rate",
    "right rear wheel rate",
    "left front bump",
    "right front bump",
    "left rear bump",
    "right rear bump",
    "left front rebound",
    "right front rebound",
    "left rear rebound",
    "right rear rebound",
    "left front camber",
    "right front camber",
    "left rear camber",
    "right rear camber",
    "left front bump rubber",
    "right front bump rubber",
    "left rear bump rubber",
    "right rear bump rubber",
    "front toe in",
    "rear toe in",
    "front roll bar stiffness",
    "rear roll bar stiffness",
    "front static ride height",
    "rear static ride height",
    "fuel level",
    "steering ratio",
    "front brake bias",
    "front wing",
    "rear wing",
    "",
    "",
    "",
    "",
    "",
    "",
    "",
    "1st gear",
    "2nd gear",
    "3rd gear",
    "4th gear",
    "5th gear",
    "6th gear",
};

/// Collects the rows and keeps the texts that are put together here.
class Designer {
 public:
  std::vector<ControlDesign> rows;

  void Menu(std::string_view name, std::string_view parent, std::string_view caption,
            std::string_view tip = {}, std::string_view shortcut = {})
  {
    rows.push_back({name, -1, kMenu, parent, -1, {}, kTextSize, caption, {}, tip, shortcut});
  }

  /// Controls that follow lie in this frame.
  void Frame(std::string_view name, int index, std::string_view caption, Place place)
  {
    frame_ = name;
    frame_index_ = index;
    rows.push_back({name, index, kFrame, {}, -1, place, kTitleSize, caption, {}, {}, {}});
  }
  void NoFrame()
  {
    frame_ = {};
    frame_index_ = -1;
  }

  void Add(ControlKind kind, std::string_view name, int index, std::string_view caption,
           Place place, int font_size = kTextSize, std::string_view spoken = {},
           std::string_view tip = {})
  {
    rows.push_back(
        {name, index, kind, frame_, frame_index_, place, font_size, caption, spoken, tip, {}});
  }

  /// Decrease button, value and increase button of a slot, `value_width` wide in the middle.
  void Stepper(int slot, int left, int top, int button_width, int value_width)
  {
    constexpr int kGap = 2;
    const auto name = std::string(kSlotNames[static_cast<std::size_t>(slot)]);
    const auto& decrease = texts_.emplace_back("Decrease " + name);
    const auto& increase = texts_.emplace_back("Increase " + name);
    const int value_left = left + button_width + kGap;
    const int increase_left = value_left + value_width + kGap;
    Add(kButton, "CmdDec", slot, "\u25C4", {left, top, button_width, kStepHeight}, kValueSize,
        decrease, decrease);
    Add(kLabel, "Label1", slot, "", {value_left, top, value_width, kStepHeight}, kValueSize);
    Add(kButton, "CmdInc", slot, "\u25BA", {increase_left, top, button_width, kStepHeight},
        kValueSize, increase, increase);
  }

 private:
  std::string_view frame_;
  int frame_index_ = -1;
  std::deque<std::string> texts_;
};

void Menus(Designer& form)
{
  form.Menu("MnuFile", "", "&File");
  form.Menu("MnuNew", "MnuFile", "&New", "Start a second editor");
  form.Menu("MnuOpen", "MnuFile", "&Open...", "Open a setup file", "Ctrl+O");
  form.Menu("MnuSave", "MnuFile", "&Save", "Save into the player's directory of the track",
            "Ctrl+S");
  form.Menu("MnuSaveAs", "MnuFile", "Save &As...", "Save under another name", "Ctrl+Shift+S");
  form.Menu("MnuRevert", "MnuFile", "&Revert to Default",
            "Go back to the mod year's default setup");
  form.Menu("MnuExport", "MnuFile", "&Export Text", "Write the setup as a readable text file");
  form.Menu("MnuExit", "MnuFile", "E&xit", "End the program", "Ctrl+Q");
  form.Menu("MnuTools", "", "&Tools");
  form.Menu("MnuImportChassis", "MnuTools", "Import &Chassis...",
            "Take the chassis settings of another setup");
  form.Menu("MnuImportDrivetrain", "MnuTools", "Import &Drivetrain...",
            "Take gears, differential and clutches of another setup");
  form.Menu("MnuReverse", "MnuTools", "&Reverse Chassis Settings",
            "Swap the left and right sides of the car");
  form.Menu("MnuSaveAsFormat", "MnuTools", "Save As &Format");
  form.Menu("MnuShortFormat", "MnuSaveAsFormat", "&Short Format",
            "Save As writes 1965 and 1967 setups in the short format");
  form.Menu("MnuLongFormat", "MnuSaveAsFormat", "&Long Format",
            "Save As writes 1965 and 1967 setups in the long format");
  form.Menu("MnuAddInstall", "MnuTools", "&Add Installation...", "Register a game installation");
  form.Menu("MnuDeleteInstall", "MnuTools", "D&elete Installation...",
            "Take an installation off the list");
  form.Menu("MnuHelp", "", "&Help");
  form.Menu("MnuHelp2", "MnuHelp", "&Manual", "Show the manual", "F1");
  form.Menu("MnuAbout", "MnuHelp", "&About", "Show the program's version");
}

/// A list of the top row with its caption above it.
void TopList(Designer& form, std::string_view name, int caption_index, std::string_view caption,
             std::string_view tip, int left, int width)
{
  form.Add(kLabel, "Label5", caption_index, caption, {left, 24, width, 20});
  form.Add(kList, name, -1, "", {left, 46, width, 32}, kTextSize, {}, tip);
}

void WhereAndWhat(Designer& form)
{
  form.Frame("Frame1", 0, "", {8, 4, 1248, 82});
  TopList(form, "Combo7", 0, "&Install Directory", "Game installation", 20, 290);
  TopList(form, "Combo2", 1, "Mod &Year", "Mod year of the setup", 320, 90);
  TopList(form, "Combo3", 2, "&Chassis", "Car of the setup", 420, 270);
  TopList(form, "Combo6", 3, "Fo&rmula", "Engine formula", 700, 70);
  TopList(form, "Combo4", 4, "&Player", "Player whose setups are opened and saved", 780, 172);
  TopList(form, "Combo5", 5, "Trac&k", "Track directory that setups are opened from and saved to",
          962, 140);
  form.Add(kLabel, "Label5", 6, "Setup File", {1114, 24, 136, 20});
  form.Add(kLabel, "Label4", -1, "", {1114, 46, 136, 32}, kFileNameSize);
}

/// Both wheels of an axle in mirrored columns around the captions, the axle's own values beneath.
void Axle(Designer& form, int frame_index, std::string_view title, int top, bool front)
{
  constexpr int kLeftColumn = 24;
  constexpr int kRightColumn = 472;
  constexpr int kColumnWidth = 160;
  constexpr int kCaption = 192;
  constexpr int kCaptionWidth = 272;
  constexpr int kRowPitch = 34;
  constexpr int kCell = 208;
  const int heading = front ? 0 : 2;
  const int first_caption = front ? 0 : 6;
  form.Frame("Frame1", frame_index, title, {8, top, 640, 316});
  form.Add(kLabel, "Label6", heading, "Left", {kLeftColumn, top + 22, kColumnWidth, 20},
           kCaptionSize);
  form.Add(kLabel, "Label6", heading + 1, "Right", {kRightColumn, top + 22, kColumnWidth, 20},
           kCaptionSize);
  // Camber's unit is spelled out until the first values are shown.
  constexpr std::array<std::string_view, 6> kCaptions = {
      "Tire Pressure, psi", "Wheel Rate, lbs/in", "Bump", "Rebound",
      "Camber, degrees",    "Bump Rubber, in"};
  for (int row = 0; row < 6; ++row) {
    const int left_slot = 4 * row + (front ? 0 : 2);
    const int y = top + 44 + row * kRowPitch;
    form.Stepper(left_slot, kLeftColumn, y, 34, 88);
    form.Add(kLabel, "Label3", first_caption + row, kCaptions[static_cast<std::size_t>(row)],
             {kCaption, y, kCaptionWidth, kStepHeight}, kCaptionSize);
    form.Stepper(left_slot + 1, kRightColumn, y, 34, 88);
  }
  const std::array<std::string_view, 3> captions = {
      "Toe In, in", "Roll Bar Stiffness, lbs/in",
      front ? "Static Ride Height,in" : "Static Ride Height, in"};
  for (int cell = 0; cell < 3; ++cell) {
    const int slot = setup::kToeIn + 2 * cell + (front ? 0 : 1);
    const int x = 16 + cell * kCell;
    form.Add(kLabel, "Label3", (front ? 12 : 15) + cell, captions[static_cast<std::size_t>(cell)],
             {x, top + 252, kCell, 20}, kCaptionSize);
    form.Stepper(slot, x + (kCell - kColumnWidth) / 2, top + 274, 34, 88);
  }
}

void SingleValues(Designer& form)
{
  constexpr int kTop = 740;
  const auto cell = [&](int slot, int caption, std::string_view text, int left, int width,
                        int button_width) {
    constexpr int kGaps = 4;
    const int value_width = width - 2 * button_width - kGaps - 8;
    form.Add(kLabel, "Label3", caption, text, {left, kTop + 20, width, 20}, kTextSize);
    form.Stepper(slot, left + 4, kTop + 44, button_width, value_width);
  };
  form.Frame("Frame1", 3, "", {8, kTop, 404, 86});
  cell(setup::kFuel, 18, "Fuel Level, gals", 14, 126, 34);
  cell(setup::kSteeringRatio, 19, "Steering Ratio", 142, 118, 34);
  cell(setup::kBrakeBias, 20, "Front Brake Bias, %", 262, 148, 34);
  form.Frame("Wings", -1, "", {420, kTop, 228, 86});
  cell(setup::kFrontWing, 21, "Front Wing, deg", 424, 110, 26);
  cell(setup::kRearWing, 22, "Rear Wing , deg", 534, 110, 26);
}

void Gears(Designer& form)
{
  form.Frame("Frame1", 4, "Gearing", {656, 92, 190, 236});
  constexpr std::array<std::string_view, 6> kNumbers = {"1", "2", "3", "4", "5", "6"};
  for (int gear = 0; gear < 6; ++gear) {
    const int slot = setup::kFirstGear + gear;
    const int y = 116 + gear * 34;
    form.Add(kLabel, "Label3", slot, kNumbers[static_cast<std::size_t>(gear)],
             {658, y, 14, kStepHeight}, kCaptionSize);
    form.Stepper(slot, 674, y, 28, 58);
    form.Add(kLabel, "Label2", slot, "", {794, y, 50, kStepHeight}, kCaptionSize);
  }
}

void Differential(Designer& form)
{
  form.Frame("Frame1", 5, "Differential Gearing", {854, 92, 236, 80});
  form.Add(kLabel, "Label3", setup::kFinalDrive, "&Differential Ratio", {864, 110, 216, 20});
  form.Add(kList, "Combo1", 0, "", {864, 132, 216, 32}, kTextSize, {}, "Final drive");
  form.Frame("Frame1", 6, "Diff Settings and Locking Percent", {854, 180, 236, 148});
  const auto row = [&](int list, int slot, std::string_view caption, std::string_view tip, int top,
                       bool locking) {
    form.Add(kLabel, "Label3", slot, caption, {862, top, 98, 32});
    form.Add(kList, "Combo1", list, "", {960, top, 76, 32}, kTextSize, {}, tip);
    if (locking) form.Add(kLabel, "Label2", slot, "", {1040, top, 44, 32}, kValueSize);
  };
  row(1, setup::kPowerAngle, "Po&wer Angle", "Ramp angle under power, degrees", 202, true);
  row(2, setup::kCoastAngle, "C&oast Angle", "Ramp angle off the throttle, degrees", 242, true);
  row(3, setup::kClutches, "C&lutches", "Clutch plates of the differential", 282, false);
}

void Options(Designer& form)
{
  form.Frame("Frame1", 7, "Edit Options", {1098, 92, 158, 144});
  const auto check = [&](std::string_view name, std::string_view caption, std::string_view tip,
                         int top) {
    form.Add(kCheck, name, -1, caption, {1101, top, 154, 26}, kTitleSize, {}, tip);
  };
  check("AsymmetricCheck", "Asy&mmetric Adjust", "Left and right sides can differ", 114);
  check("FineCheck", "Fi&ne Adjust", "Up and down edits are smaller", 144);
  check("RollBarConstTotal", "Constant Rol&bars", "Total roll bar stiffness is constant", 174);
  check("SpringStiffnessProportional", "Proportional &Springs",
        "Spring stiffness proportional to weight distribution", 204);
  form.Frame("Frame1", 8, "Units", {1098, 244, 158, 84});
  form.Add(kOption, "OptUnits", 0, "En&glish", {1101, 266, 154, 26}, kTitleSize, {},
           "Show psi, lbs/in, inches, gallons and mph");
  form.Add(kOption, "OptUnits", 1, "M&etric", {1101, 296, 154, 26}, kTitleSize, {},
           "Show kPa, N/cm, cm, litres and km/h");
}

void Pictures(Designer& form)
{
  form.NoFrame();
  form.Add(kPicture, "PictureChart2", -1, "", {656, 336, 600, 264}, 12, "Speed bands of the gears");
  form.Add(kPicture, "PictureChart", -1, "", {656, 608, 356, 218}, 12,
           "Torque and power of the engine");
  form.Add(kPicture, "GEMPic1", -1, "", {1020, 608, 236, 218}, kTextSize, "Picture of the car");
  form.Frame("Picture1", -1, "", {8, 834, 1248, 38});
  form.rows.back().kind = kPicture;
  form.Add(kLabel, "LblMarquee", -1, "", {8, 840, 1248, 26}, kValueSize);
}

Designer Design()
{
  Designer form;
  Menus(form);
  WhereAndWhat(form);
  Axle(form, 1, "Front", 92, true);
  Axle(form, 2, "Rear", 416, false);
  SingleValues(form);
  Gears(form);
  Differential(form);
  Options(form);
  Pictures(form);
  return form;
}

int Scaled(int value, float factor)
{
  return static_cast<int>(std::lround(static_cast<float>(value) * factor));
}

}  // namespace

std::span<const ControlDesign> FormControlSettings() noexcept
{
  static const Designer kForm = Design();
  return kForm.rows;
}

Scale ScaleFor(int screen_width, int screen_height) noexcept
{
  return {static_cast<float>(screen_width) / kDesignScreenWidth,
          static_cast<float>(screen_height) / kDesignScreenHeight};
}

void ScaleControls(MainForm& form, Scale scale)
{
  for (const auto& design : FormControlSettings()) {
    Control& control = *form.Find(design.name, design.index);
    // Both edges are rounded, so that neighbours that touch in the design touch here.
    const auto& place = design.place;
    control.place.left = Scaled(place.left, scale.fx);
    control.place.top = Scaled(place.top, scale.fy);
    control.place.width = Scaled(place.left + place.width, scale.fx) - control.place.left;
    control.place.height = Scaled(place.top + place.height, scale.fy) - control.place.top;
    control.font_size =
        std::max(kSmallestLetters, Scaled(design.font_size, std::min(scale.fx, scale.fy)));
  }
}

}  // namespace velquist::app
