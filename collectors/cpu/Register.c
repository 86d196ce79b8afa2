/* What the core calls. */
#include <stdlib.h>
#include <string.h>

#include "cpu/Cpu.h"

typedef struct TClass {
  const char* name;
  void (*write)(const TTarget* target, const TMachine* machine);
} TClass;

static const TClass kClasses[] = {
    {"ZNTSG_Processor", WriteProcessors},
    {"ZNTSG_CacheMemory", WriteCaches},
    {"ZNTSG_ProcessorCache", WriteProcessorCaches},
};

static vskStatus Succeed(vskPluginHandle plugin) {
  (void)plugin;
  return vskStatusOK;
}

static vskPluginInfo GetInfo(vskPluginHandle plugin) {
  const vskPluginInfo info = {"cpu", "1.0.0", "Processors and their caches", 0, 0};
  (void)plugin;
  return info;
}

static void WriteClass(const TTarget* target, const TMachine* machine) {
  for (size_t i = 0; i < sizeof kClasses / sizeof kClasses[0]; ++i) {
    if (strcmp(target->className, kClasses[i].name) == 0) kClasses[i].write(target, machine);
  }
}

/* A captured machine lies below the folder that VSK_ROOT names. */
static const char* Root(void) {
  const char* root = getenv("VSK_ROOT");
  return root == NULL ? "" : root;
}

/* Called for the associations apart from the rest, and the machine is read anew: nothing has to be
 * kept in between, nor freed when the second call never comes. */
static vskStatus Query(vskPluginHandle plugin, vskIOHandle* handle, const char* const* classNames,
                       int32_t count) {
  TMachine machine;
  const int complete = ReadMachine(Root(), &machine);
  for (int32_t i = 0; complete && i < count; ++i) {
    const TTarget target = {plugin, handle, classNames[i]};
    WriteClass(&target, &machine);
  }
  FreeMachine(&machine);
  return complete ? vskStatusOK : vskStatusOutOfMemory;
}

static void Register(void) {
  static const vskPluginCallbacks kCallbacks = {NULL, Succeed, Succeed, Query, GetInfo, Succeed};
  vskPluginHandle plugin;
  vskRegisterPlugin(&kCallbacks, &plugin);
}
VSK_PLUGIN(Register);
