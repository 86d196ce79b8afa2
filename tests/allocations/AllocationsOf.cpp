#include "allocations/AllocationsOf.h"

#include <atomic>
#include <cstdlib>
#include <new>

// The linker sends malloc of all that it puts into this program to the one, and leaves the true one
// as the other.
extern "C" void* WrapMalloc(std::size_t size) noexcept __asm__("__wrap_malloc");
extern "C" void* RealMalloc(std::size_t size) noexcept __asm__("__real_malloc");

namespace {

std::atomic<std::size_t> allocations{0};
std::atomic<std::size_t> releases{0};
// Those from the first on fail, up to the last.
std::atomic<std::size_t> firstToFail{0};
std::atomic<std::size_t> lastToFail{0};

void* Allocate(std::size_t size) noexcept {
  const std::size_t number = ++allocations;
  if (number >= firstToFail && number <= lastToFail) return nullptr;
  return RealMalloc(size == 0 ? 1 : size);
}

void* AllocateOrThrow(std::size_t size) {
  void* const memory = Allocate(size);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}

void Release(void* memory) noexcept {
  if (memory != nullptr) ++releases;
  std::free(memory);
}

}  // namespace

void* WrapMalloc(std::size_t size) noexcept { return Allocate(size); }

// Not every compiler declares these.
void operator delete(void* memory, std::size_t size) noexcept;
void operator delete[](void* memory, std::size_t size) noexcept;

// Every form but the aligned ones, which nothing here uses: a sanitizer brings forms of its own,
// and those that remained would not fit these.
void* operator new(std::size_t size) { return AllocateOrThrow(size); }
void* operator new[](std::size_t size) { return AllocateOrThrow(size); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return Allocate(size); }
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept { return Allocate(size); }
void operator delete(void* memory) noexcept { Release(memory); }
void operator delete[](void* memory) noexcept { Release(memory); }
void operator delete(void* memory, std::size_t) noexcept { Release(memory); }
void operator delete[](void* memory, std::size_t) noexcept { Release(memory); }
void operator delete(void* memory, const std::nothrow_t&) noexcept { Release(memory); }
void operator delete[](void* memory, const std::nothrow_t&) noexcept { Release(memory); }

std::size_t AllocationsOf(const std::function<void()>& body) {
  const std::size_t before = allocations;
  body();
  return allocations - before;
}

std::size_t ReleasesOf(const std::function<void()>& body) {
  const std::size_t before = releases;
  body();
  return releases - before;
}

bool WithFailingAllocation(std::size_t nth, bool lasting, const std::function<void()>& body) {
  const std::size_t first = allocations + nth;
  firstToFail = first;
  lastToFail = lasting ? static_cast<std::size_t>(-1) : first;
  body();
  lastToFail = 0;
  return allocations >= first;
}
