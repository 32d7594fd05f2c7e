// SPDX-License-Identifier: MIT
#include <array>
#include <chrono>
#include <cstdio>
#include <ostream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "cli/Commands.h"
#include "cli/EachFile.h"
#include "cli/Facts.h"
#include "cli/Json.h"
#include "cli/TextTable.h"
#include "data/ChassisCatalogue.h"
#include "library/Row.h"

namespace velquist::cli {
namespace {

using library::Row;

/// "2026-11-21T18:39:43Z" of nanoseconds since 1970.
std::string TimeText(std::int64_t nanoseconds)
{
  using std::chrono::floor;
  const auto moment = floor<std::chrono::seconds>(
      std::chrono::sys_time<std::chrono::nanoseconds>(std::chrono::nanoseconds(nanoseconds)));
  const auto day = floor<std::chrono::days>(moment);
  const std::chrono::year_month_day date(day);
  const std::chrono::hh_mm_ss time(moment - day);
  std::array<char, 64> text{};
  const int length = std::snprintf(
      text.data(), text.size(), "%04d-%02u-%02uT%02d:%02d:%02dZ", static_cast<int>(date.year()),
      static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()),
      static_cast<int>(time.hours().count()), static_cast<int>(time.minutes().count()),
      static_cast<int>(time.seconds().count()));
  return {text.data(), static_cast<std::size_t>(length)};
}

Json AsJson(const Row& row)
{
  Json facts = {{"file", row.file.path}, {"bytes", nullptr}, {"modified", nullptr}};
  if (!row.file.unreadable) {
    facts["bytes"] = row.file.size;
    facts["modified"] = TimeText(row.file.modified);
  }
  facts["layout"] = LayoutFact(row.file);
  facts["years"] = YearsFact(row.identity);
  facts["chassis"] = ChassisFact(row.identity);
  facts["formula"] = FormulaFact(row.identity);
  for (const auto* key : {"installation", "player", "track", "problem"}) facts[key] = nullptr;
  if (row.place) {
    facts["installation"] = row.place->installation;
    facts["player"] = row.place->player;
    facts["track"] = row.place->track;
  }
  if (row.problem) facts["problem"] = row.problem->text;
  return facts;
}

class CsvLine {
 public:
  void Add(std::string_view field)
  {
    if (!std::exchange(first_, false)) text_ += ',';
    if (field.find_first_of(",\"\r\n") == std::string_view::npos) {
      text_ += field;
      return;
    }
    text_ += '"';
    for (const char c : field) text_.append(c == '"' ? 2 : 1, c);
    text_ += '"';
  }
  [[nodiscard]] std::string Ended() && { return std::move(text_) + "\r\n"; }

 private:
  std::string text_;
  bool first_ = true;
};

constexpr std::array<std::string_view, 12> kCsvHeads = {
    "file",         "bytes",   "modified",     "layout", "years", "chassis",
    "chassis_name", "formula", "installation", "player", "track", "problem"};

std::string AsCsv(const Row& row)
{
  const bool read = !row.file.unreadable;
  const auto& identity = row.identity;
  std::string years;
  for (const auto year : identity.years) {
    if (!years.empty()) years += ' ';
    years += data::ModYearText(year);
  }
  CsvLine line;
  line.Add(row.file.path);
  line.Add(read ? std::to_string(row.file.size) : "");
  line.Add(read ? TimeText(row.file.modified) : "");
  line.Add(row.file.Layout() ? LayoutText(row.file) : "");
  line.Add(years);
  line.Add(identity.chassis ? identity.chassis_code : "");
  line.Add(identity.chassis ? data::ChassisName(identity.read_as, *identity.chassis) : "");
  line.Add(identity.formula_index ? std::to_string(*identity.formula_index + 1) : "");
  line.Add(row.place ? row.place->installation : "");
  line.Add(row.place ? row.place->player : "");
  line.Add(row.place ? row.place->track : "");
  line.Add(row.problem ? row.problem->text : "");
  return std::move(line).Ended();
}

std::vector<std::string> AsCells(const Row& row)
{
  std::string file = row.file.path;
  if (row.problem) file += "  ! " + row.problem->text;
  return {YearsText(row.identity), CarText(row.identity),
          row.file.Layout() ? LayoutText(row.file) : "-",
          row.file.unreadable ? "-" : TimeText(row.file.modified), std::move(file)};
}

template <class Take>
void EachRow(Session& session, Take&& take)
{
  std::size_t count = 0;
  EachFile(session, [&](library::SetupFile file, bool is_named) {
    if (is_named && !file.is_there) return session.Tell(file.path, *file.unreadable);
    if (!library::IsListed(file)) return;
    take(library::RowOf(std::move(file), session.Options().hints, session.Tables()));
    session.ShowProgress(++count, "setups");
  });
}

}  // namespace

int List(Session& session)
{
  auto& out = session.Out();
  switch (session.Options().form) {
    case Form::kJson: {
      JsonArray array(out);
      EachRow(session, [&](const Row& row) { array.Add(AsJson(row)); });
      array.End();
      break;
    }
    case Form::kCsv: {
      CsvLine heads;
      for (const auto head : kCsvHeads) heads.Add(head);
      out << std::move(heads).Ended();
      EachRow(session, [&](const Row& row) { out << AsCsv(row); });
      break;
    }
    case Form::kPlain: {
      TextTable table(std::vector<Align>(5, Align::kLeft));
      table.Add({"Year", "Car", "Layout", "Modified", "File"});
      EachRow(session, [&](const Row& row) { table.Add(AsCells(row)); });
      table.Write(out, "");
      break;
    }
  }
  return kDone;
}

}  // namespace velquist::cli
