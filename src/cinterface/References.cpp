// References, as a C plug-in makes them.
#include <vskcore/model/TCIMDateTime.h>
#include <vskcore/model/TCIMReference.h>
#include <vskcore/vskplugin.h>

#include "cinterface/Border.h"
#include "cinterface/vskIOHandle.h"

using vsk::detail::AllGiven;
using vsk::detail::Guarded;

namespace {

template <typename TArgument>
vskStatus AddKey(const char* function, TCIMReference* ref, const char* key,
                 const TArgument& value) {
  return Guarded(function, [&] { ref->AddKeyValue(key, TCIMValue(value)); });
}

template <typename TNumber>
vskStatus AddNumberKey(const char* function, TCIMReference* ref, const char* key, TNumber value) {
  if (!AllGiven(nullptr, function, "ref and/or key", ref, key)) return vskStatusFail;
  return AddKey(function, ref, key, value);
}

}  // namespace

vskStatus vskNewCIMReference(TCIMReference** ref, vskIOHandle* handle) {
  if (!AllGiven(nullptr, __func__, "vskIOHandle", handle)) return vskStatusFail;
  if (!AllGiven(handle->plugin, __func__, "ref", ref)) return vskStatusFail;
  return vsk::detail::Create(__func__, ref, handle->container);
}

vskStatus vskSetReferencePath(TCIMReference* ref, const char* objectName) {
  if (!AllGiven(nullptr, __func__, "ref and/or objectName", ref, objectName)) return vskStatusFail;
  return Guarded(__func__, [&] { ref->SetPath(objectName); });
}

vskStatus vskSetReferenceClassName(TCIMReference* ref, const char* className) {
  if (!AllGiven(nullptr, __func__, "ref and/or className", ref, className)) return vskStatusFail;
  return Guarded(__func__, [&] { ref->SetClassName(className); });
}

vskStatus vskDeleteCIMReference(TCIMReference* ref) {
  if (!AllGiven(nullptr, __func__, "ref", ref)) return vskStatusFail;
  delete ref;
  return vskStatusOK;
}

vskStatus vskReferenceAddBoolean(TCIMReference* ref, const char* key, int32_t value) {
  return AddNumberKey(__func__, ref, key, value != 0);
}

vskStatus vskReferenceAddUint8(TCIMReference* ref, const char* key, uint8_t value) {
  return AddNumberKey(__func__, ref, key, value);
}

vskStatus vskReferenceAddSint8(TCIMReference* ref, const char* key, int8_t value) {
  return AddNumberKey(__func__, ref, key, value);
}

vskStatus vskReferenceAddUint16(TCIMReference* ref, const char* key, uint16_t value) {
  return AddNumberKey(__func__, ref, key, value);
}

vskStatus vskReferenceAddSint16(TCIMReference* ref, const char* key, int16_t value) {
  return AddNumberKey(__func__, ref, key, value);
}

vskStatus vskReferenceAddUint32(TCIMReference* ref, const char* key, uint32_t value) {
  return AddNumberKey(__func__, ref, key, value);
}

vskStatus vskReferenceAddSint32(TCIMReference* ref, const char* key, int32_t value) {
  return AddNumberKey(__func__, ref, key, value);
}

vskStatus vskReferenceAddUint64(TCIMReference* ref, const char* key, uint64_t value) {
  return AddNumberKey(__func__, ref, key, value);
}

vskStatus vskReferenceAddSint64(TCIMReference* ref, const char* key, int64_t value) {
  return AddNumberKey(__func__, ref, key, value);
}

vskStatus vskReferenceAddString(TCIMReference* ref, const char* key, const char* value) {
  if (!AllGiven(nullptr, __func__, "ref, key and/or value", ref, key, value)) return vskStatusFail;
  return AddKey(__func__, ref, key, value);
}

vskStatus vskReferenceAddReference(TCIMReference* ref, const char* key,
                                   const TCIMReference* value) {
  if (!AllGiven(nullptr, __func__, "ref, key and/or value", ref, key, value)) return vskStatusFail;
  return AddKey(__func__, ref, key, *value);
}

vskStatus vskReferenceAddDateTime(TCIMReference* ref, const char* key, const TCIMDateTime* value) {
  if (!AllGiven(nullptr, __func__, "ref, key and/or value", ref, key, value)) return vskStatusFail;
  return AddKey(__func__, ref, key, *value);
}
