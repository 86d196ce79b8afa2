// Spells schemas and instances briefly.
#ifndef VSKCORE_TESTS_SUPPORT_TSCHEMA_H
#define VSKCORE_TESTS_SUPPORT_TSCHEMA_H

#include <vskcore/model/TCIMClass.h>
#include <vskcore/model/TCIMInstance.h>
#include <vskcore/model/TCIMProperty.h>
#include <vskcore/model/TCIMPropertyDecl.h>
#include <vskcore/model/TCIMQualifier.h>
#include <vskcore/model/TCIMReference.h>
#include <vskcore/model/TCIMValue.h>
#include <vskcore/model/TContainer.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

class TSchema;

// A class in the making. With speaks of the property before it, and of the class where there is
// none yet:
//
//   TCIMClass& disk = schema.Class("Sample_Disk")
//                         .Key("Id", TCIMValue::TCIMType::cimUint32)
//                         .Property("Size", TCIMValue::TCIMType::cimUint64).With("UNITS", "Bytes")
//                         .Add();
class TClassBuilder {
 public:
  TClassBuilder(TSchema& schema, std::unique_ptr<TCIMClass> cimClass);

  TClassBuilder& Property(const std::string& name, TCIMValue::ECIMType type);
  TClassBuilder& Property(const std::string& name, const TCIMValue& defaultValue);
  TClassBuilder& Key(const std::string& name, TCIMValue::ECIMType type);
  TClassBuilder& Reference(const std::string& name, TCIMClass& target);
  TClassBuilder& With(const std::string& qualifier, const TCIMValue& value = TCIMValue(true));

  // Adds the class to the container.
  TCIMClass& Add();
  // Gives the class as it is, not added.
  std::unique_ptr<TCIMClass> Take();

 private:
  void FinishProperty();

  TSchema& schema_;
  std::unique_ptr<TCIMClass> class_;
  std::unique_ptr<TCIMPropertyDecl> property_;  // the last one, joins when the next begins
};

// Builds in a container of the test's. Failures of the model pass through; nothing leaks.
class TSchema {
 public:
  using TValues = std::vector<std::pair<std::string, TCIMValue>>;

  explicit TSchema(TContainer& container) : container_(container) {}

  TClassBuilder Class(const std::string& name, TCIMClass* superClass = nullptr);

  // Declares a qualifier type. Those that are used without are declared on the way, with the
  // type of the value: KEY and ASSOCIATION go to subclasses and can't be overridden, ABSTRACT stays
  // where it is, all others have both flavors.
  TCIMQualifierDecl& QualifierDecl(const std::string& name, const TCIMValue& value,
                                   TCIMQualifierDecl::EFlavor flavor);
  // Adds a qualifier to a class or a property declaration.
  void Qualify(ICIMAllowQualifiers& holder, const std::string& name,
               const TCIMValue& value = TCIMValue(true));

  // An instance with these values, not added.
  std::unique_ptr<TCIMInstance> Make(TCIMClass& cimClass, const TValues& values);
  TCIMInstance& Add(TCIMClass& cimClass, const TValues& values);
  TCIMReference Path(TCIMClass& cimClass, const TValues& keys);

 private:
  const TCIMQualifierDecl& DeclarationFor(const std::string& name, const TCIMValue& value);

  TContainer& container_;
};

// Adds a heap object of any kind, and destroys it when that fails.
template <typename TElement>
TElement& AddOrDestroy(std::unique_ptr<TElement> element) {
  element->AddToContainer();
  return *element.release();
}

// A NULL reference to that class, as a reference property is declared with.
TCIMValue NullReference(TCIMClass& target);

#endif
