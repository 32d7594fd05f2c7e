// SPDX-License-Identifier: MIT
// Saves that fail: the message names file and reason, the old file is whole, and nothing that was
// edited is lost.
#include <algorithm>
#include <cstdlib>

#include <gtest/gtest.h>

#include "ScriptedEditor.h"

#ifndef _WIN32
#include <csignal>

#include <sys/resource.h>
#include <unistd.h>
#endif

namespace velquist::testing {
namespace {

namespace fs = std::filesystem;

const std::string kTrack = "$G/players/Jim/setups/monza/";
constexpr std::string_view kOverwrite =
    "on message \"This file already exits.  Do you want to overwrite it?\" question -> yes\n";

std::string Told(const std::string& path, const std::string& reason)
{
  return "on message \"" + path + "\\n" + reason + ".\" exclamation -> ok\n";
}

std::string NotSaved(const std::string& path, const std::string& reason)
{
  return Told("The setup was not saved.\\n" + path, reason);
}

/// An edited 1967 setup, short, in a directory with nothing else.
class FailedSave : public ::testing::Test {
 protected:
  FailedSave()
  {
    editor_.StartWithGame();
    // Other users of the machine may look in, too.
    for (const char* directory : {"$T", "$G", "$G/Players", "$G/Players/Jim",
                                  "$G/Players/Jim/Setups", "$G/Players/Jim/Setups/monza"})
      fs::permissions(editor_.Path(directory), fs::perms(0755));
    editor_.Play(R"(
setup $G/Players/Jim/Setups/monza/mine.bb1 short 0=20 1=20 42=65 48=82 49=45 50=60 51=3
on open -> $G/Players/Jim/Setups/monza/mine.bb1
on FrmModYear2 -> 1967
click MnuOpen
click CmdInc(0)
select Combo1(1) #9
click MnuLongFormat
)");
    fs::permissions(editor_.Path(kFile), fs::perms(0644));
    whole_ = editor_.World().Read(editor_.Path(kFile).string());
  }

  ~FailedSave() override { fs::permissions(editor_.Path(kDirectory), fs::perms(0755)); }

  /// Plays a command that fails: all is as before, the flag of unsaved changes included, and there
  /// is no file that was not there.
  void ExpectNothingDone(const std::string& script)
  {
    const auto before = editor_.Everything(WithBuffer::kYes);
    const auto files = Files();
    editor_.Play(script);
    EXPECT_EQ(editor_.Everything(WithBuffer::kYes), before);
    EXPECT_TRUE(editor_.Window().Car().Changed());
    EXPECT_EQ(Files(), files);
  }

  void ExpectOldFileWhole()
  {
    EXPECT_EQ(editor_.World().Read(editor_.Path(kFile).string()), whole_);
  }

  /// Names of what lies in the track's directory.
  [[nodiscard]] std::vector<std::string> Files() const
  {
    std::vector<std::string> names;
    std::error_code gone;
    for (const auto& entry : fs::directory_iterator(editor_.Path(kDirectory), gone))
      names.push_back(entry.path().filename().string());
    std::ranges::sort(names);
    return names;
  }

  const std::string kDirectory = "$G/Players/Jim/Setups/monza";
  const std::string kFile = kDirectory + "/mine.bb1";
  ScriptedEditor editor_;
  std::vector<std::byte> whole_;
};

TEST_F(FailedSave, ReadOnlyFileIsNeitherSavedNorSavedAs)
{
  fs::permissions(editor_.Path(kFile), fs::perms(0444));
  ExpectNothingDone(std::string(kOverwrite) +
                    NotSaved(kFile, "You have no right to it, or it is read-only") +
                    "click MnuSave\n");
  ExpectNothingDone("on save -> " + kFile + "\n" +
                    NotSaved(kFile, "You have no right to it, or it is read-only") +
                    "click MnuSaveAs\n");
  ExpectOldFileWhole();
  // Its permission back, the same Save succeeds.
  fs::permissions(editor_.Path(kFile), fs::perms(0644));
  editor_.Play(std::string(kOverwrite) + "click MnuSave\nexpect unchanged\n");
}

TEST_F(FailedSave, DirectoryThatHasGoneTakesNoSetup)
{
  fs::remove_all(editor_.Path(kDirectory));
  ExpectNothingDone(NotSaved(kFile, "The folder is gone") + "click MnuSave\n");
  ExpectNothingDone("on save -> " + kDirectory + "/new\n" +
                    NotSaved(kDirectory + "/new.bb1", "The folder is gone") + "click MnuSaveAs\n");
  ExpectNothingDone(Told(kTrack + "mine.txt", "No such file or directory") + "click MnuExport\n");
  fs::create_directories(editor_.Path(kDirectory));
  editor_.Play("click MnuSave\nexpect unchanged\n");
}

TEST_F(FailedSave, DirectoryOfTheFilesNameIsNotReplaced)
{
  fs::remove(editor_.Path(kFile));
  fs::create_directories(editor_.Path(kFile));
  ExpectNothingDone(std::string(kOverwrite) + NotSaved(kFile, "Is a directory") +
                    "click MnuSave\n");
  EXPECT_TRUE(fs::is_directory(editor_.Path(kFile)));
}

TEST_F(FailedSave, SavingFirstStopsTheCommandThatAsked)
{
  fs::permissions(editor_.Path(kFile), fs::perms(0444));
  for (const char* command :
       {"MnuOpen", "MnuImportChassis", "MnuImportDrivetrain", "MnuRevert", "MnuAddInstall"}) {
    SCOPED_TRACE(command);
    ExpectNothingDone(
        "on message \"Do you want to save the current settings first?\" question -> yes\n" +
        std::string(kOverwrite) + NotSaved(kFile, "You have no right to it, or it is read-only") +
        "click " + command + "\n");
  }
  ExpectOldFileWhole();
}

#ifndef _WIN32

/// While it lives, the process has the rights of a user who owns nothing here.
class AsNobody {
 public:
  AsNobody()
  {
    constexpr uid_t kNobody = 65534;
    if (::geteuid() == 0) lowered_ = ::seteuid(kNobody) == 0;
  }
  ~AsNobody()
  {
    if (lowered_ && ::seteuid(0) != 0) std::abort();
  }
  AsNobody(const AsNobody&) = delete;
  AsNobody& operator=(const AsNobody&) = delete;

 private:
  bool lowered_ = false;
};

/// While it lives, no file of the process grows beyond some bytes, as on a disk that is full.
class FullDisk {
 public:
  explicit FullDisk(rlim_t bytes)
  {
    handler_ = std::signal(SIGXFSZ, SIG_IGN);
    ::getrlimit(RLIMIT_FSIZE, &limit_);
    rlimit small = limit_;
    small.rlim_cur = bytes;
    full_ = ::setrlimit(RLIMIT_FSIZE, &small) == 0;
  }
  ~FullDisk()
  {
    if (::setrlimit(RLIMIT_FSIZE, &limit_) != 0) std::abort();
    std::signal(SIGXFSZ, handler_);
  }
  FullDisk(const FullDisk&) = delete;
  FullDisk& operator=(const FullDisk&) = delete;
  [[nodiscard]] bool Full() const noexcept { return full_; }

 private:
  void (*handler_)(int) = nullptr;
  rlimit limit_{};
  bool full_ = false;
};

TEST_F(FailedSave, ReadOnlyDirectoryTakesNoSetup)
{
  fs::permissions(editor_.Path(kDirectory), fs::perms(0555));
  {
    const AsNobody nobody;
    ExpectNothingDone(std::string(kOverwrite) +
                      NotSaved(kFile, "You have no right to it, or it is read-only") +
                      "click MnuSave\n");
    ExpectNothingDone(
        "on save -> " + kDirectory + "/new\n" +
        NotSaved(kDirectory + "/new.bb1", "You have no right to it, or it is read-only") +
        "click MnuSaveAs\n");
    ExpectNothingDone(Told(kTrack + "mine.txt", "You have no right to it, or it is read-only") +
                      "click MnuExport\n");
  }
  ExpectOldFileWhole();
}

TEST_F(FailedSave, NameThatTheSystemCannotHoldIsToldWhole)
{
  const std::string name(260, 'x');
  ExpectNothingDone("on save -> " + kDirectory + "/" + name + "\n" +
                    NotSaved(kDirectory + "/" + name + ".bb1", "File name too long") +
                    "click MnuSaveAs\n");
}

TEST_F(FailedSave, FullDiskKeepsTheOldFile)
{
  for (const rlim_t room : {rlim_t{0}, rlim_t{1}, rlim_t{100}, rlim_t{263}}) {
    SCOPED_TRACE(room);
    const FullDisk disk(room);
    ASSERT_TRUE(disk.Full());
    ExpectNothingDone(std::string(kOverwrite) + NotSaved(kFile, "File too large") +
                      "click MnuSave\n");
    ExpectNothingDone("on save -> " + kDirectory + "/new\n" +
                      NotSaved(kDirectory + "/new.bb1", "File too large") + "click MnuSaveAs\n");
    ExpectNothingDone(Told(kTrack + "mine.txt", "File too large") + "click MnuExport\n");
  }
  ExpectOldFileWhole();
  // Room for a short setup but not for the long one that Save As makes of it.
  {
    const FullDisk disk(264);
    ExpectNothingDone("on save -> " + kDirectory + "/new\n" +
                      NotSaved(kDirectory + "/new.bb1", "File too large") + "click MnuSaveAs\n");
    editor_.Play(std::string(kOverwrite) + "click MnuSave\nexpect unchanged\n");
  }
  editor_.Play("expect file " + kFile + " size 264\n");
}

#endif

}  // namespace
}  // namespace velquist::testing
