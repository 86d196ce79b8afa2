// Gives files, and all files below folders, to a target, one after another: a corpus as a test.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <vector>

#include "FuzzSupport.h"

namespace fs = std::filesystem;

namespace {

std::vector<fs::path> FilesBelow(const fs::path& path) {
  if (!fs::is_directory(path)) return {path};
  std::vector<fs::path> files;
  for (const fs::directory_entry& entry : fs::recursive_directory_iterator(path)) {
    if (entry.is_regular_file()) files.push_back(entry.path());
  }
  std::sort(files.begin(), files.end());
  return files;
}

// False when the file can't be read.
bool Replay(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  std::string input{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  if (!file) return false;
  std::cout << path.filename().string() << std::endl;  // out before the input can end the process
  // No room behind the last byte: a step further is seen.
  const std::vector<std::uint8_t> bytes(input.begin(), input.end());
  LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  std::size_t count = 0;
  for (int i = 1; i < argc; ++i) {
    for (const fs::path& file : FilesBelow(argv[i])) {
      if (!Replay(file)) {
        std::cerr << file << " can't be read\n";
        return 1;
      }
      ++count;
    }
  }
  std::cout << count << " inputs\n";
  return count > 0 ? 0 : 1;
}
