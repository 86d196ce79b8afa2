// Another time zone for a test.
#ifndef VSKCORE_TESTS_SUPPORT_TZONE_H
#define VSKCORE_TESTS_SUPPORT_TZONE_H

#include <stdlib.h>
#include <time.h>

#include <optional>
#include <string>

// The zone of the process while it lives, as a rule of its own, so that no zone files are needed.
class TZone {
 public:
  explicit TZone(const char* rule) {
    if (const char* before = getenv("TZ")) before_ = before;
    Use(rule);
  }
  ~TZone() { Use(before_ ? before_->c_str() : nullptr); }
  TZone(const TZone&) = delete;
  TZone& operator=(const TZone&) = delete;

 private:
  static void Use(const char* rule) {
    if (rule != nullptr) {
      setenv("TZ", rule, 1);
    } else {
      unsetenv("TZ");
    }
    tzset();
  }

  std::optional<std::string> before_;
};

#endif
