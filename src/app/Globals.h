// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

#include "charts/SpeedBands.h"
#include "data/EngineCurve.h"
#include "data/GearData.h"
#include "data/ModYear.h"
#include "data/SetupData.h"
#include "edit/EditOptions.h"
#include "setup/BinarySubs.h"

namespace velquist::app {

/// All state of the program but what the window shows.
struct Globals {
  setup::Bytes SetupBuffer;    ///< the setup file as it was read
  data::SetupData setup_data;  ///< limits and steps, current values in column 0
  data::GearData GearData;
  data::EngineCurve curve;   ///< of the engine last computed
  charts::SpeedBands bands;  ///< as last drawn

  data::ModYear ModYearIndex = data::ModYear::k1967;  ///< as saved until start-up has checked it
  std::int16_t chassis_index = 0;
  std::int16_t formula_index = 0;
  std::int16_t player_index = 0;
  std::int16_t track_index = 0;
  std::int16_t Units = 0;      ///< 0 = English, 1 = metric
  std::int16_t FineIndex = 0;  ///< 0 = normal steps, 1 = fine steps
  edit::EditOptions options;

  std::string installation;  ///< directory of the current game installation
  std::string file_name;     ///< current file name, without directory
  bool changed = false;      ///< edits that are not saved

  std::string command_line;
  bool from_command_line = false;  ///< until start-up is done
  bool ready = false;              ///< start-up is done: selections are the user's
  bool filling_mod_years = false;  ///< the program itself selects in Combo2

  struct Marquee {
    bool scrolling = false;       ///< a quotation is chosen
    int left = 0;                 ///< of the quotation within its box, 1/15 pixel
    std::uint64_t next_step = 0;  ///< tick count
  } marquee;
};

}  // namespace velquist::app
