// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "app/MainWindow.h"
#include "platform/HostFileSystem.h"
#include "runner/Driver.h"

namespace velquist::runner {

/// What a script expected and did not get.
class Failure : public std::runtime_error {
 public:
  Failure(const std::string& expected, const std::string& got)
      : std::runtime_error("expected " + expected + ", got " + got)
  {
  }
};

// Dialogs as scripts announce them, with their answers. What is not given is not checked.

struct AnnouncedMessage {
  std::string text;
  platform::Icon icon = platform::Icon::kInformation;
  platform::Answer answer = platform::Answer::kOk;
};
struct AnnouncedOpen {
  std::optional<std::string> filter;
  std::optional<int> index;
  std::optional<std::string> start;
  std::optional<std::string> chosen;  ///< nothing for Cancel
};
struct AnnouncedSave {
  std::optional<std::string> filter;
  std::optional<std::string> start;
  std::optional<std::string> chosen;  ///< nothing for Cancel
};
struct AnnouncedModYear {
  app::ModYearForm form = app::ModYearForm::kFrmModYear1;
  std::optional<int> button;  ///< nothing for closing the form
};
struct AnnouncedInstallDelete {
  std::vector<Driver::DeleteStep> steps;
};
struct AnnouncedHelp {};
struct AnnouncedRun {
  std::string path;
};
struct AnnouncedFileManager {
  std::string path;
};
using Dialog =
    std::variant<AnnouncedMessage, AnnouncedOpen, AnnouncedSave, AnnouncedModYear,
                 AnnouncedInstallDelete, AnnouncedHelp, AnnouncedRun, AnnouncedFileManager>;

/// The dialogs announced and not yet come, in order, and the first thing that went wrong with
/// one. The program goes on after that as if every dialog were cancelled; the script ends when its
/// statement is through.
class Announcements {
 public:
  using SameText = std::function<bool(std::string_view, std::string_view)>;

  /// `same_text` compares what the program shows with what a script says.
  explicit Announcements(SameText same_text) : same_text_(std::move(same_text)) {}

  void Announce(int line, Dialog dialog) { waiting_.push_back({line, std::move(dialog)}); }

  /// From now on, `improvise` gives the answer to a dialog that nobody announced.
  using Improvise = std::function<Dialog(Dialog asked)>;
  void Improvised(Improvise improvise) { improvise_ = std::move(improvise); }

  /// A dialog came that `got` describes, `asked` without its answer: takes the first announced one
  /// when it is of that kind and `fits`, else remembers the failure and answers nothing.
  template <class Kind>
  std::optional<Kind> Take(const std::string& got, const Kind& asked,
                           const std::function<bool(const Kind&)>& fits);

  [[nodiscard]] bool Same(std::string_view a, std::string_view b) const { return same_text_(a, b); }

  void Fail(const Failure& failure)
  {
    if (!failure_) failure_ = failure;
  }
  [[nodiscard]] const std::optional<Failure>& Failed() const noexcept { return failure_; }

  struct Announced {
    int line = 0;  ///< of the statement that announced it
    Dialog dialog;
  };
  /// The first that has not come yet, null when none is left.
  [[nodiscard]] const Announced* First() const noexcept
  {
    return waiting_.empty() ? nullptr : &waiting_.front();
  }

 private:
  SameText same_text_;
  Improvise improvise_;
  std::deque<Announced> waiting_;
  std::optional<Failure> failure_;
};

/// A dialog as the statement that announces it.
[[nodiscard]] std::string Described(const Dialog& dialog);

/// Answers every dialog as announced; our own forms through the driver.
class ScriptedDialogs final : public app::Dialogs {
 public:
  ScriptedDialogs(Announcements& announcements, Driver& driver)
      : announcements_(announcements), driver_(driver)
  {
  }

  platform::Answer ShowMessage(std::string_view text, platform::Icon icon,
                               platform::Buttons buttons) override;
  std::optional<std::string> AskOpenFile(const platform::OpenRequest& request) override;
  std::optional<std::string> AskSaveFile(const platform::SaveRequest& request) override;
  std::optional<int> AskModYear(app::ModYearForm form, std::string_view message) override;
  void ShowInstallDelete(app::InstallDeleteForm& form) override;
  void ShowHelp() override;

  /// Of the dialog that was shown last; empty when there was none.
  [[nodiscard]] const std::string& Title() const noexcept { return title_; }

 private:
  /// Answers a form through the driver. What goes wrong there is remembered: nothing may be thrown
  /// through the program.
  void Guarded(const std::string& form, const std::function<void()>& answer);

  Announcements& announcements_;
  Driver& driver_;
  std::string title_;
};

class ScriptedProcess final : public platform::Process {
 public:
  explicit ScriptedProcess(Announcements& announcements) : announcements_(announcements) {}
  void Start(std::string_view path) override;

 private:
  Announcements& announcements_;
};

class ScriptedFileManager final : public platform::FileManager {
 public:
  explicit ScriptedFileManager(Announcements& announcements) : announcements_(announcements) {}
  void Show(std::string_view path) override;

 private:
  Announcements& announcements_;
};

class ScriptedClock final : public platform::Clock {
 public:
  [[nodiscard]] std::uint64_t TickCount() const override { return now_; }
  void Set(std::uint64_t now) { now_ = now; }

 private:
  std::uint64_t now_ = 0;
};

/// Yields the same value until the script says another; seeding changes nothing.
class ScriptedRandom final : public platform::Random {
 public:
  void Seed(std::uint64_t /*seed*/) override {}
  [[nodiscard]] double Next() override { return next_; }
  void Set(double next) { next_ = next; }

 private:
  double next_ = 0;
};

class ScriptedScreen final : public platform::Screen {
 public:
  [[nodiscard]] int Width() const override { return width_; }
  [[nodiscard]] int Height() const override { return height_; }
  void Set(int width, int height)
  {
    width_ = width;
    height_ = height;
  }

 private:
  int width_ = 1280;
  int height_ = 1024;
};

/// Knows how large a picture is, which is all that the program asks about it.
class PictureSizes final : public platform::PictureLoader {
 public:
  explicit PictureSizes(const platform::FileSystem& files) : files_(files) {}
  [[nodiscard]] Size Load(std::string_view path) override;

 private:
  const platform::FileSystem& files_;
};

/// Everything outside the program for one script: real files, the rest scripted.
class ScriptedPlatform {
 public:
  ScriptedPlatform(Announcements::SameText same_text, Driver& driver)
      : announcements(std::move(same_text)),
        dialogs(announcements, driver),
        process(announcements),
        file_manager(announcements),
        pictures(files)
  {
  }

  [[nodiscard]] app::Outside Outside(std::string program_directory, platform::Resources& resources)
  {
    return {files,  dialogs, process,  file_manager, clock,
            random, screen,  pictures, resources,    std::move(program_directory)};
  }

  Announcements announcements;
  platform::HostFileSystem files;
  ScriptedDialogs dialogs;
  ScriptedProcess process;
  ScriptedFileManager file_manager;
  ScriptedClock clock;
  ScriptedRandom random;
  ScriptedScreen screen;
  PictureSizes pictures;
};

}  // namespace velquist::runner
