// One collected object.
#ifndef VSKCORE_MODEL_TCIMINSTANCE_H
#define VSKCORE_MODEL_TCIMINSTANCE_H

#include <vskcore/core/vskExport.h>
#include <vskcore/model/ICIMElement.h>
#include <vskcore/model/TCIMReference.h>

#include <boost/shared_ptr.hpp>
#include <string>
#include <vector>

class TCIMClass;
class TCIMInstanceImpl;
class TCIMProperty;
class TCIMValue;
class TContainer;
namespace vsk::detail {
struct TPeek;
}

// A set of properties, exactly one for each declaration that its class has when it is made, and
// never more or fewer. Known by its address and never copied. The caller owns it until
// AddToContainer succeeds; then its class does, and TCIMClass::RemoveInstance destroys it.
//
//   TCIMInstance& disk = container.AllocateInstance(&container.GetClass("Sample_Disk"));
//   disk.SetPropertyValue("Id", TCIMValue(std::uint32_t{7}));
//   disk.AddToContainer();
//
// Names are taken in any case of letters; one that could not be a CIM name at all throws
// vskStatusInvalidCIMName, from FindProperty as well.
class VSK_EXPORT TCIMInstance : public ICIMElement {
 public:
  // A property named DateTimeOfCollection gets the present local time; declared with another type
  // than datetime it makes the constructor throw vskStatusTypeMismatch. Null throws
  // vskStatusInvalidClass.
  explicit TCIMInstance(TCIMClass* cimClass);
  TCIMInstance(const TCIMInstance&) = delete;
  TCIMInstance& operator=(const TCIMInstance&) = delete;
  ~TCIMInstance() override;

  // Every key must have a value, its own or a default; else logs and throws
  // vskStatusInvalidInstance.
  void Validate() const override;
  // Validates this heap object and appends it to its class, which owns it from then on. Nothing
  // looks for another instance with the same keys. On failure the caller still owns it.
  void AddToContainer() const override;
  TContainer& GetContainer() const override;
  TCIMClass& GetClass() const;  // the one that it was made for

  // Replaces value and declaration of the property of that name. Throws vskStatusNotFound when
  // there is none. The other declaration is borrowed and must outlive this instance.
  void SetProperty(const TCIMProperty& property);
  // Throws vskStatusNotFound for an unknown name, else as TCIMProperty::SetValue.
  void SetPropertyValue(const std::string& name, const TCIMValue& value);
  // Throws vskStatusNotFound when absent. Valid as long as the instance.
  TCIMProperty& GetProperty(const std::string& name) const;
  // Null when absent.
  TCIMProperty* FindProperty(const std::string& name) const;
  // Ascending by lower-cased name.
  std::vector<const TCIMProperty*> EnumerateProperties() const;

  // The class and the keys, NULL keys too, as they are now.
  TCIMReference BuildPath() const;

  // The instances of the associations that TCIMClass::References gives whose reference, under that
  // role (empty: any), resolves to this very instance. A reference whose target isn't there is
  // passed over; any other failure of a look-up is thrown on, vskStatusValueIsNULL of a NULL
  // reference among them.
  std::vector<TCIMInstance*> References(const std::string& resultClass,
                                        const std::string& role) const;
  // The instances at the far ends of those associations. With a resultRole a far end that isn't
  // there throws vskStatusNotFound, without one it is passed over. A reference to a class alone
  // gives nothing. Duplicates stay. Empty for an unknown resultClass.
  std::vector<TCIMInstance*> Associators(const std::string& assocClass,
                                         const std::string& resultClass, const std::string& role,
                                         const std::string& resultRole) const;

  // Same class object and equal properties. The comparison of values may throw.
  bool operator==(const TCIMInstance& other) const;
  // By the address of the class alone: two instances of one class never order.
  bool operator<(const TCIMInstance& other) const;

 private:
  friend class TCIMClassImpl;
  friend class TCIMInstanceImpl;
  friend class TCIMReferenceImpl;
  friend struct vsk::detail::TPeek;

  // Not offered: always throws vskStatusNotImplemented.
  TCIMInstance(TCIMInstance& other, TCIMClass& cimClass);

  boost::shared_ptr<TCIMInstanceImpl> impl_;
};

#endif
