// SPDX-License-Identifier: MIT
#include "cli/Json.h"

#include <array>
#include <charconv>
#include <cmath>
#include <ostream>

namespace velquist::cli {
namespace {

void AppendSingle(std::string& text, float number)
{
  if (!std::isfinite(number)) {
    text += "null";
    return;
  }
  std::array<char, 64> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number);
  text.append(digits.data(), end.ptr);
  // As a whole number it would read back without its sign.
  if (number == 0 && std::signbit(number)) text += ".0";
}

/// The library's own words but for singles, which it does not always make as short as they can be.
void Append(std::string& text, const Json& value)
{
  constexpr int kOneLine = -1;
  const auto list = [&](char begin, char end, const auto& element) {
    text += begin;
    bool first = true;
    for (const auto& item : value.items()) {
      if (!first) text += ", ";
      first = false;
      element(item);
    }
    text += end;
  };
  switch (value.type()) {
    case Json::value_t::object:
      list('{', '}', [&](const auto& item) {
        text += Json(item.key()).dump(kOneLine, ' ', false, Json::error_handler_t::replace);
        text += ": ";
        Append(text, item.value());
      });
      break;
    case Json::value_t::array:
      list('[', ']', [&](const auto& item) { Append(text, item.value()); });
      break;
    case Json::value_t::number_float: AppendSingle(text, value.get<float>()); break;
    default: text += value.dump(kOneLine, ' ', false, Json::error_handler_t::replace);
  }
}

}  // namespace

std::string JsonText(const Json& value)
{
  std::string text;
  Append(text, value);
  return text;
}

void JsonArray::Add(const Json& element)
{
  out_ << (is_empty_ ? "[\n" : ",\n") << JsonText(element);
  is_empty_ = false;
}

void JsonArray::End()
{
  out_ << (is_empty_ ? "[]\n" : "\n]\n");
}

}  // namespace velquist::cli
