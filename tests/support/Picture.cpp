#include "support/Picture.h"

#include <vskcore/model/TCIMClass.h>
#include <vskcore/model/TCIMInstance.h>
#include <vskcore/model/TCIMProperty.h>
#include <vskcore/model/TCIMPropertyDecl.h>
#include <vskcore/model/TCIMQualifier.h>
#include <vskcore/model/TCIMReference.h>
#include <vskcore/model/TCIMValue.h>
#include <vskcore/model/TContainer.h>

#include <vector>

#include "model/TypeName.h"

namespace {

// Items as text with separators between them.
template <typename TItems, typename TPrint>
std::string Join(const TItems& items, const char* separator, const TPrint& print) {
  std::string joined;
  for (const auto& item : items) {
    if (!joined.empty()) joined += separator;
    joined += print(item);
  }
  return joined;
}

std::string PictureOf(const TCIMReference& reference) {
  if (reference.FindClass() == nullptr) return "<>";
  const TCIMReference::TKeyBindings bindings = reference.EnumerateKeyBindings();
  const std::string keys = Join(bindings, ",", [](const auto& binding) {
    return binding.first + "=" + Picture(binding.second);
  });
  return "<" + reference.GetClassName() + (keys.empty() ? "" : ".") + keys + ">";
}

std::string TypeOf(const TCIMValue& value) {
  const char* const name = vsk::detail::FindTypeName(value.GetType());
  std::string text = name == nullptr ? "none" : name;
  if (value.IsArray()) text += "[]";
  const TCIMClass* referenced = value.FindReferencedClass();
  if (value.IsReference() && referenced != nullptr) text += " " + referenced->GetName();
  return text;
}

template <typename THolder>
std::string QualifiersOf(const THolder& holder) {
  const std::string all =
      Join(holder.EnumerateQualifiers(), ", ", [](const TCIMQualifier* qualifier) {
        return (qualifier->GetPropagated() ? "^" : "") + qualifier->GetName() + "=" +
               Picture(qualifier->GetValue());
      });
  return all.empty() ? "" : " [" + all + "]";
}

std::string PictureOf(const TCIMPropertyDecl& declaration, const TCIMClass& holder) {
  const bool inherited = &declaration.GetClass() != &holder;
  const TCIMValue& value = declaration.GetValue();
  return (inherited ? declaration.GetClass().GetName() + "." : "") + declaration.GetName() + " " +
         TypeOf(value) + QualifiersOf(declaration) + (value.IsNull() ? "" : " = " + Picture(value));
}

}  // namespace

std::string Picture(const TCIMValue& value) {
  if (value.IsNull()) return "NULL";
  if (value.IsArray()) {
    const std::vector<TCIMValue>& elements = value;
    return "{" + Join(elements, ", ", [](const TCIMValue& element) { return Picture(element); }) +
           "}";
  }
  if (value.IsReference()) {
    const TCIMReference reference = value;
    return PictureOf(reference);
  }
  const bool isText = value.GetType() == TCIMValue::TCIMType::cimString;
  return isText ? "\"" + value.ToString(10) + "\"" : value.ToString(10);
}

std::string Picture(const TCIMClass& cimClass) {
  const std::string properties =
      Join(cimClass.EnumeratePropertyDecls(), "; ",
           [&](const TCIMPropertyDecl* declaration) { return PictureOf(*declaration, cimClass); });
  const bool isTop = cimClass.IsRootClass() || &cimClass == &cimClass.GetContainer().GetRootClass();
  return cimClass.GetName() + (isTop ? "" : " : " + cimClass.GetSuperClass().GetName()) +
         QualifiersOf(cimClass) + (properties.empty() ? " {}" : " { " + properties + " }");
}

std::string Picture(const TCIMInstance& instance) {
  return instance.GetClass().GetName() + "{" +
         Join(instance.EnumerateProperties(), ", ",
              [](const TCIMProperty* property) {
                return property->GetName() + (property->GetPropagated() ? "~" : "=") +
                       Picture(property->GetValue());
              }) +
         "}";
}

std::string Picture(const TContainer& container) {
  std::string picture;
  for (const TCIMQualifierDecl* declaration : container.EnumerateQualifiers()) {
    picture += declaration->GetName() + " " + TypeOf(declaration->GetValue()) + "; ";
  }
  for (const TCIMClass* cimClass : container.GetRootClass().EnumerateSubClasses(true)) {
    picture += Picture(*cimClass) + "; ";
  }
  for (const TCIMInstance* instance : container.GetRootClass().EnumerateInstances(true)) {
    picture += Picture(*instance) + "; ";
  }
  return picture;
}
