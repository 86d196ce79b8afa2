// Makes every failure an equality.
#ifndef VSKCORE_TESTS_SUPPORT_STATUSOF_H
#define VSKCORE_TESTS_SUPPORT_STATUSOF_H

#include <vskcore/core/TVSKException.h>

// The status that body throws; vskStatusOK when it returns. Other exceptions pass.
template <typename TBody>
vskStatus StatusOf(TBody&& body) {
  try {
    body();
  } catch (const TVSKException& exception) {
    return exception.status;
  }
  return vskStatusOK;
}

#endif
