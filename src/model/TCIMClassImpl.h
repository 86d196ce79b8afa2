// What stands behind a TCIMClass.
#ifndef VSKCORE_SRC_MODEL_TCIMCLASSIMPL_H
#define VSKCORE_SRC_MODEL_TCIMCLASSIMPL_H

#include <boost/shared_ptr.hpp>
#include <string>
#include <vector>

#include "model/TAssociationSet.h"
#include "model/TCIMElementImpl.h"
#include "model/TInstanceList.h"
#include "model/TPropertyLayout.h"
#include "model/TPropertyTable.h"
#include "model/TQualifierTable.h"

class TCIMClass;
class TCIMInstance;
class TCIMInstanceImpl;
class TCIMPropertyDecl;
class TCIMReference;
class TContainer;

// Links to other classes are the addresses of their handles and own nothing. An added class stands
// in its superclass's list of subclasses, and takes itself out when it is destroyed, unless the
// whole container goes: the superclass may have gone before it then.
class TCIMClassImpl final : public TCIMElementImpl {
 public:
  TCIMClassImpl(TCIMClass& owner, TContainer& container, std::string name, TCIMClass* superClass);
  TCIMClassImpl(const TCIMClassImpl&) = delete;
  TCIMClassImpl& operator=(const TCIMClassImpl&) = delete;
  ~TCIMClassImpl() override;

  void Validate() const override;
  void AddToContainer();
  TContainer& GetContainer() const override { return container_; }

  const std::string& GetName() const { return name_; }
  bool IsRootClass() const;
  TCIMClass& GetSuperClass() const;
  bool IsAssociation() const;
  bool IsAbstract() const;
  bool IsSubclassOf(const TCIMClass* other) const;
  std::vector<TCIMClass*> EnumerateSubClasses(bool deep) const;

  vsk::detail::TQualifierTable& Qualifiers() { return qualifiers_; }

  void AddPropertyDecl(TCIMPropertyDecl& declaration);
  void RemovePropertyDecl(const TCIMPropertyDecl& declaration);
  const vsk::detail::TPropertyTable& Properties() const { return *properties_; }
  std::vector<std::string> EnumerateKeyNames() const;
  // What instances made now carry.
  boost::shared_ptr<const vsk::detail::TPropertyLayout> Layout();

  void AddInstance(TCIMInstance& instance);
  void RemoveInstance(TCIMInstance& instance);
  TCIMInstance* FindInstance(const TCIMReference& reference) const;
  // A watched property of the instance is about to change.
  void InstanceChanges(const TCIMInstanceImpl& instance) noexcept;
  std::vector<TCIMInstance*> EnumerateInstances(bool deep) const;

  std::vector<TCIMClass*> References(const std::string& resultClass, const std::string& role) const;
  std::vector<TCIMClass*> Associators(const std::string& assocClass, const std::string& resultClass,
                                      const std::string& role, const std::string& resultRole) const;
  // Of the instances of this association all that may refer to the target, in the order of the
  // list. The look at any other would neither find it nor fail.
  std::vector<TCIMInstance*> EnumerateReferrers(const TCIMInstance& target) const;

 private:
  void MakeRoomForSubClass();  // so that appending one can't fail
  void RemoveSubClass(const TCIMClass& subClass);
  // Whether the declaration may take the place of what is present under its name, null for nothing.
  void CheckOverride(const TCIMPropertyDecl& declaration, const TCIMPropertyDecl* present) const;
  // The table for a change: this class's own from here on.
  vsk::detail::TPropertyTable& OwnProperties();

  // Where this class registers, being an association.
  std::vector<TCIMClass*> AssociationEnds() const;
  // Calls visit(association) for what is registered at this class and, walking up, at its
  // superclasses, as far as it derives from associationClass (null: nothing does).
  template <typename TVisit>
  void VisitAssociations(const TCIMClass* associationClass, TVisit&& visit) const;
  // Whether the look-up in each of these fails for no reference whose comparison can't.
  static bool FindSurely(const std::vector<TCIMClass*>& classes);
  // All ends of the association but this class's own, as far as they derive from result.
  void AppendFarEnds(const TCIMClass& association, const TCIMClass& result,
                     const std::string& roleKey, std::vector<TCIMClass*>& all) const;

  TCIMClass& owner_;
  TContainer& container_;
  std::string name_;
  TCIMClass* superClass_;  // null for the root class alone
  vsk::detail::TQualifierTable qualifiers_;
  // The superclass's until this class makes its first change: a subclass costs a pointer. Whoever
  // changes a table that others hold makes its own copy first, the superclass too.
  boost::shared_ptr<vsk::detail::TPropertyTable> properties_;
  boost::shared_ptr<const vsk::detail::TPropertyLayout> layout_;  // null until asked for
  std::vector<TCIMClass*> subClasses_;  // in the order in which they joined
  vsk::detail::TAssociationSet associations_;
  mutable vsk::detail::TInstanceList instances_;  // a look-up brings its index up
  bool inContainer_ = false;
};

#endif
