// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include "edit/CarSetup.h"
#include "edit/Reference.h"

namespace velquist::text_export {

/// What the sheet names besides the values.
struct SheetSubject {
  std::string_view file_name;
  std::string_view chassis_name;
  std::string_view player;     ///< empty where it is not known
  std::string_view track;      ///< likewise
  std::string_view reference;  ///< what the setup is compared with
  std::string_view layout;     ///< "short" or "long"
};

/// The setup as one self-contained page, HTML that is XML as well: every value, gears with their
/// speeds and best shifts, the charts, and the differences from `reference` unless that is null. It
/// fits on one sheet of A4 or Letter. The lists of `car` have been loaded. Throws BoundsError for
/// missing rows and gear rows outside 0 to 89.
[[nodiscard]] std::string SetupSheet(const edit::CarSetup& car, const SheetSubject& subject,
                                     const edit::Reference* reference, int units);

/// `file_name` with its extension, if any, replaced by "html".
[[nodiscard]] std::string SheetFileName(std::string_view file_name);

}  // namespace velquist::text_export
