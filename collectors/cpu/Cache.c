/* A cache, from the files of one of the CPUs that see it. */
#include <stdio.h>

#include "cpu/Cpu.h"

static TNumber NumberIn(const char* file, uint64_t limit) {
  return AtMost(ParseNumber(Trim(SpanOf(file))), limit);
}

/* The kernel writes 0 where it was not told. */
static TNumber PositiveIn(const char* file) {
  const TNumber number = NumberIn(file, UINT32_MAX);
  return number.value > 0 ? number : Unknown();
}

static TNumber ParseType(TSpan type) {
  if (IsSame(type, "Instruction")) return Known(kInstruction);
  if (IsSame(type, "Data")) return Known(kData);
  if (IsSame(type, "Unified")) return Known(kUnified);
  return Unknown();
}

TNumber ParseSize(TSpan span) {
  static const char kUnits[] = "KMGT";
  const TNumber number = NextDecimal(&span);
  if (number.value == 0 || span.length > 1) return Unknown();
  if (span.length == 0) return number;
  uint64_t factor = 1024;
  for (const char* unit = kUnits; *unit != '\0'; ++unit, factor *= 1024) {
    if (*unit != span.start[0]) continue;
    return number.value > UINT64_MAX / factor ? Unknown() : Known(number.value * factor);
  }
  return Unknown();
}

int ParseCache(char* const files[kCacheFileCount], uint32_t cpu, TCache* cache) {
  const TCache none = {0};
  const TNumber level = NumberIn(files[kLevelFile], UINT8_MAX);
  const TSpan shared = Trim(SpanOf(files[kSharedFile]));
  const TNumber first = FirstInRanges(shared);
  *cache = none;
  if (!level.known) return 0;
  cache->level = (uint32_t)level.value;
  cache->type = ParseType(Trim(SpanOf(files[kTypeFile])));
  cache->firstCpu = first.known ? (uint32_t)first.value : cpu;
  cache->sharers = AtMost(CountInRanges(shared), UINT32_MAX);
  cache->size = ParseSize(Trim(SpanOf(files[kSizeFile])));
  cache->lineSize = PositiveIn(files[kLineFile]);
  cache->ways = PositiveIn(files[kWaysFile]);
  cache->sets = PositiveIn(files[kSetsFile]);
  return 1;
}

void ParseCacheKind(const TCache* cache, char* buffer, size_t size) {
  const char* suffix = "";
  if (cache->type.value == kData) suffix = "d";
  if (cache->type.value == kInstruction) suffix = "i";
  snprintf(buffer, size, "L%u%s", (unsigned)cache->level, suffix);
}
