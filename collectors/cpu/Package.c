/* Many CPUs make a processor: what its package is as a whole. */
#include <stdio.h>

#include "cpu/Cpu.h"

static const TCpu* Cpus(const TList* cpus) { return cpus->items; }

TNumber NextPackage(const TList* cpus, uint64_t from) {
  TNumber next = Unknown();
  for (size_t i = 0; i < cpus->count; ++i) {
    const uint32_t package = Cpus(cpus)[i].package;
    if (package >= from && (!next.known || package < next.value)) next = Known(package);
  }
  return next;
}

/* The fact that all CPUs of the package state, or don't state; else the empty one. */
static TSpan AgreedFact(const TList* cpus, uint32_t package, EFact fact) {
  TSpan agreed = SpanOf("");
  for (size_t i = 0; i < cpus->count; ++i) {
    const TSpan stated = Cpus(cpus)[i].facts[fact];
    if (Cpus(cpus)[i].package != package || stated.length == 0) continue;
    if (agreed.length > 0 && !AreEqual(agreed, stated)) return SpanOf("");
    agreed = stated;
  }
  return agreed;
}

static TSpan FirstFact(const TList* cpus, uint32_t package, EFact fact) {
  for (size_t i = 0; i < cpus->count; ++i) {
    const TCpu* cpu = &Cpus(cpus)[i];
    if (cpu->package == package && cpu->facts[fact].length > 0) return cpu->facts[fact];
  }
  return SpanOf("");
}

static TNumber AgreedNumber(const TList* cpus, uint32_t package, EFact fact, uint64_t limit) {
  return AtMost(ParseNumber(AgreedFact(cpus, package, fact)), limit);
}

static uint64_t CountThreads(const TList* cpus, uint32_t package) {
  uint64_t count = 0;
  for (size_t i = 0; i < cpus->count; ++i) count += Cpus(cpus)[i].package == package;
  return count;
}

/* A core is counted at its lowest CPU. Unknown once a CPU does not know its core. */
static TNumber CountCores(const TList* cpus, uint32_t package, EKind kind) {
  uint64_t count = 0;
  for (size_t i = 0; i < cpus->count; ++i) {
    const TCpu* cpu = &Cpus(cpus)[i];
    if (cpu->package != package || (kind != kOrdinary && cpu->kind != kind)) continue;
    if (!cpu->core.known) return Unknown();
    count += cpu->core.value == cpu->number;
  }
  return Known(count);
}

static int IsHybrid(const TList* cpus, uint32_t package) {
  for (size_t i = 0; i < cpus->count; ++i) {
    if (Cpus(cpus)[i].package == package && Cpus(cpus)[i].kind != kOrdinary) return 1;
  }
  return 0;
}

static void SetCores(const TList* cpus, TPackage* package) {
  package->cores = CountCores(cpus, package->number, kOrdinary);
  if (!package->cores.known) {
    package->cores = AgreedNumber(cpus, package->number, kCoresInPackage, UINT32_MAX);
  }
  if (!IsHybrid(cpus, package->number)) return;
  package->performanceCores = CountCores(cpus, package->number, kPerformance);
  package->efficientCores = CountCores(cpus, package->number, kEfficient);
}

static TNumber Larger(TNumber one, TNumber other) {
  return !one.known || (other.known && other.value > one.value) ? other : one;
}

static TNumber Megahertz(TNumber kilohertz) {
  return kilohertz.known ? AtMost(Known(kilohertz.value / 1000), UINT32_MAX) : kilohertz;
}

/* "2599.998" and, behind another key, "2300.000000MHz" */
static TNumber ParseMegahertz(TSpan stated) {
  const TNumber whole = AtMost(NextDecimal(&stated), UINT32_MAX - 1);
  const int isHalf = stated.length > 1 && stated.start[0] == '.' && stated.start[1] >= '5' &&
                     stated.start[1] <= '9';
  return whole.known ? Known(whole.value + (uint64_t)isHalf) : whole;
}

static void SetClocks(const TList* cpus, TPackage* package) {
  for (size_t i = 0; i < cpus->count; ++i) {
    const TCpu* cpu = &Cpus(cpus)[i];
    if (cpu->package != package->number) continue;
    const TNumber stated = ParseMegahertz(cpu->facts[kMegahertz]);
    const TNumber current = Larger(stated, Megahertz(cpu->currentKilohertz));
    package->currentMegahertz = Larger(package->currentMegahertz, current);
    package->maxMegahertz = Larger(package->maxMegahertz, Megahertz(cpu->maxKilohertz));
  }
}

/* "48 bits physical, 57 bits virtual" */
static void SetAddressSizes(TSpan stated, TPackage* package) {
  TSpan word;
  TNumber bits = Unknown();
  while (NextWord(&stated, &word)) {
    if (IsSame(word, "physical,")) package->physicalBits = bits;
    if (IsSame(word, "virtual")) package->virtualBits = bits;
    if (!IsSame(word, "bits")) bits = AtMost(ParseNumber(word), UINT16_MAX);
  }
}

static void SetFeatures(const TList* cpus, TPackage* package) {
  const TSpan flags = AgreedFact(cpus, package->number, kFlags);
  package->features = flags;
  if (flags.length == 0) {
    package->features = AgreedFact(cpus, package->number, kFeatures);
    return;
  }
  package->dataBits = Known(HasWord(flags, "lm") ? 64 : 32);
  package->virtualization = Known(HasWord(flags, "vmx") || HasWord(flags, "svm") ? 1 : 0);
}

/* x86 counts its steppings, Arm names them by variant and revision: "r1p3". */
static void SetStepping(const TList* cpus, TPackage* package) {
  const size_t size = sizeof package->stepping;
  const TNumber variant = AgreedNumber(cpus, package->number, kVariant, UINT8_MAX);
  const TNumber revision = AgreedNumber(cpus, package->number, kRevision, UINT8_MAX);
  CopyShown(AgreedFact(cpus, package->number, kStepping), package->stepping, size);
  if (!variant.known || !revision.known) return;
  snprintf(package->stepping, size, "r%up%u", (unsigned)variant.value, (unsigned)revision.value);
}

TPackage ParsePackage(const TList* cpus, uint32_t number) {
  TPackage package = {0};
  package.number = number;
  CopyShown(FirstFact(cpus, number, kModelName), package.name, sizeof package.name);
  CopyShown(AgreedFact(cpus, number, kVendor), package.vendor, sizeof package.vendor);
  package.implementer = AgreedNumber(cpus, number, kImplementer, UINT8_MAX);
  package.family = AgreedNumber(cpus, number, kFamily, UINT32_MAX);
  package.model = AgreedNumber(cpus, number, kModel, UINT32_MAX);
  package.microcode = AgreedNumber(cpus, number, kMicrocode, UINT32_MAX);
  package.threads = Known(CountThreads(cpus, number));
  SetStepping(cpus, &package);
  SetCores(cpus, &package);
  SetClocks(cpus, &package);
  SetAddressSizes(AgreedFact(cpus, number, kAddressSizes), &package);
  SetFeatures(cpus, &package);
  return package;
}

static int HasPart(const TList* parts, uint64_t part) {
  for (size_t i = 0; i < parts->count; ++i) {
    if (((const uint16_t*)parts->items)[i] == part) return 1;
  }
  return 0;
}

int ParseParts(const TList* cpus, uint32_t package, TList* parts) {
  for (size_t i = 0; i < cpus->count; ++i) {
    if (Cpus(cpus)[i].package != package) continue;
    const TNumber part = AtMost(ParseNumber(Cpus(cpus)[i].facts[kPart]), UINT16_MAX);
    if (!part.known || HasPart(parts, part.value)) continue;
    uint16_t* added = AppendItem(parts);
    if (added == NULL) return 0;
    *added = (uint16_t)part.value;
  }
  return 1;
}
