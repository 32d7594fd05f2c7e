#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace velquist::content {

/// One line of a source table.
struct TableLine {
  std::string place;               ///< "ranges.txt:12", for error messages
  std::string section;             ///< the nearest [name] above; may be empty
  std::vector<std::string> cells;  ///< between the bars, without outer blanks
};

/// Reads a table: cells separated by "|"; blank lines and lines that begin with "#" are
/// skipped, a line [name] begins a section.
/// Throws ContentError when the file cannot be read.
[[nodiscard]] std::vector<TableLine> ReadTable(const std::filesystem::path& path);

/// Throws ContentError unless the line has that many cells.
void RequireCells(const TableLine& line, std::size_t count);

/// Ends the reading with a ContentError about this line.
[[noreturn]] void Reject(const TableLine& line, std::string_view mistake);

[[nodiscard]] std::vector<std::string> SplitWords(std::string_view text);

/// The number that is all of `text`; the decimal point is a point in every locale.
/// Throws ContentError, naming the line, when the text is anything else.
[[nodiscard]] double ToNumber(const TableLine& line, std::string_view text);
[[nodiscard]] int ToWhole(const TableLine& line, std::string_view text, int base = 10);

/// The shortest text that reads back as the same single.
[[nodiscard]] std::string ShortestText(float value);

}  // namespace velquist::content
