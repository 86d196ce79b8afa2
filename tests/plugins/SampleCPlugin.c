/* A plug-in in C that behaves as it is built to: VSK_TEST_BEHAVIOUR, also its name. What the core
 * calls it tells in the log at level 2, for a test to read. */
#include <stdio.h>
#include <string.h>
#include <vskcore/vskplugin.h>

static vskPluginHandle self;

static int Is(const char* behaviour) { return strcmp(VSK_TEST_BEHAVIOUR, behaviour) == 0; }

static void Tell(const char* what, const char* detail) {
  char text[4096];
  snprintf(text, sizeof text, "%s %s", what, detail == NULL ? "(null)" : detail);
  vskWriteLog(self, 2, text);
}

static vskStatus Initialize(vskPluginHandle plugin) {
  const char* path = NULL;
  vskGetPluginPath(plugin, &path);
  Tell("initialize", path);
  return Is("c_fails_initialize") ? vskStatusAccessDenied : vskStatusOK;
}

static vskStatus Finalize(vskPluginHandle plugin) {
  (void)plugin;
  Tell("finalize", "");
  return vskStatusNoMoreItems;
}

/* One instance with Id 7 for each class; the last stays open. */
static vskStatus Query(vskPluginHandle plugin, vskIOHandle* handle, const char* const* classNames,
                       int32_t count) {
  int32_t i;
  (void)plugin;
  for (i = 0; i < count; ++i) {
    Tell("query", classNames[i]);
    vskAddClass(handle, classNames[i]);
    if (!Is("c_forgets_the_key")) vskAddUint32Property(handle, "Id", 7);
  }
  if (Is("c_fails_query")) return vskStatusNotFound;
  return Is("c_answers_nonsense") ? -123456789 : vskStatusOK;
}

static vskPluginInfo GetInfo(vskPluginHandle plugin) {
  static vskPluginInfo info = {VSK_TEST_BEHAVIOUR, "3.14", "A sample in C", 0, 42};
  (void)plugin;
  return info;
}

static vskStatus Destroy(vskPluginHandle plugin) {
  (void)plugin;
  Tell("destroy", "");
  return Is("c_answers") ? vskStatusOK : vskStatusNotSupported;
}

static void Register(void) {
  const vskPluginCallbacks callbacks = {NULL, Initialize, Finalize, Query, GetInfo, Destroy};
  const char* path = VSK_TEST_BEHAVIOUR;
  if (vskRegisterPlugin(&callbacks, &self) != vskStatusOK) return;
  vskGetPluginPath(self, &path);
  Tell("registered", path);
}
VSK_PLUGIN(Register);
