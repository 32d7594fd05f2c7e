// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "platform/System.h"

namespace velquist::platform {

/// What is embedded in this executable: on Windows its resources, elsewhere the same files as
/// data of the program.
class EmbeddedResources final : public Resources {
 public:
  [[nodiscard]] std::string Help() const override;
  [[nodiscard]] std::vector<std::byte> Picture() const override;
};

}  // namespace velquist::platform
