// SPDX-License-Identifier: MIT
#include "app/LibraryPreview.h"

#include <algorithm>

#include "app/ModYearFromFile.h"
#include "app/ReferenceFile.h"
#include "platform/Errors.h"
#include "setup/Identification.h"

namespace velquist::app {
namespace {

/// Answers for the user, who is not to be asked for a look, and keeps what would be told.
class SilentDialogs final : public Dialogs {
 public:
  explicit SilentDialogs(data::ModYear year) : year_(year) {}

  platform::Answer ShowMessage(std::string_view text, platform::Icon, platform::Buttons) override
  {
    told = text;
    return platform::Answer::kOk;
  }
  std::optional<int> AskModYear(ModYearForm, std::string_view) override
  {
    constexpr int kButtons = 4;
    for (int button = 0; button < kButtons; ++button)
      if (setup::ModYearOfButton(button) == year_) return button;
    return std::nullopt;
  }
  std::optional<std::string> AskOpenFile(const platform::OpenRequest&) override { return {}; }
  std::optional<std::string> AskSaveFile(const platform::SaveRequest&) override { return {}; }
  void ShowInstallDelete(InstallDeleteForm&) override {}
  void ShowHelp() override {}

  std::string told;

 private:
  data::ModYear year_;
};

std::string CountText(std::size_t count, const std::string& name)
{
  if (count == 0) return "Nothing differs from " + name;
  return (count == 1 ? "1 value differs" : std::to_string(count) + " values differ") + " from " +
         name;
}

}  // namespace

LibraryPreview LibraryPreviews::Of(const std::shared_ptr<const LibraryRow>& row)
{
  if (row == nullptr) {
    row_.reset();
    return {{}, "Choose a setup to see what differs from the one being edited"};
  }
  if (row != row_ || window_.Car().ModYearIndex() != year_) {
    row_ = row;
    year_ = window_.Car().ModYearIndex();
    Read();
  }
  if (!setup_) return {{}, trouble_};
  auto rows = ComparisonTable(window_, *setup_, ComparedRows::kDifferences);
  auto text = CountText(rows.size(), row->Cell(kFileColumn));
  return {std::move(rows), std::move(text)};
}

void LibraryPreviews::Read()
{
  const auto& identity = row_->Setup().identity;
  const bool may_be_current = std::ranges::find(identity.years, year_) != identity.years.end();
  SilentDialogs silent(may_be_current ? year_ : identity.read_as);
  const auto& around = window_.Surroundings();
  const Outside outside{
      around.files,  silent,        around.process,  around.file_manager, around.clock,
      around.random, around.screen, around.pictures, around.resources,    around.program_directory};
  setup_.reset();
  trouble_ = "There is something wrong with this setup file.";
  try {
    setup_ = ReadReference(window_.Car(), row_->Installation(), outside,
                           edit::ReferenceSource::kFile, row_->Path());
    if (!setup_) trouble_ = silent.told;
  } catch (const FileError& error) {
    trouble_ = "This file cannot be read: " + error.Reason() + ".";
  } catch (const BoundsError&) {
  }
}

}  // namespace velquist::app
