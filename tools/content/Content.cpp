#include "Content.h"

#include "GearTable.h"
#include "Ranges.h"
#include "SetupWriter.h"
#include "TextTable.h"

namespace velquist::content {

namespace {

constexpr std::string_view kDefaultEnding = " Velquist Default.vqset";

/// All tables of the sources, read once.
struct Tables {
  explicit Tables(const std::filesystem::path& folder)
      : sources(folder),
        gears67(folder / "gears67.txt"),
        gears65(folder / "gears65.txt"),
        ranges(folder, {&gears67, &gears65, &gears65})
  {
  }

  [[nodiscard]] std::map<std::string, Setup> Setups(const std::string& name, UnitSet set) const
  {
    return ReadSetups(sources / name, ranges, set,
                      {{Family::k67, &gears67}, {Family::k65, &gears65}, {Family::kGt, &gears65}});
  }

  std::filesystem::path sources;
  GearTable gears67;
  GearTable gears65;
  Ranges ranges;
};

void AddSet(const Tables& tables, UnitSet set, const std::string& folder,
            std::vector<ContentFile>& files)
{
  const auto defaults = tables.Setups("defaults.txt", set);
  for (const auto& [name, setup] : defaults) files.push_back({folder + name, setup.Bytes()});
  for (const Family family : kFamilies) {
    const std::string name = FamilyName(family);
    const auto standard = defaults.find(name + std::string(kDefaultEnding));
    if (standard == defaults.end()) throw ContentError("defaults.txt: no setup for " + name);
    files.push_back({folder + name + " Setup Data.ini",
                     tables.ranges.DataFile(family, set, standard->second.values)});
  }
}

}  // namespace

std::vector<ContentFile> ProgramFiles(const std::filesystem::path& sources)
{
  const Tables tables(sources);
  std::vector<ContentFile> files;
  files.push_back({"67 Gear Data.ini", tables.gears67.DataFile()});
  files.push_back({"65 Gear Data.ini", tables.gears65.DataFile()});
  AddSet(tables, UnitSet::kEnglish, "", files);
  AddSet(tables, UnitSet::kMetric, "Metric/", files);
  return files;
}

std::vector<ContentFile> ExampleFiles(const std::filesystem::path& sources)
{
  const Tables tables(sources);
  std::vector<ContentFile> files;
  for (const TableLine& line : ReadTable(sources / "installation.txt")) {
    RequireCells(line, 2);
    files.push_back({line.cells[0], line.cells[1] == "-" ? "" : line.cells[1] + "\r\n"});
  }
  for (const auto& [path, setup] : tables.Setups("examples.txt", UnitSet::kEnglish)) {
    files.push_back({path, setup.Bytes()});
  }
  return files;
}

}  // namespace velquist::content
