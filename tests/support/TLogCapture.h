// Collects what the core logs while it lives.
#ifndef VSKCORE_TESTS_SUPPORT_TLOGCAPTURE_H
#define VSKCORE_TESTS_SUPPORT_TLOGCAPTURE_H

#include <cstdint>
#include <string>
#include <vector>

// Starts with an empty log at the given threshold. The end restores the threshold and fails the
// test for every error (level 0) that was not taken. Lines are read from the retained records, so
// level 4 is not among them; each reads "<text>", or "[<level>] <text>" for a level other than 0.
class TLogCapture {
 public:
  explicit TLogCapture(std::int32_t threshold = 3);
  ~TLogCapture();
  TLogCapture(const TLogCapture&) = delete;
  TLogCapture& operator=(const TLogCapture&) = delete;

  // All lines since the last call, joined by line feeds; "" for none.
  std::string Take();
  std::vector<std::string> TakeLines();

 private:
  std::int32_t threshold_;
};

#endif
