// The typed functions of the C interface: a row for each CIM type, references aside.
#ifndef VSKCORE_TESTS_CINTERFACE_TTYPEDROW_H
#define VSKCORE_TESTS_CINTERFACE_TTYPEDROW_H

#include <vskcore/model/TCIMDateTime.h>
#include <vskcore/model/TCIMValue.h>
#include <vskcore/vskplugin.h>

#include <functional>
#include <string>
#include <type_traits>
#include <vector>

// What each function of the row is called with is one good value of its type.
struct TTypedRow {
  std::string type;       // as the functions spell it: "Uint8"
  std::string stored;     // the value as text
  std::string refusedBy;  // another type
  std::function<vskStatus(vskIOHandle*, const char* name)> addProperty;
  std::function<vskStatus(TCIMReference*, const char* key)> addKey;
  std::function<vskStatus(vskCIMValueArray*)> append;
};

// The CIM type that a C function names: "DateTime" is "datetime".
inline std::string CIMName(std::string type) {
  for (char& letter : type) letter = static_cast<char>(letter | 0x20);
  return type;
}
inline TCIMValue::ECIMType CIMType(const std::string& type) {
  return TCIMValue::TCIMType(CIMName(type));
}

template <typename TArgument>
TTypedRow TypedRow(const char* type, vskStatus (*addProperty)(vskIOHandle*, const char*, TArgument),
                   vskStatus (*addKey)(TCIMReference*, const char*, TArgument),
                   vskStatus (*append)(vskCIMValueArray*, TArgument),
                   std::common_type_t<TArgument> value, const char* stored, const char* refusedBy) {
  return {type,
          stored,
          refusedBy,
          [=](vskIOHandle* handle, const char* name) { return addProperty(handle, name, value); },
          [=](TCIMReference* ref, const char* key) { return addKey(ref, key, value); },
          [=](vskCIMValueArray* array) { return append(array, value); }};
}

// The text is longer than what a string keeps in itself.
inline const std::vector<TTypedRow>& TypedRows() {
  static const TCIMDateTime kInterval(3, 12, 34, 56, 789);
  static const char* const kText = "a text that needs a place of its own";
  static const std::vector<TTypedRow> kRows = {
      TypedRow("Boolean", vskAddBooleanProperty, vskReferenceAddBoolean, vskArrayAddBoolean, 1,
               "true", "Sint8"),
      TypedRow("Uint8", vskAddUint8Property, vskReferenceAddUint8, vskArrayAddUint8, 200, "200",
               "Uint16"),
      TypedRow("Sint8", vskAddSint8Property, vskReferenceAddSint8, vskArrayAddSint8, -100, "-100",
               "Sint16"),
      TypedRow("Uint16", vskAddUint16Property, vskReferenceAddUint16, vskArrayAddUint16, 60001,
               "60001", "Uint32"),
      TypedRow("Sint16", vskAddSint16Property, vskReferenceAddSint16, vskArrayAddSint16, -30001,
               "-30001", "Sint32"),
      TypedRow("Uint32", vskAddUint32Property, vskReferenceAddUint32, vskArrayAddUint32,
               4000000001U, "4000000001", "Uint64"),
      TypedRow("Sint32", vskAddSint32Property, vskReferenceAddSint32, vskArrayAddSint32,
               -2000000001, "-2000000001", "Sint64"),
      TypedRow("Uint64", vskAddUint64Property, vskReferenceAddUint64, vskArrayAddUint64,
               18000000000000000001U, "18000000000000000001", "Boolean"),
      TypedRow("Sint64", vskAddSint64Property, vskReferenceAddSint64, vskArrayAddSint64,
               -9000000000000000001, "-9000000000000000001", "Uint8"),
      TypedRow("String", vskAddStringProperty, vskReferenceAddString, vskArrayAddString, kText,
               kText, "Uint8"),
      TypedRow("DateTime", vskAddDateTimeProperty, vskReferenceAddDateTime, vskArrayAddDateTime,
               &kInterval, "00000003123456.000789:000", "String"),
  };
  return kRows;
}

#endif
