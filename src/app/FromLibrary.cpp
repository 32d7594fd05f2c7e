// SPDX-License-Identifier: MIT
#include "app/EventEntry.h"
#include "app/MainWindow.h"
#include "app/ReferenceFile.h"
#include "data/ChassisCatalogue.h"
#include "export/TextExport.h"
#include "install/Installations.h"
#include "platform/Paths.h"

namespace velquist::app {

void MainWindow::LibraryReference(const std::string& path)
{
  Event([&] { CompareWithFile(edit::ReferenceSource::kFile, path); });
}

void MainWindow::LibraryExport(const std::string& path)
{
  Event([&] {
    const auto name = platform::FileNameOf(path);
    std::string text;
    try {
      const auto setup =
          ReadBeside(car_, install::InstallationOfPath(path).value_or(globals_.installation),
                     outside_, edit::ReferenceSource::kFile, path);
      if (setup == nullptr) return;
      const auto year = setup->ModYearIndex();
      const text_export::Subject subject{
          .file_name = name,
          .mod_year = data::ModYearText(year),
          .chassis_name = data::ChassisName(year, setup->ChassisIndex()),
          .formula = setup->FormulaIndex() + 1,
          .gear_count = setup->GearCount(),
      };
      text = text_export::ExportText(subject, setup->ValuesToWrite(), setup->Gears());
    } catch (const BoundsError&) {
      return Tell(kWrongFile, platform::Icon::kInformation);
    } catch (const FileError&) {
      return Tell(kWrongFile, platform::Icon::kInformation);
    }
    const auto written =
        std::string(platform::DirectoryOf(path)) + "\\" + text_export::ExportFileName(name);
    outside_.files.WriteText(written, text);
    Say("Exported", written);
  });
}

void MainWindow::LibraryShow(const std::string& path)
{
  Event([&] { outside_.file_manager.Show(path); });
}

}  // namespace velquist::app
