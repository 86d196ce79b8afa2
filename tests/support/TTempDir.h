// A directory of its own for a test.
#ifndef VSKCORE_TESTS_SUPPORT_TTEMPDIR_H
#define VSKCORE_TESTS_SUPPORT_TTEMPDIR_H

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>

// Made under the system's folder for temporary files, removed with its content at the end.
class TTempDir {
 public:
  TTempDir() {
    std::random_device random;
    do {
      path_ = std::filesystem::temp_directory_path() / ("vskcore-" + std::to_string(random()));
    } while (!std::filesystem::create_directory(path_));
  }
  ~TTempDir() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TTempDir(const TTempDir&) = delete;
  TTempDir& operator=(const TTempDir&) = delete;

  // The full path of something in it; of itself without a name.
  std::string Path(const std::string& name = "") const {
    return name.empty() ? path_.string() : (path_ / name).string();
  }

  // Each gives the full path back. Missing directories on the way are made.
  std::string MakeDir(const std::string& name) const {
    std::filesystem::create_directories(path_ / name);
    return Path(name);
  }
  std::string MakeFile(const std::string& name, const std::string& content = "") const {
    std::filesystem::create_directories((path_ / name).parent_path());
    std::ofstream(path_ / name, std::ios::binary) << content;
    return Path(name);
  }
  std::string MakeLink(const std::string& name, const std::string& target) const {
    std::filesystem::create_symlink(target, path_ / name);
    return Path(name);
  }

  std::string Content(const std::string& name) const {
    std::ifstream file(path_ / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  }

 private:
  std::filesystem::path path_;
};

#endif
