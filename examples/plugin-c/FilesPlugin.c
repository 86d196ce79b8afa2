/* A plug-in of one class: how many files the system holds open. */
#include <inttypes.h>
#include <stdio.h>
#include <stdlib.h>
#include <vskcore/vskplugin.h>

/* Nothing to prepare, and nothing to take down. */
static vskStatus Nothing(vskPluginHandle plugin) {
  (void)plugin;
  return vskStatusOK;
}

static vskPluginInfo GetInfo(vskPluginHandle plugin) {
  /* Type 0: has a document, and is asked. */
  const vskPluginInfo info = {"files", "1.0.0", "The kernel's table of open files", 0, 0};
  (void)plugin;
  return info;
}

/* Below VSK_ROOT lies a captured machine, for tests. */
static FILE* Open(const char* path) {
  const char* root = getenv("VSK_ROOT");
  char full[1024];
  const int length = snprintf(full, sizeof full, "%s%s", root == NULL ? "" : root, path);
  return length > 0 && (size_t)length < sizeof full ? fopen(full, "r") : NULL;
}

/* The document declares one class, so this is the one that is asked for. */
static vskStatus Query(vskPluginHandle plugin, vskIOHandle* handle, const char* const* classNames,
                       int32_t count) {
  uint64_t used;
  uint64_t limit;
  FILE* file = Open("/proc/sys/fs/file-nr");
  (void)count;
  if (file == NULL) return vskStatusOK; /* nothing to tell is no failure */
  if (fscanf(file, "%" SCNu64 " %*u %" SCNu64, &used, &limit) == 2) {
    vskAddClass(handle, classNames[0]);
    vskAddStringProperty(handle, "InstanceID", "files:0");
    vskAddUint64Property(handle, "Used", used);
    vskAddUint64Property(handle, "Limit", limit);
  } else {
    vskWriteLog(plugin, 1, "/proc/sys/fs/file-nr has another form than it used to have");
  }
  fclose(file);
  return vskStatusOK; /* the core adds the instance, now that it is complete */
}

static void Register(void) {
  const vskPluginCallbacks callbacks = {NULL, Nothing, Nothing, Query, GetInfo, Nothing};
  vskPluginHandle plugin;
  vskRegisterPlugin(&callbacks, &plugin);
}

VSK_PLUGIN(Register);
