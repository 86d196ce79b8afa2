#include <vskcore/core/vskStatus.h>

namespace {

const char* const kStatusTexts[] = {
    "vskStatusOK",
    "vskStatusNotImplemented",
    "vskStatusUnknownClass",
    "vskStatusFail",
    "vskStatusOutOfMemory",
    "vskStatusNoMoreItems",
    "vskStatusErrorCollectingClass",
    "vskStatusInvalidClass",
    "vskStatusInvalidProperty",
    "vskStatusInvalidSpecificationDocument",
    "vskStatusInvalidDataCollectionDocument",
    "vskStatusFileSystemError",
    "vskStatusDirectoryAlreadyExists",
    "vskStatusNotArray",
    "vskStatusTypeMismatch",
    "vskStatusNotFound",
    "vskStatusAlreadyExists",
    "vskStatusInvalidOpSequence",
    "vskStatusInvalidInstance",
    "vskStatusCorruptedContainer",
    "vskStatusInvalidPlugin",
    "vskStatusInvalidDateTime",
    "vskStatusNotAssociation",
    "vskStatusNotReference",
    "vskStatusInvalidReference",
    "vskStatusInvalidCIMName",
    "vskStatusFileNotFound",
    "vskStatusAccessDenied",
    "vskStatusNotOverridable",
    "vskStatusInvalidGzipFile",
    "vskStatusCorruptGzipFile",
    "vskStatusNotSupported",
    "vskStatusValueIsNULL",
    "vskStatusINETNotFound",
    "vskStatusConnectionFailed",
    "vskStatusEnd",
};
static_assert(sizeof(kStatusTexts) / sizeof(*kStatusTexts) == vskStatusEnd + 1,
              "one text for each status");

}  // namespace

const char* vskTranslateStatusCode(vskStatus status) {
  // A plug-in's result reaches this unchecked.
  if (status < vskStatusOK || status > vskStatusEnd) return "vskStatusUnknown";
  return kStatusTexts[status];
}
