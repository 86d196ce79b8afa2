/* The C interface for collector plug-ins. Strict C99, and C++17 as well; nothing else is needed.
 *
 * Conventions, for every function here:
 *
 * 1. A plug-in is a shared library "<name>.pi.so" in a folder of its own below the core's folder,
 *    with its specification document "<name>.properties.xml" beside it. It fills in a
 *    vskPluginCallbacks and hands it to vskRegisterPlugin while its library is being loaded;
 *    VSK_PLUGIN arranges that. From then on the core calls it through the table.
 * 2. Functions return vskStatusOK (0) or a failure (core/vskStatus.h). A NULL among the pointers is
 *    logged, with the function's name, and gives vskStatusFail. Where a function's comment names
 *    no other status, it gives no other but those of the operation that it stands for.
 * 3. Who makes, deletes: what a ...New... function gives belongs to the plug-in until the matching
 *    ...Delete... . The core copies every text, value, array and reference that it is given, so
 *    they may be changed or freed right after the call. Texts that the core gives belong to the
 *    core and say how long they live.
 * 4. Texts are NUL-terminated bytes, UTF-8 by custom. Booleans are int32_t, 0 is false. Times and
 *    sizes are in the units that the property's declaration says.
 * 5. No exception crosses. Everything runs on the thread of the host's call; nothing here locks.
 */
#ifndef VSKCORE_VSKPLUGIN_H
#define VSKCORE_VSKPLUGIN_H

#include <stdint.h>
#include <vskcore/core/vskExport.h>
#include <vskcore/core/vskLog.h>
#include <vskcore/core/vskStatus.h>

#ifdef __cplusplus
class TCIMDateTime;
class TCIMReference;
class TCIMValue;
extern "C" {
#else
typedef struct TCIMDateTime TCIMDateTime;
typedef struct TCIMReference TCIMReference;
typedef struct TCIMValue TCIMValue;
#endif

/* A growing list of values for an array property. */
typedef struct vskCIMValueArray vskCIMValueArray;

/* Where one query writes to. Valid during that query call only. */
typedef struct vskIOHandle vskIOHandle;

/* ---- Registration ------------------------------------------------------------------------- */

/* What a plug-in tells of itself. The core copies the texts as soon as getInfo has returned; none
 * of them may be NULL. */
typedef struct vskPluginInfo {
  const char* name;     /* stands in log lines and in the qualifier PLUGINNAME */
  const char* version;  /* stands in the qualifier PLUGINVERSION */
  const char* infoText; /* a description for the host; the core does not read it */
  int32_t type;         /* 0: has a document and is queried; 1: has a document; other: neither */
  uint32_t extra;       /* not read by the core */
} vskPluginInfo;

/* The plug-in's functions. The table is copied at registration. In the order in which the core
 * calls them: getInfo at any time from the registration on; initialize once; query up to twice for
 * each collection, first for plain classes, then for associations. A status other than 0 from
 * initialize leaves the plug-in listed but unused; from query it is logged, and the instance that
 * is still open is dropped. finalize and destroy are called only for a host that asks for it. */
typedef struct vskPluginCallbacks {
  void* reserved;                                  /* not read; set it to NULL */
  vskStatus (*initialize)(vskPluginHandle plugin); /* prepare; vskGetPluginPath answers */
  vskStatus (*finalize)(vskPluginHandle plugin);   /* undo initialize */
  /* classNames holds count names of classes that have no instances yet, all of them declared by
   * the plug-in's document; array and texts live as long as the call. */
  vskStatus (*query)(vskPluginHandle plugin, vskIOHandle* handle, const char* const* classNames,
                     int32_t count);
  vskPluginInfo (*getInfo)(vskPluginHandle plugin); /* the same each time */
  vskStatus (*destroy)(vskPluginHandle plugin);     /* the last call */
} vskPluginCallbacks;

#if defined(__GNUC__)
/* VSK_PLUGIN(function) at file level makes the loader call void function(void) when the library is
 * loaded. Put vskRegisterPlugin there. */
#define VSK_PLUGIN(register_function)                                                \
  __attribute__((constructor)) static void vskCallAtLoad_##register_function(void) { \
    register_function();                                                             \
  }                                                                                  \
  struct vskSemicolonFollows_##register_function
#else
#error "VSK_PLUGIN has no form for this compiler yet"
#endif

/* Registers a plug-in; to be called while its library is being loaded. Neither pointer may be
 * NULL. pluginHandle receives the handle, valid as long as the plug-in lives. vskStatusOutOfMemory
 * when there is no room. */
VSK_EXPORT vskStatus vskRegisterPlugin(const vskPluginCallbacks* callbacks,
                                       vskPluginHandle* pluginHandle);

/* The core's C++ object (IPlugin*) of the plug-in, owned by the core. Neither pointer may be NULL.
 */
VSK_EXPORT vskStatus vskGetHandle(vskPluginHandle plugin, void** object);

/* The full path of the plug-in's library: NULL before initialize; from then on valid as long as
 * the plug-in lives. plugin may not be NULL. */
VSK_EXPORT vskStatus vskGetPluginPath(vskPluginHandle plugin, const char** path);

/* ---- The system --------------------------------------------------------------------------- */

/* The class name and the name of the computer system, as collected. The text lives as long as the
 * process. vskStatusNotFound and the like while the data is missing; a later call tries again. */
VSK_EXPORT vskStatus vskGetSystemCreationClassName(const char** name);
VSK_EXPORT vskStatus vskGetSystemName(const char** name);

/* Sets datetime to the present local time. */
VSK_EXPORT vskStatus vskGetLocalTime(TCIMDateTime* datetime);

/* ---- Writing instances -------------------------------------------------------------------- */

/* Opens an instance of that class; the one that was open before is validated and added to its
 * class first, and so is the last one at the end of a query that returns 0. When that fails, its
 * status is returned and it stays open. vskStatusNotFound: no such class; then no instance is open.
 */
VSK_EXPORT vskStatus vskAddClass(vskIOHandle* handle, const char* name);

/* Set a property of the open instance; a property set twice takes the last value.
 * vskStatusInvalidClass: no instance is open. vskStatusNotFound: the class has no such property.
 * vskStatusTypeMismatch: it is declared with another type. vskAddProperty reads the text as the
 * declared type ("010" is 8, as in C; arrays and references have no such form and are refused): the
 * typed functions are safer. vskAddCIMValueProperty and
 * all below refuse a value that has no text, such as a NULL date-time (vskStatusInvalidDateTime).
 * Leave a property alone for NULL. */
VSK_EXPORT vskStatus vskAddProperty(vskIOHandle* handle, const char* name, const char* value);
VSK_EXPORT vskStatus vskAddCIMValueProperty(vskIOHandle* handle, const char* name,
                                            const TCIMValue* value);
VSK_EXPORT vskStatus vskAddBooleanProperty(vskIOHandle* handle, const char* name, int32_t value);
VSK_EXPORT vskStatus vskAddUint8Property(vskIOHandle* handle, const char* name, uint8_t value);
VSK_EXPORT vskStatus vskAddSint8Property(vskIOHandle* handle, const char* name, int8_t value);
VSK_EXPORT vskStatus vskAddUint16Property(vskIOHandle* handle, const char* name, uint16_t value);
VSK_EXPORT vskStatus vskAddSint16Property(vskIOHandle* handle, const char* name, int16_t value);
VSK_EXPORT vskStatus vskAddUint32Property(vskIOHandle* handle, const char* name, uint32_t value);
VSK_EXPORT vskStatus vskAddSint32Property(vskIOHandle* handle, const char* name, int32_t value);
VSK_EXPORT vskStatus vskAddUint64Property(vskIOHandle* handle, const char* name, uint64_t value);
VSK_EXPORT vskStatus vskAddSint64Property(vskIOHandle* handle, const char* name, int64_t value);
VSK_EXPORT vskStatus vskAddStringProperty(vskIOHandle* handle, const char* name, const char* value);
/* vskStatusInvalidProperty: an element is not of the declared type. An empty array is not NULL. */
VSK_EXPORT vskStatus vskAddArrayProperty(vskIOHandle* handle, const char* name,
                                         const vskCIMValueArray* pArray);
VSK_EXPORT vskStatus vskAddReferenceProperty(vskIOHandle* handle, const char* name,
                                             const TCIMReference* pRef);
VSK_EXPORT vskStatus vskAddDateTimeProperty(vskIOHandle* handle, const char* name,
                                            const TCIMDateTime* pDateTime);

/* ---- Date-times --------------------------------------------------------------------------- */

/* A new one is NULL and may be set any number of times. vskStatusOutOfMemory stores NULL. */
VSK_EXPORT vskStatus vskNewCIMDateTime(TCIMDateTime** datetime);
/* A timestamp; month from 1, utcOffset in minutes east of UTC; from 1970 to January 2038.
 * vskStatusInvalidDateTime for all three leaves it as it was. */
VSK_EXPORT vskStatus vskSetDateTime(TCIMDateTime* datetime, uint16_t year, uint16_t month,
                                    uint32_t day, uint16_t hour, uint16_t minute, uint16_t second,
                                    uint32_t microseconds, int16_t utcOffset);
/* An interval. */
VSK_EXPORT vskStatus vskSetDateTimeInterval(TCIMDateTime* datetime, uint32_t days, uint16_t hours,
                                            uint16_t minutes, uint16_t seconds,
                                            uint32_t microseconds);
/* From the 25 characters "yyyymmddHHMMSS.mmmmmm+ooo" or "ddddddddHHMMSS.mmmmmm:000". */
VSK_EXPORT vskStatus vskSetDateTimeString(TCIMDateTime* datetime, const char* str);
/* Ends what vskNewCIMDateTime made. */
VSK_EXPORT vskStatus vskDeleteCIMDateTime(TCIMDateTime* datetime);

/* ---- References --------------------------------------------------------------------------- */

/* In this order: make one, name its class, add its keys, use it, delete it. handle tells where
 * classes are looked up. vskStatusOutOfMemory stores NULL. */
VSK_EXPORT vskStatus vskNewCIMReference(TCIMReference** ref, vskIOHandle* handle);
/* Not offered: vskStatusNotImplemented. */
VSK_EXPORT vskStatus vskSetReferencePath(TCIMReference* ref, const char* objectName);
/* vskStatusNotFound: no such class. vskStatusInvalidOpSequence: keys stand there already. */
VSK_EXPORT vskStatus vskSetReferenceClassName(TCIMReference* ref, const char* className);
/* Ends what vskNewCIMReference made. */
VSK_EXPORT vskStatus vskDeleteCIMReference(TCIMReference* ref);

/* Add a key. Its name is spelled as its declaration spells it, and its type is the declared one
 * (vskStatusTypeMismatch). vskStatusInvalidOpSequence: the class is not named yet.
 * vskStatusNotFound: the class has no such property. A key that stands there keeps its value. */
VSK_EXPORT vskStatus vskReferenceAddBoolean(TCIMReference* ref, const char* key, int32_t value);
VSK_EXPORT vskStatus vskReferenceAddUint8(TCIMReference* ref, const char* key, uint8_t value);
VSK_EXPORT vskStatus vskReferenceAddSint8(TCIMReference* ref, const char* key, int8_t value);
VSK_EXPORT vskStatus vskReferenceAddUint16(TCIMReference* ref, const char* key, uint16_t value);
VSK_EXPORT vskStatus vskReferenceAddSint16(TCIMReference* ref, const char* key, int16_t value);
VSK_EXPORT vskStatus vskReferenceAddUint32(TCIMReference* ref, const char* key, uint32_t value);
VSK_EXPORT vskStatus vskReferenceAddSint32(TCIMReference* ref, const char* key, int32_t value);
VSK_EXPORT vskStatus vskReferenceAddUint64(TCIMReference* ref, const char* key, uint64_t value);
VSK_EXPORT vskStatus vskReferenceAddSint64(TCIMReference* ref, const char* key, int64_t value);
VSK_EXPORT vskStatus vskReferenceAddString(TCIMReference* ref, const char* key, const char* value);
VSK_EXPORT vskStatus vskReferenceAddReference(TCIMReference* ref, const char* key,
                                              const TCIMReference* value);
VSK_EXPORT vskStatus vskReferenceAddDateTime(TCIMReference* ref, const char* key,
                                             const TCIMDateTime* value);

/* ---- Arrays ------------------------------------------------------------------------------- */

/* A new array is empty. vskStatusOutOfMemory stores NULL. */
VSK_EXPORT vskStatus vskNewCIMValueArray(vskCIMValueArray** array);
/* Ends what vskNewCIMValueArray made. */
VSK_EXPORT vskStatus vskDeleteCIMValueArray(vskCIMValueArray* array);

/* Append a copy of the value. The types of the elements are looked at when the array is added to a
 * property. vskStatusInvalidReference: the reference has no class. It and vskStatusOutOfMemory
 * leave the array as it was. */
VSK_EXPORT vskStatus vskArrayAddBoolean(vskCIMValueArray* array, int32_t value);
VSK_EXPORT vskStatus vskArrayAddUint8(vskCIMValueArray* array, uint8_t value);
VSK_EXPORT vskStatus vskArrayAddSint8(vskCIMValueArray* array, int8_t value);
VSK_EXPORT vskStatus vskArrayAddUint16(vskCIMValueArray* array, uint16_t value);
VSK_EXPORT vskStatus vskArrayAddSint16(vskCIMValueArray* array, int16_t value);
VSK_EXPORT vskStatus vskArrayAddUint32(vskCIMValueArray* array, uint32_t value);
VSK_EXPORT vskStatus vskArrayAddSint32(vskCIMValueArray* array, int32_t value);
VSK_EXPORT vskStatus vskArrayAddUint64(vskCIMValueArray* array, uint64_t value);
VSK_EXPORT vskStatus vskArrayAddSint64(vskCIMValueArray* array, int64_t value);
VSK_EXPORT vskStatus vskArrayAddString(vskCIMValueArray* array, const char* value);
VSK_EXPORT vskStatus vskArrayAddReference(vskCIMValueArray* array, const TCIMReference* value);
VSK_EXPORT vskStatus vskArrayAddDateTime(vskCIMValueArray* array, const TCIMDateTime* value);

#ifdef __cplusplus
}
#endif

#endif
