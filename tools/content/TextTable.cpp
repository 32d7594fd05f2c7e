#include "TextTable.h"

#include <array>
#include <charconv>
#include <fstream>
#include <system_error>

#include "Content.h"

namespace velquist::content {

namespace {

constexpr std::string_view kBlanks = " \t\r";

std::string Trimmed(std::string_view text)
{
  const auto first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return std::string(text.substr(first, text.find_last_not_of(kBlanks) - first + 1));
}

std::vector<std::string> SplitCells(std::string_view line)
{
  std::vector<std::string> cells;
  for (;;) {
    const auto bar = line.find('|');
    cells.push_back(Trimmed(line.substr(0, bar)));
    if (bar == std::string_view::npos) return cells;
    line.remove_prefix(bar + 1);
  }
}

template <typename Number, typename... Format>
Number WholeTextAs(const TableLine& line, std::string_view text, Format... format)
{
  Number value{};
  const char* const end = text.data() + text.size();
  const auto [rest, error] = std::from_chars(text.data(), end, value, format...);
  if (error != std::errc{} || rest != end) {
    Reject(line, "\"" + std::string(text) + "\" is no number");
  }
  return value;
}

}  // namespace

std::vector<TableLine> ReadTable(const std::filesystem::path& path)
{
  std::ifstream file(path, std::ios::binary);
  if (!file) throw ContentError(path.filename().string() + ": cannot be read");

  std::vector<TableLine> lines;
  std::string section;
  std::string text;
  for (int number = 1; std::getline(file, text); ++number) {
    const std::string content = Trimmed(text);
    if (content.empty() || content.front() == '#') continue;
    if (content.front() == '[' && content.back() == ']') {
      section = content.substr(1, content.size() - 2);
      continue;
    }
    lines.push_back(
        {path.filename().string() + ":" + std::to_string(number), section, SplitCells(content)});
  }
  return lines;
}

void RequireCells(const TableLine& line, std::size_t count)
{
  if (line.cells.size() != count) Reject(line, "expected " + std::to_string(count) + " cells");
}

void Reject(const TableLine& line, std::string_view mistake)
{
  throw ContentError(line.place + ": " + std::string(mistake));
}

std::vector<std::string> SplitWords(std::string_view text)
{
  std::vector<std::string> words;
  for (;;) {
    const auto first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return words;
    text.remove_prefix(first);
    const auto end = std::min(text.find_first_of(kBlanks), text.size());
    words.emplace_back(text.substr(0, end));
    text.remove_prefix(end);
  }
}

double ToNumber(const TableLine& line, std::string_view text)
{
  return WholeTextAs<double>(line, text);
}

int ToWhole(const TableLine& line, std::string_view text, int base)
{
  return WholeTextAs<int>(line, text, base);
}

std::string ShortestText(float value)
{
  std::array<char, 64> text{};
  const auto result = std::to_chars(text.data(), text.data() + text.size(), value);
  return {text.data(), result.ptr};
}

}  // namespace velquist::content
