// SPDX-License-Identifier: MIT
#include "app/FormControlSettings.h"

#include "app/FormDesigner.h"
#include "app/MainWindow.h"
#include "app/MenuRows.h"
#include "app/StepTexts.h"
#include "setup/SlotTable.h"

namespace velquist::app {
namespace {

using enum ControlKind;

constexpr int kChartSize = 12;
constexpr int kOptionSize = 14;
constexpr int kTextSize = kUsualLetters;  ///< also titles of frames and the name of the file
constexpr int kCaptionSize = 16;
constexpr int kValueSize = 18;  ///< values and step buttons
constexpr int kStepHeight = 30;

}  // namespace

/// The rows of all but the menus. A friend of MainWindow, whose events they name.
struct ControlRows {
  /// A list of the top row with its caption above it.
  static constexpr void TopList(FormDesigner& form, int index, std::string_view caption, int left,
                                int width, ControlDesign list)
  {
    form.Add({VELQUIST_CONTROL(Label5), .index = index, .place = {left, 24, width, 20},
              .caption = caption, .alignment = Alignment::kLeft});
    list.kind = kList;
    list.place = {left, 46, width, 32};
    form.Add(list);
  }

  /// Where the setup is, then what it is of; the formula, which not every car has, last.
  static constexpr void WhereAndWhat(FormDesigner& form)
  {
    form.Frame({VELQUIST_CONTROL(Frame1), .index = 0, .kind = kFrame, .place = {8, 10, 1248, 76},
                .font_size = kTextSize});
    TopList(form, 0, "&Install Directory", 20, 290,
            {VELQUIST_CONTROL(Combo7), .tip = "Game installation",
             .event = On<&MainWindow::Combo7_Click>, .opens_first = true, .ellipsis = true});
    TopList(form, 4, "&Player", 320, 172,
            {VELQUIST_CONTROL(Combo4), .tip = "Player whose setups are opened and saved",
             .event = On<&MainWindow::Combo4_Click>});
    TopList(form, 5, "Trac&k", 502, 140,
            {VELQUIST_CONTROL(Combo5),
             .tip = "Track directory that setups are opened from and saved to",
             .event = On<&MainWindow::Combo5_Click>});
    form.Add({VELQUIST_CONTROL(Label5), .index = 6, .place = {654, 24, 168, 20},
              .caption = "Setup File", .alignment = Alignment::kLeft});
    form.Add({VELQUIST_CONTROL(Label4), .place = {654, 46, 168, 32}, .alignment = Alignment::kLeft,
              .ellipsis = true});
    TopList(form, 1, "Mod &Year", 832, 80,
            {VELQUIST_CONTROL(Combo2), .tip = "Mod year of the setup",
             .event = On<&MainWindow::Combo2_Click>, .opens_first = true});
    TopList(form, 2, "&Chassis", 922, 252,
            {VELQUIST_CONTROL(Combo3), .tip = "Car of the setup",
             .event = On<&MainWindow::Combo3_Click>});
    TopList(form, 3, "Fo&rmula", 1184, 60,
            {VELQUIST_CONTROL(Combo6), .tip = "Engine formula",
             .event = On<&MainWindow::Combo6_Click>});
  }

  /// Decrease button, value and increase button of a slot, `value_width` wide in the middle.
  static constexpr void Stepper(FormDesigner& form, int slot, int left, int top, int button_width,
                                int value_width)
  {
    constexpr int kGap = 2;
    const auto at = static_cast<std::size_t>(slot);
    const int value_left = left + button_width + kGap;
    const int increase_left = value_left + value_width + kGap;
    form.Add({VELQUIST_CONTROL(CmdDec), .index = slot, .kind = kButton,
              .place = {left, top, button_width, kStepHeight}, .font_size = kValueSize,
              .caption = "\u25C4", .spoken = kDecreaseTexts[at], .tip = kDecreaseTexts[at],
              .event = On<&MainWindow::CmdDec_Click>, .shape = Shape::kStepButton});
    form.Add({VELQUIST_CONTROL(Label1), .index = slot,
              .place = {value_left, top, value_width, kStepHeight}, .font_size = kValueSize});
    form.Add({VELQUIST_CONTROL(CmdInc), .index = slot, .kind = kButton,
              .place = {increase_left, top, button_width, kStepHeight}, .font_size = kValueSize,
              .caption = "\u25BA", .spoken = kIncreaseTexts[at], .tip = kIncreaseTexts[at],
              .event = On<&MainWindow::CmdInc_Click>, .shape = Shape::kStepButton});
  }

  /// The caption of a value or list.
  static constexpr void Caption(FormDesigner& form, int index, std::string_view text, Place place,
                                int font_size, Alignment alignment = Alignment::kCentre)
  {
    form.Add({VELQUIST_CONTROL(Label3), .index = index, .place = place, .font_size = font_size,
              .caption = text, .alignment = alignment});
  }

  /// Both wheels of an axle in mirrored columns around the captions, the axle's own values in the
  /// same columns beneath.
  static constexpr void Axle(FormDesigner& form, int frame_index, std::string_view title, int top,
                             bool front)
  {
    constexpr std::array kColumns = {24, 248, 472};
    constexpr int kColumnWidth = 160;
    constexpr int kCaption = 192;
    constexpr int kCaptionWidth = 272;
    constexpr int kRowPitch = 34;
    constexpr int kBeside = 8;  ///< that the longest caption stands out beside its column
    const int heading = front ? 0 : 2;
    const int first_caption = front ? 0 : 6;
    const auto stepper = [&form](int slot, int column, int y) {
      Stepper(form, slot, column, y, 34, 88);
    };
    form.Frame({VELQUIST_CONTROL(Frame1), .index = frame_index, .kind = kFrame,
                .place = {8, top, 640, 316}, .font_size = kTextSize, .caption = title,
                .shortcut = front ? "Ctrl+1" : "Ctrl+2"});
    form.Add({VELQUIST_CONTROL(Label6), .index = heading,
              .place = {kColumns[0], top + 22, kColumnWidth, 20}, .font_size = kCaptionSize,
              .caption = "Left"});
    form.Add({VELQUIST_CONTROL(Label6), .index = heading + 1,
              .place = {kColumns[2], top + 22, kColumnWidth, 20}, .font_size = kCaptionSize,
              .caption = "Right"});
    // Camber's unit is spelled out until the first values are shown.
    constexpr std::array<std::string_view, 6> kCaptions = {
        "Tire Pressure, psi", "Wheel Rate, lbs/in", "Bump", "Rebound",
        "Camber, degrees",    "Bump Rubber, in"};
    for (int row = 0; row < 6; ++row) {
      const int left_slot = 4 * row + (front ? 0 : 2);
      const int y = top + 44 + row * kRowPitch;
      stepper(left_slot, kColumns[0], y);
      Caption(form, first_caption + row, kCaptions[static_cast<std::size_t>(row)],
              {kCaption, y, kCaptionWidth, kStepHeight}, kCaptionSize);
      stepper(left_slot + 1, kColumns[2], y);
    }
    const std::array<std::string_view, 3> captions = {
        "Toe In, in", "Roll Bar Stiffness, lbs/in",
        front ? "Static Ride Height,in" : "Static Ride Height, in"};
    for (int cell = 0; cell < 3; ++cell) {
      const int slot = setup::kToeIn + 2 * cell + (front ? 0 : 1);
      const auto at = static_cast<std::size_t>(cell);
      const int beside = cell == 1 ? kBeside : 0;
      Caption(form, (front ? 12 : 15) + cell, captions[at],
              {kColumns[at] - beside, top + 252, kColumnWidth + 2 * beside, 20}, kCaptionSize);
      stepper(slot, kColumns[at], top + 274);
    }
  }

  /// The wings, which few cars have, last.
  static constexpr void SingleValues(FormDesigner& form)
  {
    constexpr int kTop = 740;
    constexpr int kWidth = 110;
    const auto cell = [&form](int slot, int caption, std::string_view text, int left, int beside) {
      Caption(form, caption, text, {left - beside, kTop + 16, kWidth + 2 * beside, 20}, kTextSize);
      Stepper(form, slot, left, kTop + 42, 30, 46);
    };
    form.Frame({VELQUIST_CONTROL(Frame1), .index = 3, .kind = kFrame, .place = {8, kTop, 388, 86},
                .font_size = kTextSize, .spoken = "Fuel, Steering and Brakes",
                .shortcut = "Ctrl+3"});
    cell(setup::kFuel, 18, "Fuel Level, gals", 16, 0);
    cell(setup::kSteeringRatio, 19, "Steering Ratio", 134, 0);
    cell(setup::kBrakeBias, 20, "Front Brake Bias, %", 265, 13);
    form.Frame({VELQUIST_CONTROL(Wings), .kind = kFrame, .place = {404, kTop, 244, 86},
                .font_size = kTextSize, .spoken = "Wings"});
    cell(setup::kFrontWing, 21, "Front Wing, deg", 412, 0);
    cell(setup::kRearWing, 22, "Rear Wing , deg", 530, 0);
  }

  static constexpr void Gears(FormDesigner& form)
  {
    form.Frame({VELQUIST_CONTROL(Frame1), .index = 4, .kind = kFrame, .place = {656, 92, 184, 236},
                .font_size = kTextSize, .caption = "Gearing", .shortcut = "Ctrl+4"});
    constexpr std::array<std::string_view, 6> kNumbers = {"1", "2", "3", "4", "5", "6"};
    for (int gear = 0; gear < 6; ++gear) {
      const int slot = setup::kFirstGear + gear;
      const int y = 116 + gear * 34;
      Caption(form, slot, kNumbers[static_cast<std::size_t>(gear)], {664, y, 10, kStepHeight},
              kCaptionSize);
      Stepper(form, slot, 676, y, 28, 56);
      form.Add({VELQUIST_CONTROL(Label2), .index = slot, .place = {794, y, 38, kStepHeight}});
    }
  }

  static constexpr void DrivetrainList(FormDesigner& form, int index, std::string_view tip,
                                       Place place)
  {
    form.Add({VELQUIST_CONTROL(Combo1), .index = index, .kind = kList, .place = place, .tip = tip,
              .event = On<&MainWindow::Combo1_Click>});
  }

  static constexpr void Differential(FormDesigner& form)
  {
    form.Frame({VELQUIST_CONTROL(Frame1), .index = 5, .kind = kFrame, .place = {848, 92, 237, 82},
                .font_size = kTextSize, .caption = "Differential Gearing", .shortcut = "Ctrl+5"});
    Caption(form, setup::kFinalDrive, "&Differential Ratio", {856, 113, 221, 20}, kTextSize,
            Alignment::kLeft);
    DrivetrainList(form, 0, "Final drive", {856, 134, 221, 32});
    form.Frame({VELQUIST_CONTROL(Frame1), .index = 6, .kind = kFrame, .place = {848, 182, 237, 146},
                .font_size = kTextSize, .caption = "Diff Settings and Locking Percent"});
    const auto row = [&form](int list, int slot, std::string_view caption, std::string_view tip,
                             int top, bool locking) {
      Caption(form, slot, caption, {856, top, 100, 32}, kTextSize, Alignment::kLeft);
      DrivetrainList(form, list, tip, {960, top, 76, 32});
      if (locking)
        form.Add({VELQUIST_CONTROL(Label2), .index = slot, .place = {1038, top, 39, 32},
                  .font_size = kValueSize});
    };
    row(1, setup::kPowerAngle, "Po&wer Angle", "Ramp angle under power, degrees", 202, true);
    row(2, setup::kCoastAngle, "C&oast Angle", "Ramp angle off the throttle, degrees", 242, true);
    row(3, setup::kClutches, "C&lutches", "Clutch plates of the differential", 282, false);
  }

  /// A box or option of the column on the right.
  static constexpr void Option(FormDesigner& form, int top, ControlDesign row)
  {
    row.place = {1101, top, 154, 26};
    row.font_size = kOptionSize;
    form.Add(row);
  }

  /// What not every car has comes last.
  static constexpr void Options(FormDesigner& form)
  {
    form.Frame({VELQUIST_CONTROL(Frame1), .index = 7, .kind = kFrame, .place = {1093, 92, 163, 144},
                .font_size = kTextSize, .caption = "Edit Options", .shortcut = "Ctrl+6"});
    Option(form, 114,
           {VELQUIST_CONTROL(RollBarConstTotal), .kind = kCheck, .caption = "Constant Rol&bars",
            .tip = "Total roll bar stiffness is constant",
            .event = On<&MainWindow::RollBarConstTotal_Click>});
    Option(form, 144,
           {VELQUIST_CONTROL(FineCheck), .kind = kCheck, .caption = "Fi&ne Adjust",
            .tip = "Up and down edits are smaller", .event = On<&MainWindow::FineCheck_Click>});
    Option(form, 174,
           {VELQUIST_CONTROL(SpringStiffnessProportional), .kind = kCheck,
            .caption = "Proportional &Springs",
            .tip = "Spring stiffness proportional to weight distribution",
            .event = On<&MainWindow::SpringStiffnessProportional_Click>});
    Option(form, 204,
           {VELQUIST_CONTROL(AsymmetricCheck), .kind = kCheck, .caption = "&Asymmetric Adjust",
            .tip = "Left and right sides can differ",
            .event = On<&MainWindow::AsymmetricCheck_Click>});
    form.Frame({VELQUIST_CONTROL(Frame1), .index = 8, .kind = kFrame, .place = {1093, 244, 163, 84},
                .font_size = kTextSize, .caption = "Units"});
    Option(form, 266,
           {VELQUIST_CONTROL(OptUnits), .index = 0, .kind = kOption, .caption = "En&glish",
            .tip = "Show psi, lbs/in, inches, gallons and mph",
            .event = On<&MainWindow::OptUnits_Click>, .begins_group = true});
    Option(
        form, 296,
        {VELQUIST_CONTROL(OptUnits), .index = 1, .kind = kOption, .caption = "&Metric",
         .tip = "Show kPa, N/cm, cm, litres and km/h", .event = On<&MainWindow::OptUnits_Click>});
  }

  static constexpr void Pictures(FormDesigner& form)
  {
    form.NoFrame();
    form.Add({VELQUIST_CONTROL(PictureChart2), .kind = kPicture, .place = {656, 336, 600, 264},
              .font_size = kChartSize, .spoken = "Speed bands of the gears", .shape = Shape::kChart,
              .chart = &MainForm::chart2});
    form.Add({VELQUIST_CONTROL(PictureChart), .kind = kPicture, .place = {656, 608, 356, 218},
              .font_size = kChartSize, .spoken = "Torque and power of the engine",
              .shape = Shape::kChart, .chart = &MainForm::chart});
    form.Add({VELQUIST_CONTROL(GEMPic1), .kind = kPicture, .place = {1020, 608, 236, 218},
              .spoken = "Picture of the car", .shape = Shape::kCarPicture});
    form.Frame({VELQUIST_CONTROL(Picture1), .kind = kPicture, .place = {8, 834, 1248, 38},
                .font_size = kTextSize, .shape = Shape::kMarquee});
    form.Add({VELQUIST_CONTROL(LblMarquee), .place = {8, 840, 1248, 26}, .font_size = kValueSize,
              .shape = Shape::kNone});
  }

  static constexpr FormDesigner All()
  {
    FormDesigner form;
    MenuRows::AddTo(form);
    WhereAndWhat(form);
    Axle(form, 1, "Front", 92, true);
    Axle(form, 2, "Rear", 416, false);
    SingleValues(form);
    Gears(form);
    Differential(form);
    Options(form);
    Pictures(form);
    form.Finish();
    return form;
  }
};

namespace {

#ifdef __SANITIZE_ADDRESS__
// Under g++'s sanitizers the address of a function is no constant that differs from null.
const FormDesigner kForm = ControlRows::All();
#else
constexpr FormDesigner kForm = ControlRows::All();
static_assert(kForm.Places() * sizeof(Control) == sizeof(FormControls),
              "a member of FormControls has no row");
#endif

}  // namespace

std::span<const ControlDesign> FormControlSettings() noexcept
{
  return kForm.Rows();
}

}  // namespace velquist::app
