// SPDX-License-Identifier: MIT
#pragma once

#include "app/FormDesigner.h"
#include "app/MainWindow.h"

namespace velquist::app {

/// The rows of the menus. A friend of MainWindow, whose events they name.
struct MenuRows {
  static constexpr void AddTo(FormDesigner& form)
  {
    form.Menu({VELQUIST_CONTROL(MnuFile), .caption = "&File"});
    form.MenuItem({VELQUIST_CONTROL(MnuNew), .frame = "MnuFile", .caption = "&New",
                   .tip = "Start a second editor", .event = On<&MainWindow::MnuNew_Click>});
    form.MenuItem({VELQUIST_CONTROL(MnuOpen), .frame = "MnuFile", .caption = "&Open...",
                   .tip = "Open a setup file", .shortcut = "Ctrl+O",
                   .event = On<&MainWindow::MnuOpen_Click>});
    form.MenuItem({VELQUIST_CONTROL(MnuSave), .frame = "MnuFile", .caption = "&Save",
                   .tip = "Save into the player's directory of the track", .shortcut = "Ctrl+S",
                   .event = On<&MainWindow::MnuSave_Click>, .begins_group = true});
    form.MenuItem({VELQUIST_CONTROL(MnuSaveAs), .frame = "MnuFile", .caption = "Save &As...",
                   .tip = "Save under another name", .shortcut = "Ctrl+Shift+S",
                   .event = On<&MainWindow::MnuSaveAs_Click>});
    form.MenuItem({VELQUIST_CONTROL(MnuRevert), .frame = "MnuFile", .caption = "&Revert to Default",
                   .tip = "Go back to the mod year's default setup",
                   .event = On<&MainWindow::MnuRevert_Click>, .begins_group = true});
    form.MenuItem({VELQUIST_CONTROL(MnuExport), .frame = "MnuFile", .caption = "&Export Text",
                   .tip = "Write the setup as a readable text file",
                   .event = On<&MainWindow::MnuExport_Click>});
    form.MenuItem({VELQUIST_CONTROL(MnuSheet), .frame = "MnuFile", .caption = "Setup S&heet...",
                   .tip = "Save all about the setup as a page to print or send",
                   .event = On<&MainWindow::MnuSheet_Click>});
    form.MenuItem({VELQUIST_CONTROL(MnuLibrary), .frame = "MnuFile", .caption = "&Library...",
                   .tip = "Show the setups of all installations", .shortcut = "Ctrl+L",
                   .event = On<&MainWindow::MnuLibrary_Click>, .begins_group = true});
    form.MenuItem({VELQUIST_CONTROL(MnuExit), .frame = "MnuFile", .caption = "E&xit",
                   .tip = "End the program", .shortcut = "Ctrl+Q",
                   .event = On<&MainWindow::MayClose>, .begins_group = true});
    form.Menu({VELQUIST_CONTROL(MnuEdit), .caption = "&Edit"});
    form.MenuItem({VELQUIST_CONTROL(MnuUndo), .frame = "MnuEdit", .caption = "&Undo",
                   .tip = "Take back the last change of values", .shortcut = "Ctrl+Z",
                   .event = On<&MainWindow::MnuUndo_Click>});
    form.MenuItem({VELQUIST_CONTROL(MnuRedo), .frame = "MnuEdit", .caption = "&Redo",
                   .tip = "Make the change again that was taken back", .shortcut = "Ctrl+Y",
                   .other_shortcut = "Ctrl+Shift+Z", .event = On<&MainWindow::MnuRedo_Click>});
    form.MenuItem({VELQUIST_CONTROL(MnuCompare), .frame = "MnuEdit", .caption = "&Compare...",
                   .tip = "Show what differs from the reference", .shortcut = "Ctrl+D",
                   .event = On<&MainWindow::MnuCompare_Click>, .begins_group = true});
    form.Menu({VELQUIST_CONTROL(MnuReference), .frame = "MnuEdit", .caption = "Re&ference"});
    form.MenuItem({VELQUIST_CONTROL(MnuReferenceLoaded), .frame = "MnuReference",
                   .caption = "Setup as &Loaded", .tip = "Mark what differs from what was loaded",
                   .event = On<&MainWindow::MnuReferenceLoaded_Click>, .exclusive = true,
                   .chosen_again = true});
    form.MenuItem({VELQUIST_CONTROL(MnuReferenceDefault), .frame = "MnuReference",
                   .caption = "&Default Setup",
                   .tip = "Mark what differs from the mod year's default setup",
                   .event = On<&MainWindow::MnuReferenceDefault_Click>, .exclusive = true,
                   .chosen_again = true});
    form.MenuItem({VELQUIST_CONTROL(MnuReferenceFile), .frame = "MnuReference",
                   .caption = "Setup &File...", .tip = "Mark what differs from another setup file",
                   .event = On<&MainWindow::MnuReferenceFile_Click>, .exclusive = true,
                   .chosen_again = true});
    form.Menu({VELQUIST_CONTROL(MnuTools), .caption = "&Tools"});
    form.MenuItem({VELQUIST_CONTROL(MnuImportChassis), .frame = "MnuTools",
                   .caption = "Import &Chassis...",
                   .tip = "Take the chassis settings of another setup",
                   .event = On<&MainWindow::MnuImportChassis_Click>});
    form.MenuItem({VELQUIST_CONTROL(MnuImportDrivetrain), .frame = "MnuTools",
                   .caption = "Import &Drivetrain...",
                   .tip = "Take gears, differential and clutches of another setup",
                   .event = On<&MainWindow::MnuImportDrivetrain_Click>});
    form.MenuItem({VELQUIST_CONTROL(MnuReverse), .frame = "MnuTools",
                   .caption = "&Reverse Chassis Settings",
                   .tip = "Swap the left and right sides of the car",
                   .event = On<&MainWindow::MnuReverse_Click>});
    form.MenuItem({VELQUIST_CONTROL(MnuGearing), .frame = "MnuTools", .caption = "&Gearing...",
                   .tip = "Show thrust, best shifts and speeds of the gears", .shortcut = "Ctrl+G",
                   .event = On<&MainWindow::MnuGearing_Click>, .begins_group = true});
    form.Menu({VELQUIST_CONTROL(MnuSaveAsFormat), .frame = "MnuTools", .caption = "Save As &Format",
               .begins_group = true});
    form.MenuItem({VELQUIST_CONTROL(MnuShortFormat), .frame = "MnuSaveAsFormat",
                   .caption = "&Short Format",
                   .tip = "Save As writes 1965 and 1967 setups in the short format",
                   .event = [](MainWindow& window, int) { window.MnuFormat_Click(false); },
                   .exclusive = true});
    form.MenuItem({VELQUIST_CONTROL(MnuLongFormat), .frame = "MnuSaveAsFormat",
                   .caption = "&Long Format",
                   .tip = "Save As writes 1965 and 1967 setups in the long format",
                   .event = [](MainWindow& window, int) { window.MnuFormat_Click(true); },
                   .exclusive = true});
    form.MenuItem({VELQUIST_CONTROL(MnuAddInstall), .frame = "MnuTools",
                   .caption = "&Add Installation...", .tip = "Register a game installation",
                   .event = On<&MainWindow::AddInstallation>, .begins_group = true});
    form.MenuItem({VELQUIST_CONTROL(MnuDeleteInstall), .frame = "MnuTools",
                   .caption = "D&elete Installation...", .tip = "Take an installation off the list",
                   .event = On<&MainWindow::DeleteInstallation>});
    form.Menu({VELQUIST_CONTROL(MnuHelp), .caption = "&Help"});
    form.MenuItem({VELQUIST_CONTROL(MnuHelp2), .frame = "MnuHelp", .caption = "&Manual",
                   .tip = "Show the manual", .shortcut = "F1",
                   .event = On<&MainWindow::MnuHelp2_Click>});
    form.MenuItem({VELQUIST_CONTROL(MnuAbout), .frame = "MnuHelp", .caption = "&About",
                   .tip = "Show the program's version", .event = On<&MainWindow::MnuAbout_Click>});
  }
};

}  // namespace velquist::app
