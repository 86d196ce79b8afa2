/* The log, as a C program reaches it. Pure C. */
#ifndef VSKCORE_CORE_VSKLOG_H
#define VSKCORE_CORE_VSKLOG_H

#include <stdint.h>
#include <vskcore/core/vskExport.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Names a registered plug-in. Valid from the registration on, as long as the plug-in lives. */
typedef struct vskPlugin* vskPluginHandle;

/* Writes one message to the core's log: a line "VSK_<name>: [<level>] <text>" on standard error
 * when the level passes the threshold, and a record that the host can read.
 *
 * handle: the plug-in that speaks, or NULL for none ("Core").
 * level:  0 error, 1 warning, 2 status, 3 debug, 4 verbose, 100 record only. No other number.
 * text:   the message, without a line feed. NULL logs "vskWriteLog: NULL text parameter" instead.
 *
 * It cannot report a failure and never throws. */
VSK_EXPORT void vskWriteLog(vskPluginHandle handle, int32_t level, const char* text);

#ifdef __cplusplus
}
#endif

#endif
