// What carries qualifiers: a class or a property declaration.
#ifndef VSKCORE_MODEL_ICIMALLOWQUALIFIERS_H
#define VSKCORE_MODEL_ICIMALLOWQUALIFIERS_H

#include <vskcore/core/vskExport.h>

#include <string>
#include <vector>

class TCIMQualifier;

// Implemented by TCIMClass and TCIMPropertyDecl. Names are taken in any case of letters; one that
// could not be a CIM name at all throws vskStatusInvalidCIMName, after a line in the log. The
// order of the virtual operations is part of the contract.
class VSK_EXPORT ICIMAllowQualifiers {
 public:
  ICIMAllowQualifiers();
  virtual ~ICIMAllowQualifiers();

  // Adds a heap object, new for old. Where a qualifier of that name stands already:
  // - it is overridable: it is destroyed and the new one takes its place;
  // - it is not, and value and flavor are equal: nothing happens, and the new one stays with the
  //   caller;
  // - it is not, and one of them differs: throws vskStatusNotOverridable, likewise.
  // Else the holder owns it from here on. Comparing two array values throws
  // vskStatusNotImplemented. To know who owns it afterwards, see whether GetQualifier gives it.
  virtual void AddQualifier(TCIMQualifier& qualifier) = 0;
  // Throws vskStatusNotFound when absent. Valid until that qualifier is replaced or removed.
  virtual const TCIMQualifier& GetQualifier(const std::string& name) const = 0;
  // All of them, ascending by lower-cased name.
  virtual std::vector<const TCIMQualifier*> EnumerateQualifiers() const = 0;
  // Destroys what stands under the argument's name, which need not be the argument. Throws
  // vskStatusNotFound when absent.
  virtual void RemoveQualifier(TCIMQualifier& qualifier) = 0;
};

#endif
