// Where a collector's facts come from: the files of one machine.
#ifndef VSKCORE_COLLECTORS_COMMON_TSOURCE_H
#define VSKCORE_COLLECTORS_COMMON_TSOURCE_H

#include <optional>
#include <string>
#include <vector>

// All paths that its operations take are those of the examined machine ("/proc/uptime"). Files are
// read below a root folder, so that a captured tree of another machine replays here. Symbolic
// links are followed inside that root: an absolute link of the captured machine never leads to a
// file of this one.
//
// What is missing or can't be read is an ordinary answer, not a failure.
class TSource {
 public:
  // A file larger than this is cut there.
  static constexpr std::size_t kMaxFileSize = 4 * 1024 * 1024;

  explicit TSource(std::string root);
  // The root that the environment variable VSK_ROOT names; "/" without it.
  static TSource FromEnvironment();

  // The whole content; nothing for what is absent, forbidden, or no regular file.
  std::optional<std::string> ReadText(const std::string& path) const;
  // The names in a folder, sorted; empty when it can't be listed.
  std::vector<std::string> List(const std::string& path) const;
  bool HasFolder(const std::string& path) const;

 private:
  std::string root_;  // without a trailing separator; "" is the machine's own root
};

#endif
