// SPDX-License-Identifier: MIT
// What shows that a setup is not saved yet, where it goes, and what was done last.
#include <gtk/gtk.h>
#include <wx/statusbr.h>

#include <algorithm>
#include <string>

#include "RealWindow.h"

namespace velquist::testing {
namespace {

class Status : public RealWindow {
 protected:
  /// With a setup of Jim's for monza.
  void StartWithAFile()
  {
    Start();
    editor.Play(
        "select Combo4 \"Jim\"\nselect Combo5 \"monza\"\n"
        "on save -> $G/Players/Jim/Setups/monza/fast.bb1\nclick MnuSaveAs\n");
  }
  [[nodiscard]] const wxWindow& Mark() const { return *Widget("UnsavedMark"); }
};

TEST_F(Status, AMarkBesideTheFileNameIsThereWhileChangesAreNotSaved)
{
  StartWithAFile();
  EXPECT_FALSE(Mark().IsShown());
  editor.Play("click CmdInc(4)\n");
  EXPECT_TRUE(Mark().IsShown());
  editor.Play(
      "on message \"This file already exits.  Do you want to overwrite it?\" question -> yes\n"
      "click MnuSave\nexpect Label4 \"fast.bb1\"\n");
  EXPECT_FALSE(Mark().IsShown());
}

TEST_F(Status, TheMarkIsADotAndStandsInNobodysWay)
{
  for (const auto screen : {ScreenSize{800, 600}, ScreenSize{1280, 1024}, ScreenSize{1920, 1080}}) {
    Start(screen);
    editor.Play("click CmdInc(4)\n");
    LetTimePass(100);
    const auto place = Mark().GetRect();
    EXPECT_FALSE(place.Intersects(Widget("Combo5")->GetRect()));
    EXPECT_FALSE(place.Intersects(Widget("Label4")->GetRect()));
    EXPECT_GE(place.width, 7);
    const auto pixels = Pixels("UnsavedMark");
    const auto at = [&](int x, int y) {
      return pixels.at(static_cast<std::size_t>((y * place.width + x) * 3));
    };
    const int middle = place.height / 2;
    EXPECT_LT(at(place.width / 2, middle), 100);
    EXPECT_LT(at(place.width / 2, middle + 1), 100);
    EXPECT_GT(at(0, 0), 200);
    EXPECT_GT(at(place.width / 2, 1), 200);
    // As much is clear on either side of it, of 2 pixels at least.
    const int clear = std::max(2, place.width / 4);
    for (int x = 0; x < clear; ++x) {
      EXPECT_GT(at(x, middle), 200) << x;
      EXPECT_GT(at(place.width - 1 - x, middle), 200) << x;
    }
  }
}

TEST_F(Status, TheFileNamesToolTipIsThePathThatSaveWritesTo)
{
  StartWithAFile();
  const auto tip = [&] { return Widget("Label4")->GetToolTipText().ToStdString(); };
  EXPECT_EQ(tip(), editor.Path("$G/Players/Jim/Setups/monza/fast.bb1").string());
  editor.Play("select Combo4 \"Jean-Pierre_Bosteile\"\n");
  EXPECT_EQ(
      tip(),
      editor.Path("$G/Players/Jean-Pierre_Bosteile/Setups/nurburgring_24h/fast.bb1").string());
}

TEST_F(Status, TheLineIsSpokenAndTakesNoRoomOfTheControls)
{
  StartWithAFile();
  GtkWidget* const line = Frame().GetStatusBar()->GetHandle();
  AtkObject* const spoken = gtk_widget_get_accessible(line);
  EXPECT_EQ(atk_object_get_role(spoken), ATK_ROLE_STATUSBAR);
  EXPECT_STREQ(atk_object_get_name(spoken), "Saved monza/fast.bb1");
  EXPECT_EQ(Frame().GetClientSize(), wxSize(app::kDesignClientWidth, app::kDesignClientHeight));
  EXPECT_EQ(Frame().GetStatusBar()->GetStatusText(), "Saved monza/fast.bb1");
}

TEST_F(Status, TheWindowFitsTheSmallestDesktopWithItsLine)
{
  Start({800, 600});
  EXPECT_EQ(Frame().GetClientSize(), wxSize(790, 516));
  EXPECT_LE(Frame().GetSize().y, 600);
}

}  // namespace
}  // namespace velquist::testing
