#include "JsonReport.h"

#include <vskcore/model/TCIMClass.h>
#include <vskcore/model/TCIMDateTime.h>
#include <vskcore/model/TCIMInstance.h>
#include <vskcore/model/TCIMProperty.h>
#include <vskcore/model/TCIMReference.h>
#include <vskcore/model/TCIMValue.h>

#include <charconv>
#include <exception>
#include <nlohmann/json.hpp>

#include "Order.h"

namespace {

// Keeps the order in which members are added.
using TJson = nlohmann::ordered_json;

// The number that prints as the float does: 0.1f is 0.1 and not 0.10000000149011612.
double Widen(float narrow) {
  char text[64];
  const std::to_chars_result written = std::to_chars(text, text + sizeof text, narrow);
  auto wide = static_cast<double>(narrow);
  std::from_chars(text, written.ptr, wide);
  return wide;
}

TJson JsonOf(const TCIMValue& value);

TJson ArrayOf(const TCIMValue& value) {
  TJson array = TJson::array();
  for (const TCIMValue& element : static_cast<std::vector<TCIMValue>&>(value)) {
    array.push_back(JsonOf(element));
  }
  return array;
}

TJson ScalarOf(const TCIMValue& value) {
  using TType = TCIMValue::TCIMType;
  switch (static_cast<TCIMValue::ECIMType>(value.GetType())) {
    case TType::cimBoolean:
      return static_cast<bool>(value);
    case TType::cimUint8:
      return static_cast<unsigned char>(value);
    case TType::cimSint8:
      return static_cast<signed char>(value);
    case TType::cimUint16:
      return static_cast<unsigned short>(value);
    case TType::cimSint16:
      return static_cast<short>(value);
    case TType::cimUint32:
      return static_cast<unsigned int>(value);
    case TType::cimSint32:
      return static_cast<int>(value);
    case TType::cimUint64:
      return static_cast<std::uint64_t>(value);
    case TType::cimSint64:
      return static_cast<std::int64_t>(value);
    case TType::cimReal32:
      return Widen(static_cast<float>(value));
    case TType::cimReal64:
      return static_cast<double>(value);
    case TType::cimReference:
      return static_cast<TCIMReference>(value).GetPath();
    default:
      return value.ToString(10);
  }
}

TJson JsonOf(const TCIMValue& value) {
  if (value.IsNull()) return nullptr;
  return value.IsArray() ? ArrayOf(value) : ScalarOf(value);
}

TJson JsonOrNull(const TCIMProperty& property) {
  try {
    return JsonOf(property.GetValue());
  } catch (const std::exception&) {
    return nullptr;
  }
}

TJson JsonOf(const TCIMInstance& instance) {
  TJson object = TJson::object();
  for (const TCIMProperty* property : InDisplayOrder(instance)) {
    object[property->GetName()] = JsonOrNull(*property);
  }
  return object;
}

}  // namespace

std::string JsonReport(const std::vector<const TCIMClass*>& classes) {
  TJson report = TJson::object();
  for (const TCIMClass* cimClass : classes) {
    TJson instances = TJson::array();
    for (const TCIMInstance* instance : cimClass->EnumerateInstances(false)) {
      instances.push_back(JsonOf(*instance));
    }
    report[cimClass->GetName()] = std::move(instances);
  }
  // Bytes that are no UTF-8 become U+FFFD rather than a failure.
  return report.dump(2, ' ', false, TJson::error_handler_t::replace) + '\n';
}
