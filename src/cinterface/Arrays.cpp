// Arrays of values, as a C plug-in makes them.
#include <vskcore/model/TCIMDateTime.h>
#include <vskcore/model/TCIMReference.h>
#include <vskcore/vskplugin.h>

#include "cinterface/Border.h"
#include "cinterface/vskCIMValueArray.h"

using vsk::detail::AllGiven;
using vsk::detail::Guarded;

namespace {

template <typename TArgument>
vskStatus Append(const char* function, vskCIMValueArray* array, const TArgument& value) {
  return Guarded(function, [&] { array->elements.emplace_back(value); });
}

template <typename TNumber>
vskStatus AppendNumber(const char* function, vskCIMValueArray* array, TNumber value) {
  if (!AllGiven(nullptr, function, "array", array)) return vskStatusFail;
  return Append(function, array, value);
}

}  // namespace

vskStatus vskNewCIMValueArray(vskCIMValueArray** array) {
  if (!AllGiven(nullptr, __func__, "array", array)) return vskStatusFail;
  return vsk::detail::Create(__func__, array);
}

vskStatus vskDeleteCIMValueArray(vskCIMValueArray* array) {
  if (!AllGiven(nullptr, __func__, "array", array)) return vskStatusFail;
  delete array;
  return vskStatusOK;
}

vskStatus vskArrayAddBoolean(vskCIMValueArray* array, int32_t value) {
  return AppendNumber(__func__, array, value != 0);
}

vskStatus vskArrayAddUint8(vskCIMValueArray* array, uint8_t value) {
  return AppendNumber(__func__, array, value);
}

vskStatus vskArrayAddSint8(vskCIMValueArray* array, int8_t value) {
  return AppendNumber(__func__, array, value);
}

vskStatus vskArrayAddUint16(vskCIMValueArray* array, uint16_t value) {
  return AppendNumber(__func__, array, value);
}

vskStatus vskArrayAddSint16(vskCIMValueArray* array, int16_t value) {
  return AppendNumber(__func__, array, value);
}

vskStatus vskArrayAddUint32(vskCIMValueArray* array, uint32_t value) {
  return AppendNumber(__func__, array, value);
}

vskStatus vskArrayAddSint32(vskCIMValueArray* array, int32_t value) {
  return AppendNumber(__func__, array, value);
}

vskStatus vskArrayAddUint64(vskCIMValueArray* array, uint64_t value) {
  return AppendNumber(__func__, array, value);
}

vskStatus vskArrayAddSint64(vskCIMValueArray* array, int64_t value) {
  return AppendNumber(__func__, array, value);
}

vskStatus vskArrayAddString(vskCIMValueArray* array, const char* value) {
  if (!AllGiven(nullptr, __func__, "array and/or value", array, value)) return vskStatusFail;
  return Append(__func__, array, value);
}

vskStatus vskArrayAddReference(vskCIMValueArray* array, const TCIMReference* value) {
  if (!AllGiven(nullptr, __func__, "array and/or value", array, value)) return vskStatusFail;
  return Append(__func__, array, *value);
}

vskStatus vskArrayAddDateTime(vskCIMValueArray* array, const TCIMDateTime* value) {
  if (!AllGiven(nullptr, __func__, "array and/or value", array, value)) return vskStatusFail;
  return Append(__func__, array, *value);
}
