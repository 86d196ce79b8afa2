// Files opened as a stream of the C library.
#ifndef VSKCORE_SRC_PLATFORM_OPENSTREAM_H
#define VSKCORE_SRC_PLATFORM_OPENSTREAM_H

#include <cstdio>
#include <memory>
#include <string>

namespace vsk::detail {

struct TCloseStream {
  void operator()(std::FILE* stream) const { std::fclose(stream); }
};

using TStream = std::unique_ptr<std::FILE, TCloseStream>;

// Opened to be read byte for byte. No program that the process starts inherits it, not even one
// that another thread starts meanwhile. Null when it can't be opened.
TStream OpenStream(const std::string& path);

}  // namespace vsk::detail

#endif
