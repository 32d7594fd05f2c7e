// SPDX-License-Identifier: MIT
// make_pictures ROOT_DIR: writes every picture that the project ships below its root.

#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>

#include "Pictures.h"

int main(int argc, char** argv)
{
  if (argc != 2) {
    std::cerr << "usage: make_pictures ROOT_DIR\n";
    return 2;
  }
  try {
    for (const auto& file : velquist::pictures::BuildPictures()) {
      const std::filesystem::path path = std::filesystem::path(argv[1]) / file.path;
      std::filesystem::create_directories(path.parent_path());
      std::ofstream out(path, std::ios::binary);
      out.write(reinterpret_cast<const char*>(file.bytes.data()),
                static_cast<std::streamsize>(file.bytes.size()));
      out.close();
      if (!out) {
        std::cerr << path.string() << ": could not be written\n";
        return 1;
      }
      std::cout << file.path << " " << file.bytes.size() << "\n";
    }
  } catch (const std::exception& error) {
    std::cerr << error.what() << "\n";
    return 1;
  }
  return 0;
}
