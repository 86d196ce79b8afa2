#include "platform/OpenStream.h"

vsk::detail::TStream vsk::detail::OpenStream(const std::string& path) {
  return TStream(std::fopen(path.c_str(), "rbe"));  // e: close-on-exec
}
