/* All that talks to the core. */
#include <stdio.h>

#include "cpu/Cpu.h"

enum { kTextSize = 64, kLogSize = 256, kError = 0 };

/* Whether the core did it. What it did not is told, with its own reason. */
static int Done(const TTarget* target, const char* what, vskStatus status) {
  char text[kLogSize];
  if (status == vskStatusOK) return 1;
  snprintf(text, sizeof text, "%s of %s was not stored: %s", what, target->className,
           vskTranslateStatusCode(status));
  vskWriteLog(target->plugin, kError, text);
  return 0;
}

static void WriteText(const TTarget* target, const char* name, const char* text) {
  if (text == NULL || text[0] == '\0') return;
  Done(target, name, vskAddStringProperty(target->handle, name, text));
}

static void WriteBoolean(const TTarget* target, const char* name, TNumber value) {
  if (!value.known) return;
  Done(target, name, vskAddBooleanProperty(target->handle, name, value.value != 0));
}

static void WriteUint8(const TTarget* target, const char* name, TNumber value) {
  if (!AtMost(value, UINT8_MAX).known) return;
  Done(target, name, vskAddUint8Property(target->handle, name, (uint8_t)value.value));
}

static void WriteUint16(const TTarget* target, const char* name, TNumber value) {
  if (!AtMost(value, UINT16_MAX).known) return;
  Done(target, name, vskAddUint16Property(target->handle, name, (uint16_t)value.value));
}

static void WriteUint32(const TTarget* target, const char* name, TNumber value) {
  if (!AtMost(value, UINT32_MAX).known) return;
  Done(target, name, vskAddUint32Property(target->handle, name, (uint32_t)value.value));
}

static void WriteUint64(const TTarget* target, const char* name, TNumber value) {
  if (!value.known) return;
  Done(target, name, vskAddUint64Property(target->handle, name, value.value));
}

/* An empty array is not NULL: nothing is written for it. */
static void WriteArray(const TTarget* target, const char* name, const vskCIMValueArray* array,
                       size_t count) {
  if (count > 0) Done(target, name, vskAddArrayProperty(target->handle, name, array));
}

static vskStatus AppendWord(vskCIMValueArray* array, TSpan word) {
  char text[kTextSize]; /* the longest are half as long */
  CopyShown(word, text, sizeof text);
  return vskArrayAddString(array, text);
}

static void WriteWords(const TTarget* target, const char* name, TSpan words) {
  vskCIMValueArray* array = NULL;
  TSpan word;
  size_t count = 0;
  if (!Done(target, name, vskNewCIMValueArray(&array))) return;
  while (NextWord(&words, &word)) count += (size_t)Done(target, name, AppendWord(array, word));
  WriteArray(target, name, array, count);
  vskDeleteCIMValueArray(array);
}

static void WriteParts(const TTarget* target, const char* name, const TList* parts) {
  vskCIMValueArray* array = NULL;
  const uint16_t* part = parts->items;
  size_t count = 0;
  if (!Done(target, name, vskNewCIMValueArray(&array))) return;
  for (size_t i = 0; i < parts->count; ++i) {
    count += (size_t)Done(target, name, vskArrayAddUint16(array, part[i]));
  }
  WriteArray(target, name, array, count);
  vskDeleteCIMValueArray(array);
}

static int OpenInstance(const TTarget* target, const char* id) {
  if (!Done(target, "An instance", vskAddClass(target->handle, target->className))) return 0;
  WriteText(target, "InstanceID", id);
  return 1;
}

static void NameProcessor(uint32_t package, char* id) {
  snprintf(id, kTextSize, "cpu:%lu", (unsigned long)package);
}

static void NameCache(const TCache* cache, char* id) {
  char kind[kTextSize / 2];
  ParseCacheKind(cache, kind, sizeof kind);
  snprintf(id, kTextSize, "cache:%s:%lu", kind, (unsigned long)cache->firstCpu);
}

static void WriteModel(const TTarget* target, const TPackage* package) {
  WriteText(target, "ElementName", package->name);
  WriteUint32(target, "PackageNumber", Known(package->number));
  WriteText(target, "Manufacturer", package->vendor);
  WriteUint8(target, "Implementer", package->implementer);
  WriteUint32(target, "CPUFamily", package->family);
  WriteUint32(target, "CPUModel", package->model);
  WriteText(target, "Stepping", package->stepping);
  WriteUint32(target, "Microcode", package->microcode);
}

static void WriteFigures(const TTarget* target, const TPackage* package) {
  WriteUint32(target, "NumberOfCores", package->cores);
  WriteUint32(target, "NumberOfPerformanceCores", package->performanceCores);
  WriteUint32(target, "NumberOfEfficientCores", package->efficientCores);
  WriteUint32(target, "NumberOfLogicalProcessors", package->threads);
  WriteUint32(target, "MaxClockSpeed", package->maxMegahertz);
  WriteUint32(target, "CurrentClockSpeed", package->currentMegahertz);
  WriteUint16(target, "DataWidth", package->dataBits);
  WriteUint16(target, "PhysicalAddressWidth", package->physicalBits);
  WriteUint16(target, "VirtualAddressWidth", package->virtualBits);
  WriteBoolean(target, "Virtualization", package->virtualization);
}

static void WriteProcessor(const TTarget* target, const TList* cpus, uint32_t number) {
  char id[kTextSize];
  TList parts = {NULL, 0, 0, sizeof(uint16_t)};
  const TPackage package = ParsePackage(cpus, number);
  NameProcessor(number, id);
  if (!OpenInstance(target, id)) return;
  WriteModel(target, &package);
  WriteFigures(target, &package);
  WriteWords(target, "Features", package.features);
  if (!ParseParts(cpus, number, &parts)) Done(target, "PartNumbers", vskStatusOutOfMemory);
  WriteParts(target, "PartNumbers", &parts);
  FreeItems(&parts);
}

void WriteProcessors(const TTarget* target, const TMachine* machine) {
  TNumber number = NextPackage(&machine->cpus, 0);
  while (number.known) {
    WriteProcessor(target, &machine->cpus, (uint32_t)number.value);
    number = NextPackage(&machine->cpus, number.value + 1);
  }
}

/* "L1 data cache" */
static void WriteCacheName(const TTarget* target, const TCache* cache) {
  char name[kTextSize];
  const char* type = "";
  if (cache->type.value == kData) type = " data";
  if (cache->type.value == kInstruction) type = " instruction";
  snprintf(name, sizeof name, "L%lu%s cache", (unsigned long)cache->level, type);
  WriteText(target, "ElementName", name);
}

static void WriteCache(const TTarget* target, const TCache* cache) {
  char id[kTextSize];
  NameCache(cache, id);
  if (!OpenInstance(target, id)) return;
  WriteCacheName(target, cache);
  WriteUint8(target, "CacheLevel", Known(cache->level));
  WriteUint16(target, "CacheType", cache->type);
  WriteUint64(target, "Size", cache->size);
  WriteUint32(target, "LineSize", cache->lineSize);
  WriteUint32(target, "WaysOfAssociativity", cache->ways);
  WriteUint32(target, "NumberOfSets", cache->sets);
  WriteUint32(target, "NumberOfSharingCPUs", cache->sharers);
  WriteText(target, "SharedByCPUs", cache->sharedBy);
}

void WriteCaches(const TTarget* target, const TMachine* machine) {
  const TCache* cache = machine->caches.items;
  for (size_t i = 0; i < machine->caches.count; ++i) WriteCache(target, &cache[i]);
}

static void WriteReference(const TTarget* target, const char* name, const char* className,
                           const char* id) {
  TCIMReference* reference = NULL;
  if (!Done(target, name, vskNewCIMReference(&reference, target->handle))) return;
  if (Done(target, name, vskSetReferenceClassName(reference, className)) &&
      Done(target, name, vskReferenceAddString(reference, "InstanceID", id))) {
    Done(target, name, vskAddReferenceProperty(target->handle, name, reference));
  }
  vskDeleteCIMReference(reference);
}

static void WriteProcessorCache(const TTarget* target, const TCache* cache, uint32_t package) {
  char id[kTextSize];
  if (!Done(target, "An instance", vskAddClass(target->handle, target->className))) return;
  NameCache(cache, id);
  WriteReference(target, "Antecedent", "ZNTSG_CacheMemory", id);
  NameProcessor(package, id);
  WriteReference(target, "Dependent", "ZNTSG_Processor", id);
}

void WriteProcessorCaches(const TTarget* target, const TMachine* machine) {
  const TCache* cache = machine->caches.items;
  const TCacheLink* link = machine->links.items;
  for (size_t i = 0; i < machine->links.count; ++i) {
    WriteProcessorCache(target, &cache[link[i].cache], link[i].package);
  }
}
