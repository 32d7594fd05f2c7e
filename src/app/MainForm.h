// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "charts/PictureRecorder.h"

namespace velquist::app {

enum class ControlKind { kButton, kLabel, kList, kCheck, kOption, kFrame, kMenu, kPicture };

/// Pixels within the window's client area.
struct Place {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;
  friend bool operator==(const Place&, const Place&) = default;
};

struct Control;
struct MainForm;
class MainWindow;

/// The member of MainForm that a row of the layout is about.
struct FormMember {
  std::span<Control> (*places)(MainForm& form) = nullptr;
  int count = 0;  ///< places of a control array, 0 for a single control
};

/// How a label's text stands in its place.
enum class Alignment { kCentre, kLeft };

/// What the window makes for a control.
enum class Shape {
  kOfKind,      ///< what the kind says
  kStepButton,  ///< a button that steps the slot of its index again and again while it is held
  kChart,       ///< a picture box of what `chart` has recorded
  kCarPicture,  ///< a picture box of the car
  kMarquee,     ///< the box that the quotation runs through
  kNone,        ///< nothing: the box around it shows it
};

/// Letter height of lists, boxes and most captions, pixels.
inline constexpr int kUsualLetters = 15;

/// One row of the design layout (FormControlSettings.cpp): all that never changes about a control.
/// Controls are named with views into that table, which lives as long as the program.
struct ControlDesign {
  std::string_view name{};  ///< VELQUIST_CONTROL(name) gives this and the next
  FormMember member{};
  int index = -1;  ///< place in its control array, -1 for a single control
  ControlKind kind = ControlKind::kLabel;
  std::string_view frame{};  ///< name of the frame or menu around it, empty at the top
  int frame_index = -1;
  Place place{};                  ///< at a screen of 1280 x 1024; empty for menus
  int font_size = kUsualLetters;  ///< pixels of letter height at that screen
  std::string_view caption{};     ///< initial text; `&` marks the mnemonic
  std::string_view spoken{};      ///< accessible name where the caption does not say it
  std::string_view tip{};
  std::string_view shortcut{};        ///< "Ctrl+O"; of a frame: leads to its first control
  std::string_view other_shortcut{};  ///< a second one that does the same

  /// What happens when the user presses, chooses or checks it; null where nothing does.
  void (*event)(MainWindow& window, int index) = nullptr;

  bool begins_group = false;  ///< of menu items, behind a line; of option buttons
  bool exclusive = false;     ///< menu item with a mark that only one of its menu has
  bool opens_first = false;   ///< list that a key opens, which otherwise would choose
  bool chosen_again = false;  ///< choosing the marked one of them is no idle choice
  Alignment alignment = Alignment::kCentre;  ///< of a label
  bool ellipsis =
      false;  ///< a long text of a label or of a list is cut; the tool tip has the whole of it

  Shape shape = Shape::kOfKind;
  charts::PictureRecorder MainForm::*chart = nullptr;  ///< of a chart

  /// The control itself.
  [[nodiscard]] Control& In(MainForm& form) const noexcept;
  [[nodiscard]] const Control& In(const MainForm& form) const noexcept;
};

/// A control as the window shows it. `shown` is the control's own state; a control inside a hidden
/// frame is hidden all the same (see MainForm::IsShown).
struct Control {
  const ControlDesign* design = nullptr;  ///< null for array places that no control fills
  std::string text;
  std::vector<std::string> items;  ///< of a list
  int selection = -1;              ///< of a list, -1 for none
  bool shown = true;
  bool enabled = true;
  bool checked = false;
  bool marked = false;  ///< of a value or list: differs from the reference
  Place place{};        ///< scaled for the screen
  int font_size = 0;    ///< pixels, scaled for the screen
};

/// Number of entries in the arrays indexed by parameter slot.
inline constexpr int kSlotControls = 52;

/// Every control under its own name, and nothing but controls. Each member has its row or rows in
/// the layout.
struct FormControls {
  // Indexed by parameter slot; only slots with such a control are filled.
  std::array<Control, kSlotControls> CmdInc, CmdDec;
  std::array<Control, kSlotControls> Label1;  ///< value
  std::array<Control, kSlotControls>
      Label2;  ///< overall ratio (42 to 47), locking percent (49, 50)
  std::array<Control, kSlotControls>
      Label3;  ///< row captions 0 to 22, gear and list captions by slot

  std::array<Control, 4> Combo1;  ///< differential ratio, power angle, coast angle, clutches
  Control Combo2;                 ///< mod year
  Control Combo3;                 ///< chassis
  Control Combo4;                 ///< player
  Control Combo5;                 ///< track
  Control Combo6;                 ///< formula
  Control Combo7;                 ///< installation
  Control Label4;                 ///< current file name
  std::array<Control, 7> Label5;  ///< captions of the lists and of the file name
  std::array<Control, 4> Label6;  ///< headings "Left" and "Right" over the front and rear wheels

  std::array<Control, 2> OptUnits;
  Control AsymmetricCheck, FineCheck, RollBarConstTotal, SpringStiffnessProportional;

  std::array<Control, 9> Frame1;
  Control Wings;

  Control PictureChart;   ///< torque and power against rpm
  Control PictureChart2;  ///< speed bands
  Control GEMPic1;        ///< car picture
  Control Picture1;       ///< box of the marquee
  Control LblMarquee;

  Control MnuFile, MnuNew, MnuOpen, MnuSave, MnuSaveAs, MnuRevert, MnuExport, MnuSheet, MnuLibrary,
      MnuExit;
  Control MnuEdit, MnuUndo, MnuRedo, MnuCompare, MnuReference, MnuReferenceLoaded,
      MnuReferenceDefault, MnuReferenceFile;
  Control MnuTools, MnuImportChassis, MnuImportDrivetrain, MnuReverse, MnuSaveAsFormat,
      MnuShortFormat, MnuLongFormat, MnuAddInstall, MnuDeleteInstall, MnuGearing;
  Control MnuHelp, MnuHelp2, MnuAbout;
};

/// Whether a window beside the main one is open.
struct SideWindowState {
  bool open = false;
  unsigned asked = 0;  ///< times that the user has asked for it; each brings it to the front

  void Ask()
  {
    open = true;
    ++asked;
  }
};

/// What the main window shows, as plain data. The events write to it, the front end brings its
/// widgets in line with it.
struct MainForm : FormControls {
  std::string caption;  ///< of the window
  std::string status;   ///< what was done last

  SideWindowState compare;  ///< the comparison with the reference
  SideWindowState gearing;  ///< what the gears make of the engine
  SideWindowState library;  ///< the setups of all installations

  // What is drawn in the picture boxes.
  charts::PictureRecorder chart;   ///< in PictureChart
  charts::PictureRecorder chart2;  ///< in PictureChart2
  std::string car_picture;         ///< path of the picture in GEMPic1, empty for the built-in one

  /// Every control captioned and placed as at a screen of 1280 x 1024.
  MainForm();

  /// The control of that row, null when there is none. `index` is -1 for a single control.
  [[nodiscard]] Control* Find(std::string_view name, int index) noexcept;
  [[nodiscard]] const Control* Find(std::string_view name, int index) const noexcept;

  /// The value label or list of a parameter slot; null where it has none.
  [[nodiscard]] Control* ValueOf(int slot) noexcept;
  [[nodiscard]] const Control* ValueOf(int slot) const noexcept;
  /// How many values are marked.
  [[nodiscard]] int DifferenceCount() const noexcept;

  /// Shown itself and every frame or menu around it.
  [[nodiscard]] bool IsShown(const Control& control) const noexcept;
};

/// The parameter slot that a value label, a list of the differential or a step button is about;
/// nothing for every other control.
[[nodiscard]] std::optional<int> SlotOf(const ControlDesign& design);

template <std::size_t kCount>
constexpr int CountOf(std::array<Control, kCount> FormControls::* /*member*/)
{
  return static_cast<int>(kCount);
}
constexpr int CountOf(Control FormControls::* /*member*/)
{
  return 0;
}

template <auto kMember>
inline constexpr FormMember kFormMember = {[](MainForm& form) -> std::span<Control> {
                                             if constexpr (CountOf(kMember) == 0)
                                               return {&(form.*kMember), 1};
                                             else
                                               return form.*kMember;
                                           },
                                           CountOf(kMember)};

/// Begins a row: the control's name and its member, which must be one of FormControls.
#define VELQUIST_CONTROL(control) \
  .name = #control, .member = ::velquist::app::kFormMember<&::velquist::app::MainForm::control>

}  // namespace velquist::app
