// The owner of an open file descriptor.
#ifndef VSKCORE_SRC_PLATFORM_POSIX_TFILEDESCRIPTOR_H
#define VSKCORE_SRC_PLATFORM_POSIX_TFILEDESCRIPTOR_H

#include <unistd.h>

#include <utility>

namespace vsk::detail {

// Closes its descriptor at the end; moved, never copied. Whoever opens one sets close-on-exec, so
// that no program started by the process inherits it.
class TFileDescriptor {
 public:
  explicit TFileDescriptor(int descriptor = -1) : descriptor_(descriptor) {}
  TFileDescriptor(TFileDescriptor&& other) noexcept : descriptor_(other.Release()) {}
  TFileDescriptor& operator=(TFileDescriptor&& other) noexcept {
    std::swap(descriptor_, other.descriptor_);
    return *this;
  }
  ~TFileDescriptor() { Close(); }

  bool IsOpen() const { return descriptor_ != -1; }
  int Get() const { return descriptor_; }
  int Release() { return std::exchange(descriptor_, -1); }

  // Whether everything written has arrived. Afterwards it holds nothing. Never tried again: the
  // number may already belong to another file.
  bool Close() { return descriptor_ == -1 || close(Release()) == 0; }

 private:
  int descriptor_;
};

}  // namespace vsk::detail

#endif
