/* /proc/cpuinfo: a block of lines "key : value" for each CPU, an empty line behind it. */
#include "cpu/Cpu.h"

typedef struct TKey {
  const char* key;
  EFact fact;
} TKey;

/* Upper and lower case differ: the "Model" of some boards is the board's. */
static const TKey kKeys[] = {
    {"vendor_id", kVendor},
    {"model name", kModelName},
    {"Model Name", kModelName},
    {"cpu model", kModelName},
    {"cpu", kModelName},
    {"uarch", kModelName},
    {"cpu family", kFamily},
    {"model", kModel},
    {"stepping", kStepping},
    {"microcode", kMicrocode},
    {"CPU implementer", kImplementer},
    {"CPU part", kPart},
    {"CPU variant", kVariant},
    {"CPU revision", kRevision},
    {"flags", kFlags},
    {"Features", kFeatures},
    {"features", kFeatures},
    {"address sizes", kAddressSizes},
    {"physical id", kPackageId},
    {"cpu cores", kCoresInPackage},
    {"cpu MHz", kMegahertz},
    {"CPU MHz", kMegahertz},
    {"clock", kMegahertz},
};

static int SplitLine(TSpan line, TSpan* key, TSpan* value) {
  size_t at = 0;
  while (at < line.length && line.start[at] != ':') ++at;
  if (at == line.length) return 0;
  key->start = line.start;
  key->length = at;
  value->start = line.start + at + 1;
  value->length = line.length - at - 1;
  *key = Trim(*key);
  *value = Trim(*value);
  return 1;
}

static void SetFact(TCpu* cpu, TSpan key, TSpan value) {
  for (size_t i = 0; i < sizeof kKeys / sizeof kKeys[0]; ++i) {
    if (IsSame(key, kKeys[i].key)) cpu->facts[kKeys[i].fact] = value;
  }
}

static int HasCpu(const TList* cpus, uint32_t number) {
  const TCpu* cpu = cpus->items;
  for (size_t i = 0; i < cpus->count; ++i) {
    if (cpu[i].number == number) return 1;
  }
  return 0;
}

static TCpu* AppendCpu(TList* cpus, uint32_t number) {
  TCpu* cpu = AppendItem(cpus);
  if (cpu == NULL) return NULL;
  cpu->number = number;
  return cpu;
}

int ParseCpuInfo(const char* text, TList* cpus) {
  TSpan rest = SpanOf(text);
  TSpan line;
  TSpan key;
  TSpan value;
  TCpu* current = NULL; /* whose block it is; there are blocks that are nobody's */
  while (NextLine(&rest, &line)) {
    if (Trim(line).length == 0) current = NULL;
    if (!SplitLine(line, &key, &value)) continue;
    const TNumber number =
        IsSame(key, "processor") ? AtMost(ParseNumber(value), UINT32_MAX) : Unknown();
    if (number.known && !HasCpu(cpus, (uint32_t)number.value)) {
      current = AppendCpu(cpus, (uint32_t)number.value);
      if (current == NULL) return 0;
    } else if (current != NULL) {
      SetFact(current, key, value);
    }
  }
  return 1;
}

/* No kernel counts so far: what is beyond comes from a damaged file. */
static const uint32_t kMaxCpuNumber = 0xFFFF;

int ParseCpuList(TSpan ranges, TList* cpus) {
  uint32_t first;
  uint32_t last;
  while (NextRange(&ranges, &first, &last)) {
    for (uint32_t number = first; number <= last && number <= kMaxCpuNumber; ++number) {
      if (!HasCpu(cpus, number) && AppendCpu(cpus, number) == NULL) return 0;
    }
  }
  return 1;
}
