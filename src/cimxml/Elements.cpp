#include "cimxml/Elements.h"

#include <array>
#include <cstddef>

namespace vsk::detail {
namespace {

struct TElementName {
  std::string_view name;
  EElement element = EElement::kUnknown;
};

constexpr TElementName kNames[] = {
    {"cim", EElement::kCim},
    {"class", EElement::kClass},
    {"classname", EElement::kClassName},
    {"classpath", EElement::kClassPath},
    {"declaration", EElement::kDeclaration},
    {"declgroup", EElement::kDeclGroup},
    {"declgroup.withname", EElement::kDeclGroupWithName},
    {"declgroup.withpath", EElement::kDeclGroupWithPath},
    {"host", EElement::kHost},
    {"imethodcall", EElement::kIMethodCall},
    {"instance", EElement::kInstance},
    {"instancename", EElement::kInstanceName},
    {"instancepath", EElement::kInstancePath},
    {"iparamvalue", EElement::kIParamValue},
    {"keybinding", EElement::kKeyBinding},
    {"keyvalue", EElement::kKeyValue},
    {"localclasspath", EElement::kLocalClassPath},
    {"localinstancepath", EElement::kLocalInstancePath},
    {"localnamespacepath", EElement::kLocalNamespacePath},
    {"message", EElement::kMessage},
    {"method", EElement::kMethod},
    {"multireq", EElement::kMultiReq},
    {"namespace", EElement::kNamespace},
    {"namespacepath", EElement::kNamespacePath},
    {"property", EElement::kProperty},
    {"property.array", EElement::kPropertyArray},
    {"property.reference", EElement::kPropertyReference},
    {"qualifier", EElement::kQualifier},
    {"qualifier.declaration", EElement::kQualifierDeclaration},
    {"scope", EElement::kScope},
    {"simplereq", EElement::kSimpleReq},
    {"value", EElement::kValue},
    {"value.array", EElement::kValueArray},
    {"value.namedobject", EElement::kValueNamedObject},
    {"value.object", EElement::kValueObject},
    {"value.objectwithlocalpath", EElement::kValueObjectWithLocalPath},
    {"value.objectwithpath", EElement::kValueObjectWithPath},
    {"value.reference", EElement::kValueReference},
};

constexpr std::size_t kSlots = 128;
using TSlots = std::array<TElementName, kSlots>;

// The factors were searched for: with them no two names share a slot.
constexpr std::size_t SlotOf(std::string_view name) {
  const auto first = static_cast<unsigned char>(name.front());
  const auto last = static_cast<unsigned char>(name.back());
  return (name.size() + first * std::size_t{5} + last * std::size_t{19}) % kSlots;
}

constexpr TSlots FillSlots() {
  TSlots slots{};
  for (const TElementName& row : kNames) slots[SlotOf(row.name)] = row;
  return slots;
}

constexpr TSlots kTable = FillSlots();

constexpr bool EveryNameFound() {
  for (const TElementName& row : kNames) {
    if (kTable[SlotOf(row.name)].element != row.element) return false;
  }
  return true;
}
static_assert(EveryNameFound(), "two names share a slot: search for other factors");

}  // namespace

EElement ElementOf(std::string_view name) {
  if (name.empty()) return EElement::kUnknown;
  const TElementName& candidate = kTable[SlotOf(name)];
  return candidate.name == name ? candidate.element : EElement::kUnknown;
}

}  // namespace vsk::detail
