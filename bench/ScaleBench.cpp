// How time grows with the number of instances: documents of several sizes loaded, and a container
// filled through the C interface, linked and walked.
#include <vskcore/model/ICIMElement.h>
#include <vskcore/model/TCIMClass.h>
#include <vskcore/model/TCIMInstance.h>
#include <vskcore/model/TCIMProperty.h>
#include <vskcore/model/TCIMReference.h>
#include <vskcore/model/TCIMValue.h>
#include <vskcore/model/TContainer.h>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <memory>
#include <numeric>
#include <stdexcept>
#include <vector>

#include "BenchSchema.h"
#include "BenchSupport.h"
#include "cinterface/vskIOHandle.h"

namespace {

const std::size_t kWalks = 1000;
const int kRuns = 9;

// Loading.

TContender Loading(const std::string& schema, const std::string& path) {
  const auto container = std::make_shared<std::unique_ptr<TContainer>>();
  const auto before = [=] {
    *container = std::make_unique<TContainer>();
    (*container)->PopulateContainerFromFile(schema);
  };
  const auto run = [=] { (*container)->PopulateContainerFromFile(path); };
  return {path.substr(path.rfind('/') + 1), before, run, [=] { container->reset(); }};
}

// The row of the largest tells by its last column how the time has grown.
void CompareLoads(int argc, char** argv) {
  std::vector<TContender> loads;
  for (int i = 2; i < argc; ++i) loads.push_back(Loading(argv[1], argv[i]));
  CompareCalls("Loading ever more instances", 1, loads);
}

// Filling.

void WriteDevices(TContainer& container, std::uint32_t count) {
  vskIOHandle handle{nullptr, &container, nullptr};
  for (const char* className : {"Bench_Device", "Bench_Part"}) {
    for (std::uint32_t i = 0; i < count / 2; ++i) WriteDevice(handle, className, i);
  }
  CloseQuery(handle);
}

// A ring through all of them: each has two associations.
void LinkDevices(TContainer& container, std::uint32_t count) {
  vskIOHandle handle{nullptr, &container, nullptr};
  const std::uint32_t half = count / 2;
  for (std::uint32_t i = 0; i < count; ++i) {
    WriteDevicePart(handle, i % half, (i + i / half) % half);
  }
  CloseQuery(handle);
}

void ResolveAll(const TContainer& container) {
  for (const TCIMInstance* association :
       container.GetClass("Bench_DevicePart").EnumerateInstances(false)) {
    for (const TCIMProperty* end : association->EnumerateProperties()) {
      static_cast<void>(static_cast<TCIMReference>(end->GetValue()).GetCIMElement());
    }
  }
}

// From devices that are spread evenly, so that none is in a cache.
void WalkFrom(const std::vector<TCIMInstance*>& devices, std::size_t walks) {
  for (std::size_t i = 0; i < walks; ++i) {
    const TCIMInstance& device = *devices[i * devices.size() / walks];
    if (device.Associators("", "", "", "").size() != 2) {
      throw std::runtime_error("a walk has lost something");
    }
  }
}

const char* const kSteps[] = {"writing the instances",     "writing the associations",
                              "resolving every reference", "the first walk",
                              "1,000 more walks",          "destroying it all"};
using TSeconds = std::vector<double>;

// The processor time of each step.
TSeconds Fill(std::uint32_t instances) {
  TSeconds seconds;
  const auto time = [&](const auto& step) {
    const std::clock_t start = std::clock();
    step();
    seconds.push_back(static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC);
  };
  auto container = std::make_unique<TContainer>();
  DeclareDevices(*container);
  time([&] { WriteDevices(*container, instances); });
  time([&] { LinkDevices(*container, instances); });
  time([&] { ResolveAll(*container); });
  const auto devices = container->GetClass("Bench_Device").EnumerateInstances(false);
  time([&] { WalkFrom(devices, 1); });
  time([&] { WalkFrom(devices, kWalks); });
  time([&] { container.reset(); });
  return seconds;
}

// The median of each step.
TSeconds FillOften(std::uint32_t instances) {
  std::vector<TSeconds> runs;
  for (int run = 0; run < kRuns; ++run) runs.push_back(Fill(instances));
  TSeconds medians = runs.front();
  for (std::size_t step = 0; step < medians.size(); ++step) {
    std::sort(runs.begin(), runs.end(), [step](const TSeconds& left, const TSeconds& right) {
      return left[step] < right[step];
    });
    medians[step] = runs[kRuns / 2][step];
  }
  return medians;
}

void PrintGrowth(const char* step, double first, double last) {
  std::printf("  %-34s %9.1f ms %9.1f ms %7.2f\n", step, first * 1e3, last * 1e3, last / first);
}

void CompareFills(std::uint32_t few, std::uint32_t many) {
  const TSeconds first = FillOften(few);
  const TSeconds last = FillOften(many);
  std::printf(
      "\nInstances of 8 properties and as many associations, medians of %d runs, processor time\n",
      kRuns);
  std::printf("  %-34s %12u %12u %7s\n", "", few, many, "times");
  for (std::size_t step = 0; step < first.size(); ++step) {
    PrintGrowth(kSteps[step], first[step], last[step]);
  }
  PrintGrowth("altogether", std::accumulate(first.begin(), first.end(), 0.0),
              std::accumulate(last.begin(), last.end(), 0.0));
}

}  // namespace

// Without arguments fills with 125,000 and with 1,000,000 instances; with some, they name a schema
// and documents with instances, the smallest first.
int main(int argc, char** argv) {
  return RunBench([&] {
    if (argc > 2) return CompareLoads(argc, argv);
    CompareFills(125000, 1000000);
  });
}
