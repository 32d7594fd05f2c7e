// SPDX-License-Identifier: MIT
// Where the letter that a label underlines leads.
#include <gtk/gtk.h>
#include <wx/stattext.h>

#include <string>

#include "RealWindow.h"
#include "platform_wx/WxText.h"

namespace velquist::testing {
namespace {

class Mnemonics : public RealWindow {
 protected:
  /// To the control behind the label, in all of `parent`.
  void ExpectToLeadToWhatTheyName(const wxWindow& parent)
  {
    const auto& children = parent.GetChildren();
    for (auto at = children.begin(); at != children.end(); ++at) {
      ExpectToLeadToWhatTheyName(**at);
      const auto* const text = dynamic_cast<const wxStaticText*>(*at);
      if (text == nullptr || !GTK_IS_LABEL(text->GetHandle())) continue;
      auto* const label = GTK_LABEL(text->GetHandle());
      if (gtk_label_get_mnemonic_keyval(label) == GDK_KEY_VoidSymbol) continue;
      ++labels_;
      auto named = at;
      while (named != children.end() && !(*named)->AcceptsFocus()) ++named;
      ASSERT_NE(named, children.end()) << text->GetLabel();
      EXPECT_EQ(gtk_label_get_mnemonic_widget(label), (*named)->GetHandle())
          << text->GetLabel() << " and " << (*named)->GetName();
    }
  }

  int labels_ = 0;
};

TEST_F(Mnemonics, OfTheWindowsLeadToTheControlBehindTheLabel)
{
  Start();
  ExpectToLeadToWhatTheyName(Frame());
  EXPECT_GT(labels_, 3);
  editor.Play("click MnuCompare\nclick MnuGearing\nclick MnuLibrary\n");
  for (const char* const name : {"FrmCompare", "FrmLibrary"}) {
    labels_ = 0;
    ExpectToLeadToWhatTheyName(*wxWindow::FindWindowByName(name));
    EXPECT_GT(labels_, 0) << name;
  }
}

TEST_F(Mnemonics, OfTheListOfInstallationsLeadToIt)
{
  Start();
  const AtBox look(
      [this] { ExpectToLeadToWhatTheyName(*wxWindow::FindWindowByName("FrmInstallDelete")); });
  editor.Play("on FrmInstallDelete -> cancel\nclick MnuDeleteInstall\n");
  EXPECT_EQ(labels_, 1);
}

}  // namespace
}  // namespace velquist::testing
