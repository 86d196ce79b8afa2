#include "support/TSchema.h"

namespace {

using TType = TCIMValue::TCIMType;

TCIMQualifierDecl::EFlavor UsualFlavor(const std::string& name) {
  if (name == "KEY" || name == "ASSOCIATION") return TCIMQualifierDecl::flavorToSubclass;
  if (name == "ABSTRACT") return TCIMQualifierDecl::flavorNone;
  return TCIMQualifierDecl::flavorOverridable | TCIMQualifierDecl::flavorToSubclass;
}

}  // namespace

TClassBuilder::TClassBuilder(TSchema& schema, std::unique_ptr<TCIMClass> cimClass)
    : schema_(schema), class_(std::move(cimClass)) {}

TClassBuilder& TClassBuilder::Property(const std::string& name, TCIMValue::ECIMType type) {
  TCIMValue null;
  null.SetNullValue(type, 0);
  return Property(name, null);
}

TClassBuilder& TClassBuilder::Property(const std::string& name, const TCIMValue& defaultValue) {
  FinishProperty();
  property_ = std::make_unique<TCIMPropertyDecl>(name, *class_, defaultValue);
  return *this;
}

TClassBuilder& TClassBuilder::Key(const std::string& name, TCIMValue::ECIMType type) {
  return Property(name, type).With("KEY");
}

TClassBuilder& TClassBuilder::Reference(const std::string& name, TCIMClass& target) {
  return Property(name, NullReference(target));
}

TClassBuilder& TClassBuilder::With(const std::string& qualifier, const TCIMValue& value) {
  if (property_) {
    schema_.Qualify(*property_, qualifier, value);
  } else {
    schema_.Qualify(*class_, qualifier, value);
  }
  return *this;
}

TCIMClass& TClassBuilder::Add() { return AddOrDestroy(Take()); }

std::unique_ptr<TCIMClass> TClassBuilder::Take() {
  FinishProperty();
  return std::move(class_);
}

void TClassBuilder::FinishProperty() {
  if (property_) AddOrDestroy(std::move(property_));
}

TClassBuilder TSchema::Class(const std::string& name, TCIMClass* superClass) {
  return TClassBuilder(*this,
                       std::unique_ptr<TCIMClass>(&container_.AllocateClass(name, superClass)));
}

TCIMQualifierDecl& TSchema::QualifierDecl(const std::string& name, const TCIMValue& value,
                                          TCIMQualifierDecl::EFlavor flavor) {
  TCIMQualifierDecl& declaration =
      container_.AllocateQualifierDecl(name, value, TCIMQualifierDecl::scopeNone, flavor);
  declaration.AddToContainer();
  return declaration;
}

void TSchema::Qualify(ICIMAllowQualifiers& holder, const std::string& name,
                      const TCIMValue& value) {
  auto qualifier = std::make_unique<TCIMQualifier>(DeclarationFor(name, value), value);
  holder.AddQualifier(*qualifier);
  // A mere repeat stays ours.
  if (&holder.GetQualifier(name) == qualifier.get()) qualifier.release();
}

const TCIMQualifierDecl& TSchema::DeclarationFor(const std::string& name, const TCIMValue& value) {
  const TCIMQualifierDecl* found = container_.FindQualifierDecl(name);
  return found != nullptr ? *found : QualifierDecl(name, value, UsualFlavor(name));
}

std::unique_ptr<TCIMInstance> TSchema::Make(TCIMClass& cimClass, const TValues& values) {
  std::unique_ptr<TCIMInstance> instance(&container_.AllocateInstance(&cimClass));
  for (const auto& [name, value] : values) instance->SetPropertyValue(name, value);
  return instance;
}

TCIMInstance& TSchema::Add(TCIMClass& cimClass, const TValues& values) {
  return AddOrDestroy(Make(cimClass, values));
}

TCIMReference TSchema::Path(TCIMClass& cimClass, const TValues& keys) {
  TCIMReference path(&container_);
  path.SetClass(cimClass);
  for (const auto& [name, value] : keys) path.AddKeyValue(name, value);
  return path;
}

TCIMValue NullReference(TCIMClass& target) {
  TCIMValue null(TType(TType::cimReference), 0);
  null.SetReferencedClass(target);
  return null;
}
