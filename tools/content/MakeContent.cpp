// Writes the content that ships, made from the tables in this folder:
//
//   make_content OUTPUT_DIR [SOURCES_DIR]
//
// puts it into OUTPUT_DIR/assets/program and OUTPUT_DIR/examples/GPL.

#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

#include "Content.h"

namespace {

namespace fs = std::filesystem;
using velquist::content::ContentError;
using velquist::content::ContentFile;

void Write(const fs::path& folder, const std::vector<ContentFile>& files)
{
  for (const ContentFile& file : files) {
    const fs::path path = folder / fs::path(file.path);
    fs::create_directories(path.parent_path());
    std::ofstream stream(path, std::ios::binary | std::ios::trunc);
    stream.write(file.bytes.data(), static_cast<std::streamsize>(file.bytes.size()));
    stream.close();
    if (!stream) throw ContentError(path.string() + ": cannot be written");
  }
  std::cout << folder.string() << ": " << files.size() << " files\n";
}

}  // namespace

int main(int argc, char** argv)
{
  const std::vector<std::string> arguments(argv + 1, argv + argc);
  if (arguments.empty() || arguments.size() > 2) {
    std::cerr << "usage: make_content OUTPUT_DIR [SOURCES_DIR]\n";
    return 2;
  }
  try {
    const fs::path output = arguments[0];
    const fs::path sources = arguments.size() == 2 ? arguments[1] : VELQUIST_CONTENT_SOURCES;
    Write(output / "assets" / "program", velquist::content::ProgramFiles(sources));
    Write(output / "examples" / "GPL", velquist::content::ExampleFiles(sources));
  } catch (const std::exception& error) {
    std::cerr << "make_content: " << error.what() << '\n';
    return 1;
  }
  return 0;
}
