// A library for LibraryTest: tells by a variable of the environment that it was initialised, and
// where it lies.
#include <stdlib.h>

#include <cstdio>

namespace {

const char* const kVariable = "VSK_TEST_SAMPLE_LIBRARY";

__attribute__((constructor)) void Load() {
  char address[32];
  std::snprintf(address, sizeof address, "%p", static_cast<const void*>(&kVariable));
  setenv(kVariable, address, 1);
}

}  // namespace
