// The one exception of the core.
#ifndef VSKCORE_CORE_TVSKEXCEPTION_H
#define VSKCORE_CORE_TVSKEXCEPTION_H

#include <vskcore/core/vskStatus.h>

#include <exception>

// Carries a status code and nothing else: what more there is to say about a failure stands in the
// log, written by the place that knew it. Thrown by value and copied freely.
//
// Defined wholly here, so that no symbol of it leaves the library and a host or a plug-in can
// throw and catch it as well. Beside it, the core lets only std::bad_alloc and the standard
// length and range errors out.
class TVSKException : public std::exception {
 public:
  // Any number is taken.
  explicit TVSKException(vskStatus code) : status(code) {}

  // The enumerator's name of the status, by vskTranslateStatusCode.
  const char* what() const noexcept override { return vskTranslateStatusCode(status); }

  vskStatus status;  // why it was thrown
};

#endif
