// SPDX-License-Identifier: MIT
#pragma once

#include <wx/choice.h>
#include <wx/colour.h>
#include <wx/dc.h>
#include <wx/font.h>
#include <wx/statbox.h>
#include <wx/stattext.h>
#include <wx/toplevel.h>
#include <wx/window.h>

/// What the toolkit leaves to each system. One implementation a system.
namespace velquist::platform {

/// The face that the system has in place of `face`. It looks for what stands in for a face anew for
/// each size of it, and not for one that it has.
[[nodiscard]] wxString LetterFace(const wxString& face);

/// A font to draw with on `dc`, whose letters are `pixels` high: the size of its em, not of a line.
[[nodiscard]] wxFont LetterFont(const wxDC& dc, const wxString& face, double pixels);

/// The same as near as the letters of controls can be.
[[nodiscard]] wxFont ControlFont(const wxString& face, int pixels);

/// How many times as large as usual the system's text is on the screen of `window`; at least 1.
[[nodiscard]] double TextScale(const wxWindow& window);

/// What is made in `panel` from now on comes with letters of `font`, on systems where it would cost
/// time to give it others than the usual ones afterwards.
void ExpectLetters(wxWindow& panel, const wxFont& font);

/// Gives `control` letters of `font`, as SetFont does, but controls whose letters are alike share
/// them, so that many controls cost little.
void SetLetters(wxWindow& control, const wxFont& font);

/// Gives `control` alone letters of `font`, in `colour` or, where that is not valid, in the
/// system's own. Costs less than SetLetters where others stay as they are.
void SetOwnLetters(wxWindow& control, const wxFont& font, const wxColour& colour);

/// Lets the controls in `panel` be as small as their places say, where a desktop's theme would
/// keep them larger.
void AllowSmallControls(wxWindow& panel);

/// Lets buttons in `window` change their look at once. Where a theme has one look pass into the
/// other, the window is painted for a fifth of a second whenever a button is enabled, and presses
/// wait.
void ChangeButtonsAtOnce(wxTopLevelWindow& window);

/// Gives `window`, which has not been shown yet, the size that it comes up with. It is painted once
/// then, which it is not with SetClientSize on every system.
void SetFirstClientSize(wxTopLevelWindow& window, wxSize size);

/// True when nothing in `window` has the focus any more, since what had it was hidden.
[[nodiscard]] bool HasLostFocus(const wxWindow& window);

/// A frame whose label names the frame alone and not the control behind it.
[[nodiscard]] wxStaticBox* MakeFrame(wxWindow* parent, wxWindowID id, const wxString& name);

/// Lets the label of a box or option be cut while the control is placed anew: the system may do so
/// before it knows of smaller letters.
void AllowCutLabel(wxWindow& control);

/// Lets the pointer find the controls that stand in `frame`, its siblings, and has them paint
/// themselves there. Once all of them are made and before they are shown.
void PutBehindSiblings(wxWindow& frame);

/// Keeps all that stands beside `window` in its parent from painting over `place`, which is within
/// the parent: some systems paint windows that overlap in any order. An empty place ends it.
void KeepSiblingsOff(const wxWindow& window, const wxRect& place);

/// Puts the one line of `label` in the middle of its height.
void CentreVertically(wxStaticText& label);

/// A width for a text's paragraphs, which are measured in tenths of a millimeter.
[[nodiscard]] int TenthsOfMillimeter(const wxWindow& text, int pixels);

/// The mnemonic of `label` leads to `target`, which is the next control in tab order.
void SetMnemonicTarget(wxStaticText& label, wxWindow& target);

/// Shows these items and none chosen, of any number at once; all items of `list` come this way.
void SetItems(wxChoice& list, const wxArrayString& items);

}  // namespace velquist::platform
