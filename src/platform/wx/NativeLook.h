// SPDX-License-Identifier: MIT
#pragma once

#include <wx/choice.h>
#include <wx/stattext.h>
#include <wx/window.h>

/// What the toolkit leaves to each system. One implementation a system.
namespace velquist::platform {

/// Lets the controls in `panel` be as small as their places say, where a desktop's theme would
/// keep them larger.
void AllowSmallControls(wxWindow& panel);

/// Lets `box` place anew what it holds without the window around it being laid out: for something
/// that moves all the time.
void KeepToItself(wxWindow& box);

/// What a screen reader says for `control`, and what it can add; an empty text leaves the
/// system's own.
void SetSpoken(wxWindow& control, const wxString& name, const wxString& description);

/// Puts the one line of `label` in the middle of its height.
void CentreVertically(wxStaticText& label);

/// The mnemonic of `label` leads to `target`, which is the next control in tab order.
void SetMnemonicTarget(wxStaticText& label, wxWindow& target);

/// The wheel does not choose, and choosing the item that is chosen already is an event like any
/// other.
void ReportEveryChoice(wxChoice& list);

}  // namespace velquist::platform
