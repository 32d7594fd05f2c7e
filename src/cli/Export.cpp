// SPDX-License-Identifier: MIT
#include <ostream>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "cli/Commands.h"
#include "cli/OpenedSetup.h"
#include "cli/WrittenFiles.h"
#include "export/TextExport.h"
#include "platform/Errors.h"

namespace velquist::cli {

int Export(Session& session)
{
  return WriteForEach(session, [&](OpenedSetup& setup) {
    LoadLists(setup);
    const auto name = library::FileNameOf(setup.file.path);
    const text_export::Subject subject{
        .file_name = name,
        .mod_year = data::ModYearText(setup.car.ModYearIndex()),
        .chassis_name = setup.CarName(),
        .formula = setup.car.FormulaIndex() + 1,
        .gear_count = setup.car.GearCount(),
    };
    return WrittenFile{
        text_export::ExportFileName(name),
        text_export::ExportText(subject, setup.car.ValuesToWrite(), setup.car.Gears())};
  });
}

}  // namespace velquist::cli
