// One class of the schema.
#ifndef VSKCORE_MODEL_TCIMCLASS_H
#define VSKCORE_MODEL_TCIMCLASS_H

#include <vskcore/core/vskExport.h>
#include <vskcore/model/ICIMAllowQualifiers.h>
#include <vskcore/model/ICIMElement.h>

#include <boost/shared_ptr.hpp>
#include <string>
#include <vector>

class TCIMClassImpl;
class TCIMInstance;
class TCIMPropertyDecl;
class TCIMQualifier;
class TCIMReference;
class TContainer;

// Its name, its place among the classes, its qualifiers, what its instances may carry, and the
// instances themselves. Known by its address and never copied. It belongs to whoever allocated it
// until AddToContainer succeeds, then to the container. Pointers that it hands out are valid while
// the container lives and the thing pointed at is not removed.
//
// Inheritance is by snapshot: a subclass takes over its superclass's property declarations
// (shared) and those qualifiers that go to subclasses (copied) when it is constructed. What the
// superclass gets later does not arrive, so complete a class before deriving from it.
//
// All names are taken in any case of letters; one that could not be a CIM name at all throws
// vskStatusInvalidCIMName, after a line in the log, from Find... as well. Nothing here locks: one
// thread at a time per container.
class VSK_EXPORT TCIMClass : public ICIMElement, public ICIMAllowQualifiers {
 public:
  // Builds a class for that container without adding it; the name is checked when it joins. Null
  // stands for no superclass. Usually reached through TContainer::AllocateClass.
  TCIMClass(TContainer& container, std::string name, TCIMClass* superClass);
  TCIMClass(const TCIMClass&) = delete;
  TCIMClass& operator=(const TCIMClass&) = delete;
  ~TCIMClass() override;

  // An abstract class passes; any other needs a property, own or inherited, whose KEY qualifier is
  // true. Else logs and throws vskStatusInvalidClass. KEY, ABSTRACT or
  // ASSOCIATION of another type than boolean throw vskStatusTypeMismatch, here and in
  // AddToContainer.
  void Validate() const override;
  // Validates this heap object, enters it in its container, which owns it on success, and links it
  // to its superclass. Throws vskStatusInvalidClass, vskStatusInvalidCIMName, and
  // vskStatusAlreadyExists (logged at level 3); on failure nothing has changed.
  void AddToContainer() const override;
  TContainer& GetContainer() const override;

  const std::string& GetName() const;  // as it was given, in its case of letters
  // True for a class without a superclass in the schema; false for the container's hidden root.
  bool IsRootClass() const;
  // The container's root class where the schema names none. Throws vskStatusNotFound on the root
  // class itself.
  TCIMClass& GetSuperClass() const;
  // The qualifiers ASSOCIATION and ABSTRACT, true. One that holds no boolean throws
  // vskStatusTypeMismatch.
  bool IsAssociation() const;
  bool IsAbstract() const;
  // A class counts as a subclass of itself, and every class as one of the root class. False for
  // null.
  bool IsSubclassOf(const TCIMClass* other) const;
  // Direct subclasses in the order in which they joined the container; deep: each followed at once
  // by its own.
  const std::vector<TCIMClass*> EnumerateSubClasses(bool deep) const;

  void AddQualifier(TCIMQualifier& qualifier) override;
  const TCIMQualifier& GetQualifier(const std::string& name) const override;
  // Null when absent.
  const TCIMQualifier* FindQualifier(const std::string& name) const;
  std::vector<const TCIMQualifier*> EnumerateQualifiers() const override;
  void RemoveQualifier(TCIMQualifier& qualifier) override;

  // The declaration of that name, own or inherited. Throws vskStatusNotFound when absent.
  const TCIMPropertyDecl& GetPropertyDecl(const std::string& name) const;
  // Null when absent.
  const TCIMPropertyDecl* FindPropertyDecl(const std::string& name) const;
  // Drops what stands under the argument's name from this class alone; instances made before keep
  // it. Throws vskStatusNotFound when absent.
  void RemovePropertyDecl(TCIMPropertyDecl& declaration);
  // Own and inherited ones, ascending by lower-cased name.
  std::vector<const TCIMPropertyDecl*> EnumeratePropertyDecls() const;
  // The names, as declared, of the properties whose KEY is true, in that same order.
  std::vector<std::string> EnumerateKeyNames() const;

  // Destroys the instance, whether or not it has joined this class. References that had found it
  // look again.
  void RemoveInstance(TCIMInstance& instance);
  // The first of this class's own instances whose path equals the reference; subclasses are not
  // searched. Throws vskStatusNotFound when absent.
  TCIMInstance& GetInstance(const TCIMReference& reference) const;
  // Null when absent.
  TCIMInstance* FindInstance(const TCIMReference& reference) const;
  // Own instances in the order in which they joined; deep: followed by those of each direct
  // subclass in turn.
  std::vector<TCIMInstance*> EnumerateInstances(bool deep) const;

  // The association classes that refer to this class or to one of its superclasses, nearest first,
  // by name at each. They derive from resultClass (empty: any), and under the property named role
  // (empty: any) they refer to this very class, not to a superclass. An association with this class
  // at both ends is not among them. Empty for an unknown class; throws vskStatusInvalidCIMName for
  // a bad name.
  std::vector<TCIMClass*> References(const std::string& resultClass, const std::string& role) const;
  // The classes at the far ends of those associations, as declared there: of associations that
  // derive from assocClass, ends that derive from resultClass, this class in role, the other in
  // resultRole; empty names stand for any. Duplicates stay. Fails likewise.
  std::vector<TCIMClass*> Associators(const std::string& assocClass, const std::string& resultClass,
                                      const std::string& role, const std::string& resultRole) const;

  // The names, compared exactly: case counts here, though the container ignores it.
  bool operator==(const TCIMClass& other) const;
  bool operator<(const TCIMClass& other) const;

 private:
  friend class TCIMClassImpl;
  friend class TCIMInstanceImpl;
  friend class TCIMPropertyDeclImpl;
  friend class TContainerImpl;

  VSK_LOCAL void AddPropertyDecl(TCIMPropertyDecl& declaration);
  VSK_LOCAL void AddInstance(TCIMInstance& instance);

  boost::shared_ptr<TCIMClassImpl> impl_;
};

#endif
