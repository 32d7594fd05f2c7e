// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <gtk/gtk.h>
#include <wx/frame.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "NativeBox.h"
#include "Nothing.h"
#include "RealWindow.h"
#include "TemporaryFolder.h"
#include "platform/HostFileSystem.h"
#include "ui/ProgramDialogs.h"

namespace velquist::testing {
namespace {

/// Milliseconds until the dialog has listed its folder.
constexpr guint kUntilListed = 500;

/// Sets an environment variable while it lives.
class Variable {
 public:
  Variable(const char* name, const std::string& value) : name_(name)
  {
    const char* const before = std::getenv(name);
    if (before != nullptr) before_ = before;
    ::setenv(name, value.c_str(), 1);
  }
  Variable(const Variable&) = delete;
  Variable& operator=(const Variable&) = delete;
  ~Variable()
  {
    if (before_)
      ::setenv(name_, before_->c_str(), 1);
    else
      ::unsetenv(name_);
  }

 private:
  const char* name_;
  std::optional<std::string> before_;
};

std::string FolderOf(GtkWidget* box)
{
  gchar* const folder = gtk_file_chooser_get_current_folder(GTK_FILE_CHOOSER(box));
  std::string text(folder == nullptr ? "" : folder);
  g_free(folder);
  return text;
}

class FileDialogs : public ::testing::Test {
 protected:
  FileDialogs()
  {
    owner_->Show();
    dialogs_.SetOwner(owner_);
    LetTimePass(100);
  }
  ~FileDialogs() override
  {
    owner_->Destroy();
    LetTimePass(20);
  }

  void Make(const std::string& name) { std::ofstream(folder_ / name) << "text"; }

  /// Types the name into the save dialog and answers what it asks then; the question, and what was
  /// chosen in the end.
  struct Saved {
    std::string question;
    std::optional<std::string> chosen;
    std::string folder_again;  ///< where the dialog stands when it comes up again
  };
  Saved SaveAs(const std::string& name, int answer, const std::string& folder = {})
  {
    Saved saved;
    int times = 0;
    const auto type = [&](GtkWidget* box) {
      EXPECT_STREQ(gtk_window_get_title(GTK_WINDOW(box)), "Save Setup As");
      if (times++ > 0) {
        saved.folder_again = FolderOf(box);
        gtk_dialog_response(GTK_DIALOG(box), GTK_RESPONSE_CANCEL);
        return;
      }
      if (!folder.empty())
        gtk_file_chooser_set_current_folder(GTK_FILE_CHOOSER(box), folder.c_str());
      gtk_file_chooser_set_current_name(GTK_FILE_CHOOSER(box), name.c_str());
      g_timeout_add(
          kUntilListed,
          [](gpointer save) -> gboolean {
            gtk_button_clicked(GTK_BUTTON(save));
            return G_SOURCE_REMOVE;
          },
          gtk_dialog_get_widget_for_response(GTK_DIALOG(box), GTK_RESPONSE_ACCEPT));
    };
    const AtNativeBox user([&](GtkWidget* box) {
      if (GTK_IS_FILE_CHOOSER(box)) {
        type(box);
      } else {
        gchar* text = nullptr;
        g_object_get(box, "text", &text, nullptr);
        saved.question = text;
        g_free(text);
        gtk_dialog_response(GTK_DIALOG(box), answer);
      }
    });
    saved.chosen = dialogs_.AskSaveFile({.filter = "GPL Setup Files (*.bb1)|*.bb1",
                                         .start = folder_.Text() + "\\*.bb1",
                                         .extension = "bb1",
                                         .title = "Save Setup As"});
    return saved;
  }

  samples::TemporaryFolder folder_;
  NoResources resources_;
  ui::ProgramDialogs dialogs_{resources_};
  wxFrame* owner_ = new wxFrame(nullptr, wxID_ANY, "owner");
};

void Cancel(GtkWidget* box)
{
  gtk_dialog_response(GTK_DIALOG(box), GTK_RESPONSE_CANCEL);
}

std::vector<std::string> ShortcutsOf(GtkWidget* box)
{
  std::vector<std::string> shortcuts;
  GSList* const folders = gtk_file_chooser_list_shortcut_folders(GTK_FILE_CHOOSER(box));
  for (const GSList* entry = folders; entry != nullptr; entry = entry->next)
    if (std::filesystem::path own = static_cast<const char*>(entry->data);
        own != std::filesystem::current_path())  // which the toolkit adds
      shortcuts.push_back(own.string());
  g_slist_free_full(folders, g_free);
  return shortcuts;
}

TEST_F(FileDialogs, ToOpenShowTheFilterThatWasAskedFor)
{
  for (const int wanted : {1, 2, 3}) {
    std::string shown;
    const AtNativeBox at_box([&](GtkWidget* box) {
      GtkFileFilter* const filter = gtk_file_chooser_get_filter(GTK_FILE_CHOOSER(box));
      if (filter != nullptr) shown = gtk_file_filter_get_name(filter);
      Cancel(box);
    });
    (void)dialogs_.AskOpenFile({.filter = "Filter 1|*.lo1|Filter 2|*.lo2|Filter 3|*.lo3",
                                .filter_index = wanted,
                                .start = folder_.Text() + "\\*.*",
                                .directory = {},
                                .title = "Open"});
    EXPECT_EQ(shown, "Filter " + std::to_string(wanted));
  }
}

TEST_F(FileDialogs, HaveTheTitleOfTheirTask)
{
  const AtNativeBox at_box([](GtkWidget* box) {
    EXPECT_STREQ(gtk_window_get_title(GTK_WINDOW(box)), "Import Chassis From");
    EXPECT_FALSE(gtk_file_chooser_get_show_hidden(GTK_FILE_CHOOSER(box)));
    EXPECT_TRUE(ShortcutsOf(box).empty());
    Cancel(box);
  });
  EXPECT_EQ(dialogs_.AskOpenFile({.filter = "GPL Setup Files (*.*)|*.bb1;",
                                  .start = folder_.Text() + "\\*.*",
                                  .directory = {},
                                  .title = "Import Chassis From"}),
            std::nullopt);
}

TEST_F(FileDialogs, ForTheGameOfferTheWinePrefixesAndShowHiddenFolders)
{
  const Variable home("HOME", folder_.Path().string());
  const Variable data("XDG_DATA_HOME", "");
  const Variable chosen("WINEPREFIX", "");
  std::filesystem::create_directories(folder_ / ".wine/drive_c");
  std::filesystem::create_directories(folder_ / "Games/gpl/drive_c");
  const AtNativeBox at_box([&](GtkWidget* box) {
    EXPECT_TRUE(gtk_file_chooser_get_show_hidden(GTK_FILE_CHOOSER(box)));
    EXPECT_EQ(ShortcutsOf(box),
              (std::vector<std::string>{folder_ / ".wine", folder_ / "Games/gpl"}));
    EXPECT_EQ(FolderOf(box), folder_ / ".wine/drive_c");
    Cancel(box);
  });
  (void)dialogs_.AskOpenFile({.filter = "GPL .exe Files|*.exe",
                              .start = {},
                              .directory = "/usr",
                              .title = "Select gpl.exe",
                              .of_game = true});
}

TEST_F(FileDialogs, ForTheGameStartAsAskedWhereThereIsNoWinePrefix)
{
  const Variable home("HOME", folder_.Path().string());
  const Variable data("XDG_DATA_HOME", "");
  const Variable chosen("WINEPREFIX", "");
  const AtNativeBox at_box([&](GtkWidget* box) {
    EXPECT_TRUE(ShortcutsOf(box).empty());
    EXPECT_EQ(FolderOf(box), "/usr");
    Cancel(box);
  });
  (void)dialogs_.AskOpenFile({.filter = "GPL .exe Files|*.exe",
                              .start = {},
                              .directory = "/usr",
                              .title = "Select gpl.exe",
                              .of_game = true});
}

TEST_F(FileDialogs, ToSaveDoNotAskAboutANewFile)
{
  Make("other.bb1");
  const auto saved = SaveAs("race", GTK_RESPONSE_NO);
  EXPECT_EQ(saved.question, "");
  EXPECT_EQ(saved.chosen, (folder_ / "race").string());
}

TEST_F(FileDialogs, ToSaveDoNotAskAboutAFileThatIsNotWritten)
{
  Make("race");
  const auto saved = SaveAs("race", GTK_RESPONSE_NO);
  EXPECT_EQ(saved.question, "");
  EXPECT_EQ(saved.chosen, (folder_ / "race").string());
}

TEST_F(FileDialogs, ToSaveAskAboutTheFileThatIsReplacedWhateverWasTyped)
{
  Make("RACE.BB1");
  for (const char* const typed : {"race", "race.bb1", "Race.lo1", "RACE.BB1"}) {
    SCOPED_TRACE(typed);
    const auto refused = SaveAs(typed, GTK_RESPONSE_NO);
    EXPECT_EQ(refused.question, "\"RACE.BB1\" already exists.\nDo you want to replace it?");
    EXPECT_EQ(refused.chosen, std::nullopt);
    EXPECT_EQ(SaveAs(typed, GTK_RESPONSE_YES).chosen, (folder_ / typed).string());
  }
}

TEST_F(FileDialogs, ToSaveComeUpAgainWhereTheyWereLeft)
{
  std::filesystem::create_directory(folder_ / "spa");
  Make("spa/race.bb1");
  const std::string folder = folder_ / "spa";
  const auto refused = SaveAs("race", GTK_RESPONSE_NO, folder);
  EXPECT_EQ(refused.question, "\"race.bb1\" already exists.\nDo you want to replace it?");
  EXPECT_EQ(refused.folder_again, folder);
}

}  // namespace
}  // namespace velquist::testing
