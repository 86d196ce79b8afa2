/* Which symbols leave the library. Everything is hidden but what carries VSK_EXPORT. */
#ifndef VSKCORE_CORE_VSKEXPORT_H
#define VSKCORE_CORE_VSKEXPORT_H

#if defined(__GNUC__)
/* What hosts and plug-ins may use. */
#define VSK_EXPORT __attribute__((visibility("default")))
/* A member of an exported class that only the library itself calls. */
#define VSK_LOCAL __attribute__((visibility("hidden")))
#else
#define VSK_EXPORT
#define VSK_LOCAL
#endif

#endif
