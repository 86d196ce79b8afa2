/* The processors and their caches, in C: what is collected, and the road of it. Read... touches the
 * machine, Parse... is pure, Write... talks to the core.
 *
 * What can't be known is an unknown number, an empty span or an empty text, and nothing is written
 * for it. The one failure is a lack of memory. */
#ifndef VSKCORE_COLLECTORS_CPU_CPU_H
#define VSKCORE_COLLECTORS_CPU_CPU_H

#include <vskcore/vskplugin.h>

#include "cpu/Text.h"

/* ---- CPUs, as the kernel counts them ------------------------------------------------------- */

/* What a CPU's block in cpuinfo may tell. Each architecture has its own keys and leaves out others.
 */
typedef enum EFact {
  kVendor,
  kModelName,
  kFamily,
  kModel,
  kStepping,
  kMicrocode,
  kImplementer,
  kPart,
  kVariant,
  kRevision,
  kFlags,    /* of x86: flags that are missing say no */
  kFeatures, /* of others: no two of them share their words */
  kAddressSizes,
  kPackageId,
  kCoresInPackage,
  kMegahertz,
  kFactCount
} EFact;

/* Which of the two kinds of core of a hybrid processor. */
typedef enum EKind { kOrdinary, kPerformance, kEfficient } EKind;

/* One CPU that is switched on. */
typedef struct TCpu {
  uint32_t number;
  TSpan facts[kFactCount]; /* in the text of cpuinfo */
  uint32_t package;
  TNumber core; /* the lowest number of those that share its core */
  TNumber maxKilohertz;
  TNumber currentKilohertz;
  EKind kind;
} TCpu;

/* Appends the CPUs of a cpuinfo to a list of TCpu, in their order there. The text has to outlive
 * the list. 0 when there is no memory. */
int ParseCpuInfo(const char* text, TList* cpus);
/* Appends those of a list such as "0-3,8" that are not there yet. */
int ParseCpuList(TSpan ranges, TList* cpus);

/* ---- Packages ------------------------------------------------------------------------------ */

/* One processor as it is bought and plugged in. */
typedef struct TPackage {
  uint32_t number;
  char name[256];
  char vendor[128];
  char stepping[64];
  TNumber implementer;
  TNumber family;
  TNumber model;
  TNumber microcode;
  TNumber threads; /* CPUs that are switched on */
  TNumber cores;
  TNumber performanceCores;
  TNumber efficientCores;
  TNumber maxMegahertz;
  TNumber currentMegahertz;
  TNumber dataBits;
  TNumber physicalBits;
  TNumber virtualBits;
  TNumber virtualization; /* 0 or 1 */
  TSpan features;         /* words */
} TPackage;

/* The lowest number of a package that is not below that one. */
TNumber NextPackage(const TList* cpus, uint64_t from);
/* What its CPUs agree on. Where they differ, as the kinds of core in a hybrid processor may, there
 * is no one answer, so it is unknown; the name is that of the first. */
TPackage ParsePackage(const TList* cpus, uint32_t number);
/* Appends the part numbers of the package's cores, a uint16_t each, to the list; none twice. */
int ParseParts(const TList* cpus, uint32_t package, TList* parts);

/* ---- Caches -------------------------------------------------------------------------------- */

/* The files in a cache's folder, as they were read; NULL for one that is missing. */
typedef enum ECacheFile {
  kLevelFile,
  kTypeFile,
  kSharedFile,
  kSizeFile,
  kLineFile,
  kWaysFile,
  kSetsFile,
  kCacheFileCount
} ECacheFile;

typedef enum ECacheType { kInstruction = 2, kData = 3, kUnified = 4 } ECacheType;

typedef struct TCache {
  uint32_t level;
  TNumber type; /* of ECacheType */
  uint32_t
      firstCpu;   /* the lowest of the CPUs that share it; with level and type it tells it apart */
  char* sharedBy; /* their numbers as a list; allocated */
  TNumber sharers;
  TNumber size;
  TNumber lineSize;
  TNumber ways;
  TNumber sets;
} TCache;

/* That a processor reaches a cache. */
typedef struct TCacheLink {
  size_t cache; /* its place in the list */
  uint32_t package;
} TCacheLink;

/* The cache that the CPU of that number sees there, without sharedBy. 0 where the files describe
 * none. */
int ParseCache(char* const files[kCacheFileCount], uint32_t cpu, TCache* cache);
TNumber ParseSize(TSpan span); /* "48K" in bytes */
/* "L1d" for the data cache of level 1, "L2" for a unified one. */
void ParseCacheKind(const TCache* cache, char* buffer, size_t size);

/* ---- The machine --------------------------------------------------------------------------- */

typedef struct TMachine {
  char* cpuInfo;
  TList cpus;   /* of TCpu, ascending by number where the kernel lists them so */
  TList caches; /* of TCache: each once, however many share it */
  TList links;  /* of TCacheLink: each once */
} TMachine;

/* Reads below that folder, "" for this machine itself. The machine is to be freed afterwards, also
 * when there was no memory and the answer is 0. */
int ReadMachine(const char* root, TMachine* machine);
void FreeMachine(TMachine* machine);

/* The whole file as an allocated text. NULL where it can't be read, for lack of memory
 * too. */
char* ReadText(const char* root, const char* path);

/* ---- The core ------------------------------------------------------------------------------ */

/* Where the instances of one class go to. */
typedef struct TTarget {
  vskPluginHandle plugin;
  vskIOHandle* handle;
  const char* className;
} TTarget;

/* What the core refuses is logged and left out, and the rest goes on. */
void WriteProcessors(const TTarget* target, const TMachine* machine);
void WriteCaches(const TTarget* target, const TMachine* machine);
void WriteProcessorCaches(const TTarget* target, const TMachine* machine);

#endif
