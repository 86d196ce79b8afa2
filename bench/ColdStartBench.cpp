// What the library costs a program that starts, against a library with nothing in it.
#include <dlfcn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <stdexcept>
#include <vector>

#include "BenchSupport.h"

namespace {

const int kRuns = 21;

struct TStart {
  double passed;     // on the clock on the wall
  double processor;  // of this process alone
};

// Loads a library into this process. A core whose start failed has no query manager.
TStart Load(const char* path, bool isCore) {
  const auto before = std::chrono::steady_clock::now();
  const std::clock_t start = std::clock();
  void* const library = dlopen(path, RTLD_NOW);
  const std::clock_t end = std::clock();
  const std::chrono::duration<double> passed = std::chrono::steady_clock::now() - before;
  if (library == nullptr) throw std::runtime_error(dlerror());
  if (isCore) {
    const auto query =
        reinterpret_cast<void* (*)()>(dlsym(library, "_ZN11TRootObject15GetQueryManagerEv"));
    if (query == nullptr || query() == nullptr) throw std::runtime_error("the core did not start");
  }
  return {passed.count(), static_cast<double>(end - start) / CLOCKS_PER_SEC};
}

// The same in a process that has loaded nothing yet.
TStart LoadAfresh(const char* path, bool isCore) {
  int ends[2];
  if (pipe(ends) != 0) throw std::runtime_error("no pipe");
  const pid_t child = fork();
  if (child == 0) {
    _exit(RunBench([&] {
      const TStart start = Load(path, isCore);
      if (write(ends[1], &start, sizeof start) != sizeof start) throw std::runtime_error("no pipe");
    }));
  }
  close(ends[1]);
  TStart start{};
  const bool told = child > 0 && read(ends[0], &start, sizeof start) == sizeof start;
  close(ends[0]);
  if (child > 0) waitpid(child, nullptr, 0);
  if (!told) throw std::runtime_error(std::string("no result for ") + path);
  return start;
}

double MedianOf(std::vector<TStart> starts, double TStart::*time) {
  std::sort(starts.begin(), starts.end(),
            [=](const TStart& left, const TStart& right) { return left.*time < right.*time; });
  return starts[starts.size() / 2].*time;
}

void PrintRow(const char* name, double passed, double processor) {
  std::printf("  %-34s %9.2f ms %9.2f ms\n", name, passed * 1e3, processor * 1e3);
}

void CompareStarts() {
  std::vector<TStart> empty;
  std::vector<TStart> core;
  for (int run = 0; run < kRuns; ++run) {
    empty.push_back(LoadAfresh(VSK_BENCH_EMPTY_LIBRARY, false));
    core.push_back(LoadAfresh(VSK_BENCH_CORE_LIBRARY, true));
  }
  std::printf("\nLoading a library into a new process, %d runs each, in turns, medians\n", kRuns);
  std::printf("  %-34s %12s %12s\n", "", "time", "processor");
  const double emptyTime = MedianOf(empty, &TStart::passed);
  const double emptyProcessor = MedianOf(empty, &TStart::processor);
  const double coreTime = MedianOf(core, &TStart::passed);
  const double coreProcessor = MedianOf(core, &TStart::processor);
  PrintRow("an empty library", emptyTime, emptyProcessor);
  PrintRow("the core, its document read", coreTime, coreProcessor);
  PrintRow("more", coreTime - emptyTime, coreProcessor - emptyProcessor);
}

}  // namespace

int main() { return RunBench(CompareStarts); }
