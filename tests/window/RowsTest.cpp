// SPDX-License-Identifier: MIT
// What the fields of the layout's rows make of menus and labels.
#include <wx/menu.h>
#include <wx/stattext.h>

#include <string>
#include <vector>

#include "RealWindow.h"

namespace velquist::testing {
namespace {

using Names = std::vector<std::string>;

/// The texts of the items of `menu` and the menus in it, a line as "-", a radio item as
/// "(text)" and another that can be marked as "[text]".
void AddItems(const wxMenu& menu, Names& items)
{
  for (const wxMenuItem* const item : menu.GetMenuItems()) {
    const auto text = item->GetItemLabelText().ToStdString();
    items.push_back(item->IsSeparator() ? "-"
                    : item->IsRadio()   ? "(" + text + ")"
                    : item->IsCheck()   ? "[" + text + "]"
                                        : text);
    if (item->IsSubMenu()) AddItems(*item->GetSubMenu(), items);
  }
}

class Rows : public RealWindow {};

TEST_F(Rows, GroupTheMenusAndMarkWhatIsExclusive)
{
  Start();
  const auto& bar = *Frame().GetMenuBar();
  const std::vector<Names> expected = {
      {"New", "Open...", "-", "Save", "Save As...", "-", "Revert to Default", "Export Text",
       "Setup Sheet...", "-", "Library...", "-", "Exit"},
      {"Undo", "Redo", "-", "Compare...", "Reference", "[Setup as Loaded]", "[Default Setup]",
       "[Setup File...]"},
      {"Import Chassis...", "Import Drivetrain...", "Reverse Chassis Settings", "-", "Gearing...",
       "-", "Save As Format", "(Short Format)", "(Long Format)", "-", "Add Installation...",
       "Delete Installation..."},
      {"Manual", "About"}};
  ASSERT_EQ(bar.GetMenuCount(), expected.size());
  for (std::size_t menu = 0; menu < expected.size(); ++menu) {
    Names items;
    AddItems(*bar.GetMenu(menu), items);
    EXPECT_EQ(items, expected[menu]);
  }
}

TEST_F(Rows, LetTheMarkedItemBeChosenAgain)
{
  Start();
  editor.Play("click MnuReferenceDefault\n");
  const auto menu = [&](const char* name) { return Frame().GetMenus().Look(name)->checked; };
  EXPECT_TRUE(menu("MnuReferenceDefault"));
  EXPECT_FALSE(menu("MnuReferenceLoaded"));
  const int id = Frame().GetMenuBar()->FindMenuItem("Edit", "Default Setup");
  ASSERT_NE(id, wxNOT_FOUND);
  Frame().GetMenuBar()->Check(id, false);  // as a user who chooses it again
  wxCommandEvent chosen(wxEVT_MENU, id);
  Frame().ProcessWindowEvent(chosen);
  EXPECT_TRUE(menu("MnuReferenceDefault"));
}

TEST_F(Rows, KeepWhatOpensAMenuFromBeingACommand)
{
  Start();
  for (const char* const menu :
       {"MnuFile", "MnuEdit", "MnuReference", "MnuTools", "MnuSaveAsFormat", "MnuHelp"})
    EXPECT_FALSE(Frame().GetMenus().Choose(menu)) << menu;
  EXPECT_TRUE(Frame().GetMenus().Choose("MnuLongFormat"));
}

TEST_F(Rows, PutCaptionsOfListsAndTheFileNameAtTheLeftAndAllElseInTheMiddle)
{
  Start();
  for (const auto& design : app::FormControlSettings()) {
    const auto* const label = dynamic_cast<const wxStaticText*>(Widget(design));
    if (label == nullptr) continue;
    const bool of_list = design.name == "Label3" && design.index >= 48;
    const bool left = of_list || design.name == "Label4" || design.name == "Label5";
    EXPECT_EQ(label->HasFlag(wxALIGN_CENTRE_HORIZONTAL), !left) << NameOf(design);
    EXPECT_EQ(label->HasFlag(wxST_ELLIPSIZE_MIDDLE), design.name == "Label4") << NameOf(design);
  }
  EXPECT_EQ(Widget("Label4")->GetToolTipText(), "67 Velquist Default.vqset");
}

}  // namespace
}  // namespace velquist::testing
