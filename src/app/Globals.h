// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "app/Marquee.h"
#include "app/OpenFile.h"
#include "charts/SpeedBands.h"
#include "data/EngineCurve.h"

namespace velquist::app {

/// What the main window keeps besides the car and what it shows.
struct Globals {
  data::EngineCurve curve;   ///< of the engine last computed
  charts::SpeedBands bands;  ///< as last drawn

  std::int16_t player_index = 0;
  std::int16_t track_index = 0;
  std::int16_t Units = 0;  ///< 0 = English, 1 = metric

  std::vector<std::string> installations_read;  ///< from the settings file at start
  std::string installation;                     ///< directory of the current game installation

  OpenFile open_file;

  std::string command_line;
  bool from_command_line = false;  ///< until start-up is done
  bool ready = false;              ///< start-up is done: selections are the user's
  bool filling_mod_years = false;  ///< the program itself selects in Combo2

  MarqueeState marquee;
};

}  // namespace velquist::app
