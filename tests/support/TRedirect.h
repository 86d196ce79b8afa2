// Stands something else in for a standard stream.
#ifndef VSKCORE_TESTS_SUPPORT_TREDIRECT_H
#define VSKCORE_TESTS_SUPPORT_TREDIRECT_H

#include <unistd.h>

#include <cstdio>
#include <string>

// While it lives, one descriptor of the process leads where another one does.
class TRedirect {
 public:
  TRedirect(int descriptor, int target) : descriptor_(descriptor), before_(dup(descriptor)) {
    dup2(target, descriptor_);
  }
  ~TRedirect() {
    dup2(before_, descriptor_);
    close(before_);
  }
  TRedirect(const TRedirect&) = delete;
  TRedirect& operator=(const TRedirect&) = delete;

 private:
  int descriptor_;
  int before_;
};

// What body writes to standard error, byte for byte.
template <typename TBody>
std::string StderrOf(TBody&& body) {
  std::FILE* const file = std::tmpfile();
  {
    const TRedirect redirect(STDERR_FILENO, fileno(file));
    body();
  }
  std::rewind(file);
  std::string text;
  for (int byte = std::getc(file); byte != EOF; byte = std::getc(file)) {
    text += static_cast<char>(byte);
  }
  std::fclose(file);
  return text;
}

#endif
