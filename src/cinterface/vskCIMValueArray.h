// What the opaque array of the C interface holds.
#ifndef VSKCORE_SRC_CINTERFACE_VSKCIMVALUEARRAY_H
#define VSKCORE_SRC_CINTERFACE_VSKCIMVALUEARRAY_H

#include <vskcore/model/TCIMValue.h>

#include <vector>

// Elements in the order of the calls, of any types.
struct vskCIMValueArray {
  std::vector<TCIMValue> elements;
};

#endif
