// SPDX-License-Identifier: MIT
// The input is the head of a file in a library: which car it is for, and what is wrong with it.
#include <algorithm>
#include <array>
#include <cstdint>
#include <numeric>
#include <string>
#include <string_view>

#include "Fuzz.h"
#include "SetupMutator.h"
#include "ShippedFiles.h"
#include "library/Row.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
  using namespace velquist;
  using fuzz::Require;
  constexpr std::array<std::string_view, 10> kNames = {
      "x.lo1", "x.LO1", "a/x.bb3", "/GPL/Players/Jim/Setups/monza/x.lp2", "x.mu1",
      "x.lo9", "lo1",   "",        "/GPL/Players/Jim/Setups/monza/",      "x.gg1"};
  static library::Tables tables(fuzz::ShippedFiles(), "/program");

  const auto sum = static_cast<std::size_t>(std::accumulate(data, data + size, 0));
  library::SetupFile file;
  file.path = kNames[sum % kNames.size()];
  file.size = size;
  file.head = samples::BytesOf(fuzz::TextOf(data, std::min<std::size_t>(size, 272)));
  library::Hints hints;
  if (sum % 3 == 0) hints.ModYearIndex = data::kModYears[sum % data::kModYearCount];
  if (sum % 5 == 0) hints.chassis_code = "lo";
  if (sum % 7 == 0) hints.formula_index = static_cast<int>(sum % 3);

  const auto identity = library::IdentityOf(file, hints);
  Require(std::ranges::is_sorted(identity.years, {}, data::ModYearText), "the oldest year first");
  if (identity.Year()) Require(identity.read_as == *identity.Year(), "read as what it is");
  if (identity.chassis) Require(!identity.chassis_code.empty(), "a car has a code");
  (void)identity.GearCount();

  const auto problems = library::ProblemsOf(file, identity, tables.Of(identity.read_as));
  const auto before = [](const auto& a, const auto& b) {
    return a.code != b.code ? a.code < b.code : a.slot < b.slot;
  };
  Require(std::ranges::is_sorted(problems, before), "by code and rising slot");
  for (const auto& problem : problems) {
    Require(!problem.text.empty() && problem.text.back() != '.', "a text without a full stop");
    Require(!library::CodeText(problem.code).empty(), "a code");
  }
  const auto row = library::RowOf(file, hints, tables);
  Require(row.problem.has_value() == !problems.empty(), "a row tells the first problem");
  if (row.problem) Require(row.problem->text == problems.front().text, "the first");
  (void)library::IsListed(file);
  return 0;
}
