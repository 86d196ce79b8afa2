/* All that touches the machine. */
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "cpu/Cpu.h"

enum { kPathSize = 4096 }; /* no kernel opens a longer path */

/* The description of some thousand CPUs; a larger file is cut there. */
static const size_t kMaxTextSize = 64u << 20;

/* Reads to the end: the kernel's files report no useful size. */
static char* ReadStream(FILE* file) {
  size_t capacity = 256;
  size_t length = 0;
  char* text = malloc(capacity);
  while (text != NULL) {
    length += fread(text + length, 1, capacity - 1 - length, file);
    if (length + 1 < capacity || capacity > kMaxTextSize) break;
    capacity *= 2;
    char* larger = realloc(text, capacity);
    if (larger == NULL) free(text);
    text = larger;
  }
  if (text != NULL) text[length] = '\0';
  return text;
}

char* ReadText(const char* root, const char* path) {
  char full[kPathSize];
  const int length = snprintf(full, sizeof full, "%s%s", root, path);
  if (length < 0 || (size_t)length >= sizeof full) return NULL;
  FILE* file = fopen(full, "rb");
  if (file == NULL) return NULL;
  char* text = ReadStream(file);
  if (text != NULL && ferror(file)) { /* a folder can be opened, but not read */
    free(text);
    text = NULL;
  }
  fclose(file);
  return text;
}

static char* ReadCpuText(const char* root, uint32_t cpu, const char* file) {
  char path[128];
  snprintf(path, sizeof path, "/sys/devices/system/cpu/cpu%lu/%s", (unsigned long)cpu, file);
  return ReadText(root, path);
}

static TNumber ReadCpuNumber(const char* root, uint32_t cpu, const char* file) {
  char* text = ReadCpuText(root, cpu, file);
  const TNumber number = ParseNumber(Trim(SpanOf(text)));
  free(text);
  return number;
}

static TNumber ReadFirstInRanges(const char* root, uint32_t cpu, const char* file) {
  char* text = ReadCpuText(root, cpu, file);
  const TNumber first = FirstInRanges(SpanOf(text));
  free(text);
  return first;
}

/* A machine that tells of no packages has one. */
static uint32_t ReadPackage(const char* root, const TCpu* cpu) {
  TNumber package = ReadCpuNumber(root, cpu->number, "topology/physical_package_id");
  if (!package.known) package = ParseNumber(cpu->facts[kPackageId]);
  return AtMost(package, UINT32_MAX).known ? (uint32_t)package.value : 0;
}

static void ReadCpu(const char* root, TCpu* cpu) {
  cpu->package = ReadPackage(root, cpu);
  cpu->core = ReadFirstInRanges(root, cpu->number, "topology/core_cpus_list");
  if (!cpu->core.known) { /* its name until Linux 5.3 */
    cpu->core = ReadFirstInRanges(root, cpu->number, "topology/thread_siblings_list");
  }
  cpu->maxKilohertz = ReadCpuNumber(root, cpu->number, "cpufreq/cpuinfo_max_freq");
  /* Reading it measures the clock, which takes its time; cpuinfo has done so already. */
  if (cpu->facts[kMegahertz].length > 0) return;
  cpu->currentKilohertz = ReadCpuNumber(root, cpu->number, "cpufreq/scaling_cur_freq");
}

static void ReadKind(const char* root, const char* path, EKind kind, TList* cpus) {
  char* text = ReadText(root, path);
  TCpu* cpu = cpus->items;
  for (size_t i = 0; i < cpus->count; ++i) {
    if (IsInRanges(SpanOf(text), cpu[i].number)) cpu[i].kind = kind;
  }
  free(text);
}

static int ReadCpus(const char* root, TMachine* machine) {
  TList* cpus = &machine->cpus;
  machine->cpuInfo = ReadText(root, "/proc/cpuinfo");
  char* online = ReadText(root, "/sys/devices/system/cpu/online");
  const int complete = ParseCpuInfo(machine->cpuInfo, cpus) && ParseCpuList(SpanOf(online), cpus);
  free(online);
  if (!complete) return 0;
  for (size_t i = 0; i < cpus->count; ++i) ReadCpu(root, (TCpu*)cpus->items + i);
  ReadKind(root, "/sys/devices/cpu_core/cpus", kPerformance, cpus);
  ReadKind(root, "/sys/devices/cpu_atom/cpus", kEfficient, cpus);
  ReadKind(root, "/sys/devices/cpu_lowpower/cpus", kEfficient, cpus);
  return 1;
}

static void ReadCacheFiles(const char* root, uint32_t cpu, unsigned index, int from, int to,
                           char* files[kCacheFileCount]) {
  static const char* const kNames[kCacheFileCount] = {"level",
                                                      "type",
                                                      "shared_cpu_list",
                                                      "size",
                                                      "coherency_line_size",
                                                      "ways_of_associativity",
                                                      "number_of_sets"};
  for (int i = from; i < to; ++i) {
    char path[64];
    snprintf(path, sizeof path, "cache/index%u/%s", index, kNames[i]);
    files[i] = ReadCpuText(root, cpu, path);
  }
}

static int IsSameCache(const TCache* one, const TCache* other) {
  return one->firstCpu == other->firstCpu && one->level == other->level &&
         one->type.value == other->type.value;
}

/* The place of the cache in the list; the length of the list where it is not there. */
static size_t PlaceOf(const TList* caches, const TCache* cache) {
  size_t place = 0;
  while (place < caches->count && !IsSameCache((const TCache*)caches->items + place, cache)) {
    ++place;
  }
  return place;
}

static int AppendLink(TList* links, size_t cache, uint32_t package) {
  const TCacheLink* link = links->items;
  for (size_t i = 0; i < links->count; ++i) {
    if (link[i].cache == cache && link[i].package == package) return 1;
  }
  TCacheLink* added = AppendItem(links);
  if (added == NULL) return 0;
  added->cache = cache;
  added->package = package;
  return 1;
}

/* Appends a cache that was not seen yet; its list of sharers goes with it. */
static int AppendCache(TList* caches, const TCache* cache, char* files[kCacheFileCount]) {
  TCache* added = AppendItem(caches);
  if (added == NULL) return 0;
  *added = *cache;
  if (!cache->sharers.known) return 1;
  added->sharedBy = files[kSharedFile];
  added->sharedBy[strcspn(added->sharedBy, "\n")] = '\0';
  files[kSharedFile] = NULL;
  return 1;
}

/* One folder of one CPU. found tells whether there is any. Most CPUs see again what another one
 * shares with them: then the files that tell it apart are enough. */
static int ReadCache(const char* root, const TCpu* cpu, unsigned index, TMachine* machine,
                     int* found) {
  char* files[kCacheFileCount] = {NULL};
  TCache cache;
  int complete = 1;
  ReadCacheFiles(root, cpu->number, index, 0, kSizeFile, files);
  *found = ParseCache(files, cpu->number, &cache);
  if (*found) {
    const size_t place = PlaceOf(&machine->caches, &cache);
    if (place == machine->caches.count) {
      ReadCacheFiles(root, cpu->number, index, kSizeFile, kCacheFileCount, files);
      ParseCache(files, cpu->number, &cache);
      complete = AppendCache(&machine->caches, &cache, files);
    }
    complete = complete && AppendLink(&machine->links, place, cpu->package);
  }
  for (int i = 0; i < kCacheFileCount; ++i) free(files[i]);
  return complete;
}

static int ReadCaches(const char* root, TMachine* machine) {
  const TCpu* cpu = machine->cpus.items;
  for (size_t i = 0; i < machine->cpus.count; ++i) {
    int found = 1;
    for (unsigned index = 0; found; ++index) {
      if (!ReadCache(root, &cpu[i], index, machine, &found)) return 0;
    }
  }
  return 1;
}

int ReadMachine(const char* root, TMachine* machine) {
  const TMachine empty = {NULL,
                          {NULL, 0, 0, sizeof(TCpu)},
                          {NULL, 0, 0, sizeof(TCache)},
                          {NULL, 0, 0, sizeof(TCacheLink)}};
  *machine = empty;
  return ReadCpus(root, machine) && ReadCaches(root, machine);
}

void FreeMachine(TMachine* machine) {
  TCache* cache = machine->caches.items;
  for (size_t i = 0; i < machine->caches.count; ++i) free(cache[i].sharedBy);
  FreeItems(&machine->links);
  FreeItems(&machine->caches);
  FreeItems(&machine->cpus);
  free(machine->cpuInfo);
  machine->cpuInfo = NULL;
}
