/* The one vocabulary of failures, shared by the core, by hosts and by plug-ins in C and C++.
 * Pure C. The numbers never change; new codes would go in front of vskStatusEnd only with a version
 * that may break the contract (see vskVersion.h). */
#ifndef VSKCORE_CORE_VSKSTATUS_H
#define VSKCORE_CORE_VSKSTATUS_H

#include <stdint.h>
#include <vskcore/core/vskExport.h>

#ifdef __cplusplus
extern "C" {
#endif

/* A status code: one of the enumerators below. */
typedef int32_t vskStatus;

enum {
  vskStatusOK = 0,
  vskStatusNotImplemented = 1,
  vskStatusUnknownClass = 2,
  vskStatusFail = 3,
  vskStatusOutOfMemory = 4,
  vskStatusNoMoreItems = 5,
  vskStatusErrorCollectingClass = 6,
  vskStatusInvalidClass = 7,
  vskStatusInvalidProperty = 8,
  vskStatusInvalidSpecificationDocument = 9,
  vskStatusInvalidDataCollectionDocument = 10,
  vskStatusFileSystemError = 11,
  vskStatusDirectoryAlreadyExists = 12,
  vskStatusNotArray = 13,
  vskStatusTypeMismatch = 14,
  vskStatusNotFound = 15,
  vskStatusAlreadyExists = 16,
  vskStatusInvalidOpSequence = 17,
  vskStatusInvalidInstance = 18,
  vskStatusCorruptedContainer = 19,
  vskStatusInvalidPlugin = 20,
  vskStatusInvalidDateTime = 21,
  vskStatusNotAssociation = 22,
  vskStatusNotReference = 23,
  vskStatusInvalidReference = 24,
  vskStatusInvalidCIMName = 25,
  vskStatusFileNotFound = 26,
  vskStatusAccessDenied = 27,
  vskStatusNotOverridable = 28,
  vskStatusInvalidGzipFile = 29,
  vskStatusCorruptGzipFile = 30,
  vskStatusNotSupported = 31,
  vskStatusValueIsNULL = 32,
  vskStatusINETNotFound = 33,
  vskStatusConnectionFailed = 34,
  vskStatusEnd = 35 /* marks the end of the list; never a failure */
};

/* The name of the enumerator, such as "vskStatusFileNotFound"; "vskStatusUnknown" for a number
 * outside 0 to 35. The text is constant and lives as long as the library: do not free it. */
VSK_EXPORT const char* vskTranslateStatusCode(vskStatus status);

#ifdef __cplusplus
}
#endif

#endif
