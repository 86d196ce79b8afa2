#include "common/TSource.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <list>
#include <utility>

namespace fs = std::filesystem;

namespace {

constexpr int kMaxLinks = 40;  // as many as the kernel follows

fs::path Below(const fs::path& root, const fs::path& path) { return root / path.relative_path(); }

// The file on this machine that stands for path, links followed below root; empty when they loop.
fs::path Resolve(const fs::path& root, const fs::path& path) {
  std::list<fs::path> rest(path.begin(), path.end());
  fs::path at = "/";
  int links = 0;
  while (!rest.empty()) {
    const fs::path part = rest.front();
    rest.pop_front();
    if (part == "..") {
      at = at.parent_path();
      continue;
    }
    std::error_code error;
    const fs::path target = fs::read_symlink(Below(root, at / part), error);
    if (error) {
      at /= part;
      continue;
    }
    if (++links > kMaxLinks) return {};
    if (target.is_absolute()) at = "/";
    rest.insert(rest.begin(), target.begin(), target.end());
  }
  return Below(root, at);
}

}  // namespace

TSource::TSource(std::string root) : root_(std::move(root)) {
  while (!root_.empty() && root_.back() == '/') root_.pop_back();
}

TSource TSource::FromEnvironment() {
  const char* root = std::getenv("VSK_ROOT");
  return TSource(root == nullptr ? "" : root);
}

std::optional<std::string> TSource::ReadText(const std::string& path) const {
  const fs::path file = Resolve(root_ + "/", path);
  std::error_code error;
  if (!fs::is_regular_file(file, error)) return std::nullopt;
  std::ifstream stream(file, std::ios::binary);
  if (!stream) return std::nullopt;
  // The kernel's files report no useful size, so read until the end shows.
  std::string content;
  char buffer[4096];
  while (content.size() < kMaxFileSize) {
    stream.read(buffer, sizeof buffer);
    content.append(buffer, static_cast<std::size_t>(stream.gcount()));
    if (stream.bad()) return std::nullopt;
    if (!stream) break;
  }
  return content;
}

std::vector<std::string> TSource::List(const std::string& path) const {
  std::vector<std::string> names;
  std::error_code error;
  fs::directory_iterator entry(Resolve(root_ + "/", path), error);
  while (!error && entry != fs::directory_iterator()) {
    names.push_back(entry->path().filename().string());
    entry.increment(error);
  }
  std::sort(names.begin(), names.end());
  return names;
}

bool TSource::HasFolder(const std::string& path) const {
  std::error_code error;
  return fs::is_directory(Resolve(root_ + "/", path), error);
}
