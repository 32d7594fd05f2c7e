// SPDX-License-Identifier: MIT
// What the tests of engines share: the lists they are compared with, and the slots that have one.
#pragma once

#include <fstream>
#include <string>
#include <vector>

#include "data/ChassisCatalogue.h"
#include "runner/SourceDirectory.h"

namespace velquist::data {

/// The numbers of a fixture list, its heading line left out.
inline std::vector<float> NumbersOf(const std::string& name)
{
  std::ifstream file(velquist::testing::SourceDirectory().string() + "/tests/fixtures/" + name);
  std::string word;
  std::getline(file, word);
  std::vector<float> numbers;
  while (file >> word) {
    numbers.push_back(std::stof(word));
  }
  return numbers;
}

inline bool Filled(ModYear ModYearIndex, int engine_slot)
{
  return engine_slot < ChassisCount(ModYearIndex) || engine_slot >= kFormula2Slot;
}

/// Two cars of a year with the same engine.
struct SlotPair {
  ModYear ModYearIndex;
  int first;
  int second;
};

}  // namespace velquist::data
