#include "BenchSupport.h"

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <random>
#include <stdexcept>

namespace {

const int kRuns = 11;
const int kSyntheticClasses = 500;
const int kSyntheticInstances = 20000;

std::string Document(const std::string& body) {
  return "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
         "<CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\">\n<DECLARATION>\n<DECLGROUP>\n" +
         body + "</DECLGROUP>\n</DECLARATION>\n</CIM>\n";
}

std::string Property(const std::string& name, const std::string& type, const std::string& inside) {
  return "<PROPERTY NAME=\"" + name + "\" TYPE=\"" + type + "\">\n" + inside + "</PROPERTY>\n";
}

std::string Value(const std::string& text) { return "<VALUE>" + text + "</VALUE>\n"; }

std::string Qualifier(const std::string& name, const std::string& type, const std::string& text) {
  return "<QUALIFIER NAME=\"" + name + "\" TYPE=\"" + type + "\">\n" + Value(text) +
         "</QUALIFIER>\n";
}

std::string QualifierDeclaration(const std::string& name, const std::string& type) {
  return "<QUALIFIER.DECLARATION NAME=\"" + name + "\" TYPE=\"" + type +
         "\">\n<SCOPE CLASS=\"true\" PROPERTY=\"true\"/>\n</QUALIFIER.DECLARATION>\n";
}

std::string Prose(const std::string& subject) {
  return Qualifier("Description", "string",
                   subject +
                       " as its maker states it, in the form that people know it by. It is "
                       "NULL while nobody has asked for it &amp; whenever it can&apos;t be "
                       "known; programs must not take it apart.");
}

std::string MakeSchema() {
  std::string body = QualifierDeclaration("Key", "boolean") +
                     QualifierDeclaration("Description", "string") +
                     QualifierDeclaration("MaxLen", "uint32");
  for (int number = 0; number < kSyntheticClasses; ++number) {
    const std::string name = "Bench_Class" + std::to_string(number);
    body += "<VALUE.OBJECT>\n<CLASS NAME=\"" + name + "\">\n" + Prose(name) +
            Property("Id", "uint32", Qualifier("Key", "boolean", "true") + Prose("The number"));
    for (const char* property : {"Caption", "Vendor", "Version", "SerialNumber", "Status"}) {
      body += Property(property, "string", Prose(property) + Qualifier("MaxLen", "uint32", "64"));
    }
    for (const char* property : {"Capacity", "Free", "Used"}) {
      body += Property(property, "uint64", Prose(property));
    }
    body += "</CLASS>\n</VALUE.OBJECT>\n";
  }
  return Document(body);
}

std::string MakeInstances() {
  std::string body;
  for (int number = 0; number < kSyntheticInstances; ++number) {
    const std::string text = std::to_string(number);
    body += "<VALUE.OBJECT>\n<INSTANCE CLASSNAME=\"Bench_Class" +
            std::to_string(number % kSyntheticClasses) + "\">\n" +
            Property("Id", "uint32", Value(text));
    for (const char* property : {"Caption", "Vendor", "Version", "SerialNumber", "Status"}) {
      body += Property(property, "string", Value(std::string(property) + " of thing " + text));
    }
    for (const char* property : {"Capacity", "Free", "Used"}) {
      body += Property(property, "uint64", Value(text + "000000"));
    }
    body += "</INSTANCE>\n</VALUE.OBJECT>\n";
  }
  return Document(body);
}

std::string MakeFolder() {
  std::random_device random;
  const std::filesystem::path folder =
      std::filesystem::temp_directory_path() / ("vsk-bench-" + std::to_string(random()));
  if (!std::filesystem::create_directory(folder)) {
    throw std::runtime_error("can't create " + folder.string());
  }
  return folder.string();
}

void WriteFile(const std::string& path, const std::string& text) {
  std::ofstream file(path, std::ios::binary);
  file << text;
  file.close();
  if (!file) throw std::runtime_error("can't write " + path);
}

double TimeOf(const TContender& contender) {
  if (contender.before) contender.before();
  const std::clock_t start = std::clock();
  contender.run();
  const double taken = static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
  if (contender.after) contender.after();
  return taken;
}

// The times of each contender, ascending.
using TTimes = std::vector<std::vector<double>>;

TTimes TakeTurns(const std::vector<TContender>& contenders) {
  TTimes seconds(contenders.size());
  for (int run = 0; run < kRuns; ++run) {
    for (std::size_t index = 0; index < contenders.size(); ++index) {
      seconds[index].push_back(TimeOf(contenders[index]));
    }
  }
  for (std::vector<double>& times : seconds) std::sort(times.begin(), times.end());
  return seconds;
}

double MedianOf(const std::vector<double>& times) { return times[times.size() / 2]; }

}  // namespace

TDocumentFiles::TDocumentFiles(int argc, char** argv) {
  if (argc == 3) {
    schema_ = argv[1];
    instances_ = argv[2];
    return;
  }
  std::cout << "No documents named (a schema, and instances of its classes): running on synthetic "
               "ones.\n";
  folder_ = MakeFolder();
  schema_ = folder_ + "/schema.xml";
  instances_ = folder_ + "/instances.xml";
  WriteFile(schema_, MakeSchema());
  WriteFile(instances_, MakeInstances());
}

TDocumentFiles::~TDocumentFiles() {
  std::error_code ignored;
  if (!folder_.empty()) std::filesystem::remove_all(folder_, ignored);
}

std::string ReadFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) throw std::runtime_error("can't open " + path);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

void Compare(const std::string& title, std::size_t size,
             const std::vector<TContender>& contenders) {
  const TTimes seconds = TakeTurns(contenders);
  std::printf("\n%s, %zu bytes, %d runs each, in turns, processor time\n", title.c_str(), size,
              kRuns);
  std::printf("  %-34s %12s %12s %13s %7s\n", "", "median", "best", "throughput", "times");
  for (std::size_t index = 0; index < contenders.size(); ++index) {
    const double median = MedianOf(seconds[index]);
    std::printf("  %-34s %9.2f ms %9.2f ms %8.0f MB/s %7.2f\n", contenders[index].name.c_str(),
                median * 1e3, seconds[index].front() * 1e3,
                static_cast<double>(size) / median / 1e6, median / MedianOf(seconds[0]));
  }
  std::fflush(stdout);
}

void CompareCalls(const std::string& title, int calls, const std::vector<TContender>& contenders) {
  const TTimes seconds = TakeTurns(contenders);
  std::printf("\n%s, %d calls, %d runs each, in turns, processor time\n", title.c_str(), calls,
              kRuns);
  std::printf("  %-34s %12s %12s %7s\n", "", "median", "best", "times");
  for (std::size_t index = 0; index < contenders.size(); ++index) {
    const double median = MedianOf(seconds[index]);
    std::printf("  %-34s %9.1f ns %9.1f ns %7.2f\n", contenders[index].name.c_str(),
                median * 1e9 / calls, seconds[index].front() * 1e9 / calls,
                median / MedianOf(seconds[0]));
  }
  std::fflush(stdout);
}

double GetResidentBytes() {
  std::ifstream status("/proc/self/status");
  for (std::string word; status >> word;) {
    double kilobytes = 0;
    if (word == "VmRSS:" && status >> kilobytes) return kilobytes * 1024;
  }
  throw std::runtime_error("this system doesn't tell how much memory is resident");
}

int RunBench(const std::function<void()>& bench) try {
  bench();
  return 0;
} catch (const std::exception& failure) {
  std::cerr << "Failed: " << failure.what() << '\n';
  return 1;
}
