// What the benches share: documents, timing in turns, one table.
#ifndef VSKCORE_BENCH_BENCHSUPPORT_H
#define VSKCORE_BENCH_BENCHSUPPORT_H

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

// The documents that the benches run on, as files: a schema, and instances of its classes. They are
// named on the command line; without that, synthetic ones are made, which is said on standard
// output, and live as long as this object.
class TDocumentFiles {
 public:
  TDocumentFiles(int argc, char** argv);
  ~TDocumentFiles();
  TDocumentFiles(const TDocumentFiles&) = delete;
  TDocumentFiles& operator=(const TDocumentFiles&) = delete;

  const std::string& GetSchema() const { return schema_; }
  const std::string& GetInstances() const { return instances_; }

 private:
  std::string folder_;  // "" when the files are not ours
  std::string schema_;
  std::string instances_;
};

std::string ReadFile(const std::string& path);

// One way of doing the work that is measured. Before is called ahead of each run, After behind it;
// neither is timed, and both may be empty.
struct TContender {
  std::string name;
  std::function<void()> before;
  std::function<void()> run;
  std::function<void()> after;
};

// Takes the processor time of the contenders in turns, so that a slow moment of the machine meets
// all of them, and prints a row for each: median and best of the runs, throughput over size bytes,
// and how many times the first contender's median it takes.
void Compare(const std::string& title, std::size_t size, const std::vector<TContender>& contenders);

// The same for contenders that make that many calls in each run: a row tells the time of one call.
void CompareCalls(const std::string& title, int calls, const std::vector<TContender>& contenders);

// What the process has in memory now.
double GetResidentBytes();

// Runs a bench; what it throws is written to standard error. Gives the exit status.
int RunBench(const std::function<void()>& bench);

#endif
