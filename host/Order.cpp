#include "Order.h"

#include <vskcore/model/TCIMClass.h>
#include <vskcore/model/TCIMInstance.h>
#include <vskcore/model/TCIMProperty.h>
#include <vskcore/model/TCIMPropertyDecl.h>
#include <vskcore/model/TCIMQualifier.h>
#include <vskcore/model/TCIMValue.h>

#include <algorithm>
#include <map>
#include <tuple>

namespace {

// Properties from 60000 on are bookkeeping, such as the instance's ID.
constexpr unsigned int kUnordered = 59999;

// A qualifier of another type than expected counts as absent.
template <typename THolder>
std::string TextOf(const THolder& holder, const char* name, const std::string& otherwise) {
  const TCIMQualifier* qualifier = holder.FindQualifier(name);
  if (qualifier == nullptr || qualifier->GetType() != TCIMValue::TCIMType::cimString) {
    return otherwise;
  }
  const TCIMValue value = qualifier->GetValue();
  return value.IsNull() ? otherwise : static_cast<std::string>(value);
}

template <typename THolder>
unsigned int OrderOf(const THolder& holder) {
  const TCIMQualifier* qualifier = holder.FindQualifier("DisplayOrder");
  if (qualifier == nullptr || qualifier->GetType() != TCIMValue::TCIMType::cimUint16) {
    return kUnordered;
  }
  const TCIMValue value = qualifier->GetValue();
  return value.IsNull() ? kUnordered : static_cast<unsigned short>(value);
}

}  // namespace

std::vector<const TCIMClass*> InDisplayOrder(std::vector<const TCIMClass*> classes) {
  std::map<std::string, unsigned int> firstOf;
  for (const TCIMClass* cimClass : classes) {
    const unsigned int order = OrderOf(*cimClass);
    const auto [entry, isNew] = firstOf.emplace(CategoryOf(*cimClass), order);
    if (!isNew) entry->second = std::min(entry->second, order);
  }
  const auto rank = [&](const TCIMClass* cimClass) {
    const std::string category = CategoryOf(*cimClass);
    return std::make_tuple(firstOf[category], category, OrderOf(*cimClass), cimClass->GetName());
  };
  std::sort(classes.begin(), classes.end(), [&](const TCIMClass* left, const TCIMClass* right) {
    return rank(left) < rank(right);
  });
  return classes;
}

std::vector<const TCIMProperty*> InDisplayOrder(const TCIMInstance& instance) {
  std::vector<const TCIMProperty*> properties = instance.EnumerateProperties();
  // They come sorted by name, which a stable sort keeps among equals.
  std::stable_sort(properties.begin(), properties.end(),
                   [](const TCIMProperty* left, const TCIMProperty* right) {
                     return OrderOf(left->GetDeclaration()) < OrderOf(right->GetDeclaration());
                   });
  return properties;
}

std::string CategoryOf(const TCIMClass& cimClass) { return TextOf(cimClass, "Category", "Other"); }

std::string TitleOf(const TCIMClass& cimClass) {
  return TextOf(cimClass, "DisplayName", cimClass.GetName());
}

std::string LabelOf(const TCIMPropertyDecl& declaration) {
  return TextOf(declaration, "DisplayName", declaration.GetName());
}
