// SPDX-License-Identifier: MIT
#pragma once

#include <iosfwd>
#include <map>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

namespace velquist::cli {

/// Keys in the order in which they were put in, numbers with a point as singles.
using Json = nlohmann::basic_json<nlohmann::ordered_map, std::vector, std::string, bool,
                                  std::int64_t, std::uint64_t, float>;

/// In one line. A single is the shortest decimal that reads back to it, one that is no number null;
/// what is no UTF-8 in a text becomes U+FFFD.
[[nodiscard]] std::string JsonText(const Json& value);

/// An array that is written while it is made, one element a line.
class JsonArray {
 public:
  explicit JsonArray(std::ostream& out) : out_(out) {}
  void Add(const Json& element);
  void End();

 private:
  std::ostream& out_;
  bool is_empty_ = true;
};

}  // namespace velquist::cli
