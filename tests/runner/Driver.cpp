// SPDX-License-Identifier: MIT
#include "runner/Driver.h"

namespace velquist::runner {

std::optional<int> Driver::AnswerModYear(app::ModYearForm /*form*/, std::string_view /*message*/,
                                         std::optional<int> button)
{
  return button;
}

void Driver::AnswerInstallDelete(app::InstallDeleteForm& form, const std::vector<DeleteStep>& steps)
{
  for (const auto& step : steps) {
    if (form.MustClose()) return;
    switch (step.kind) {
      case DeleteStep::Kind::kSelect: form.Combo1_Click(step.position); break;
      case DeleteStep::Kind::kDelete: form.DeleteButton_Click(); break;
      case DeleteStep::Kind::kCancel: return;
    }
  }
}

void Driver::AnswerHelp() {}

}  // namespace velquist::runner
