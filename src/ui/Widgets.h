// SPDX-License-Identifier: MIT
#pragma once

#include <wx/font.h>
#include <wx/window.h>

#include <optional>
#include <string>

#include "app/MainForm.h"

namespace velquist::ui {

/// "CmdInc(4)", or the name alone for a single control.
[[nodiscard]] wxString WindowName(const app::ControlDesign& design);

/// Arial, or what the system has in its place.
[[nodiscard]] const wxString& LetterFace();

/// That face in `pixels` letter height.
[[nodiscard]] wxFont ControlFont(int pixels);

/// What is told of a control beside its name and its tip; empty texts tell nothing.
struct Told {
  std::string more;        ///< to a screen reader, in place of the tip
  std::string line;        ///< in the tool tip: range, step and effect of a value
  std::string difference;  ///< to both: how the value differs from the reference
  std::string whole;       ///< in the tool tip: the text of a control that may cut it
  friend bool operator==(const Told&, const Told&) = default;
};

/// A control of the main form and the widget that shows it.
class ControlWidget {
 public:
  /// `window` was made for `control`, shows its text or nothing, and belongs to its parent window.
  ControlWidget(const app::Control& control, wxWindow& window);

  [[nodiscard]] const app::Control& Shown() const { return *control_; }
  [[nodiscard]] const app::ControlDesign& Design() const { return *control_->design; }
  [[nodiscard]] wxWindow& Window() const { return *window_; }

  /// Brings the widget in line with the control; touches only what differs from the last time.
  /// `shown` is that of the control and everything around it.
  void BringInLine(bool shown);

  /// True when LettersThatFit may say something else than when this was asked last.
  [[nodiscard]] bool TakeNews();

  /// `letters`, or as many pixels less as all that it has shown at its place needs; not below the
  /// control's own.
  [[nodiscard]] int LettersThatFit(int letters) const;

  /// Gives it letters of that height until the control's own are others.
  void Enlarge(int letters);

  /// Makes letters smaller with which the text has no room beside the mark or margin that the
  /// system draws. After all widgets have been brought in line: each one that is measured has the
  /// system work out the looks of all that have changed.
  void KeepTextWhole();

  /// Lets a screen reader and the tool tip tell it, and the text where it may be cut.
  void Tell(Told told);

  /// The user has changed the widget itself: what it shows now counts as the last time.
  void TakeUserChange();

 private:
  [[nodiscard]] bool Fits(int letters) const;
  void ShowText();
  void ShowItems();
  void ShowChecked();
  void ShowPlace();

  const app::Control* control_;
  wxWindow* window_;
  app::Control last_;         ///< as last shown; no items at first
  bool unmeasured_ = false;   ///< text, letters or width are others
  bool news_ = true;          ///< text, letters or place are others
  int letters_ = 0;           ///< height in pixels that the control's letters are shown with
  app::Place fitted_{};       ///< place that `widest_` is of
  int fitted_letters_ = 0;    ///< the control's own letters that `beside_` is of
  wxSize beside_;             ///< what the system adds to the text
  wxString widest_;           ///< text at that place
  std::optional<Told> told_;  ///< last
};

/// The text with its mnemonic while it is the caption of the design.
[[nodiscard]] wxString LabelText(const app::Control& control);

[[nodiscard]] wxRect PlaceOf(const app::Control& control);

/// Makes the widget that the control's kind says: a button, label, check box or option button with
/// its text, or an empty list, at its place; or an empty frame.
[[nodiscard]] wxWindow* MakeWidget(const app::Control& control, wxWindow* parent, wxWindowID id);

/// What a screen reader and a tool tip say about the control.
void Describe(wxWindow& window, const app::ControlDesign& design, const Told& told);

}  // namespace velquist::ui
