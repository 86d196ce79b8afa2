// What stands behind a TContainer.
#ifndef VSKCORE_SRC_MODEL_TCONTAINERIMPL_H
#define VSKCORE_SRC_MODEL_TCONTAINERIMPL_H

#include <vskcore/model/TCIMQualifierDecl.h>

#include <string>
#include <vector>

#include "model/TDependentSearch.h"
#include "model/TNameTable.h"

class TCIMClass;
class TCIMInstance;
class TContainer;

// Classes are destroyed in the order of their names, whatever their inheritance, so each asks
// IsClosing before it touches its superclass on its way out.
class TContainerImpl {
 public:
  explicit TContainerImpl(TContainer& owner) : owner_(owner) {}
  TContainerImpl(const TContainerImpl&) = delete;
  TContainerImpl& operator=(const TContainerImpl&) = delete;
  ~TContainerImpl();

  // Destroys all that was added: classes first, for their qualifiers borrow the declarations.
  void Close();
  bool IsClosing() const { return closing_; }

  TCIMClass& AllocateClass(const std::string& name, TCIMClass* superClass) const;
  TCIMInstance& AllocateInstance(TCIMClass* cimClass) const;
  TCIMQualifierDecl& AllocateQualifierDecl(const std::string& name, const TCIMValue& value,
                                           TCIMQualifierDecl::EScope scope,
                                           TCIMQualifierDecl::EFlavor flavor) const;

  // Set once, by the container's constructor; owned.
  void SetRootClass(TCIMClass& rootClass) { rootClass_ = &rootClass; }
  TCIMClass& GetRootClass() const { return *rootClass_; }
  TCIMClass* FindClass(const std::string& name) const;
  // Fails as AddClass would, and changes nothing. Gives the class's key.
  std::string CheckNewClass(const TCIMClass& cimClass) const;
  void AddClass(TCIMClass& cimClass);
  void RemoveClass(const TCIMClass& cimClass);

  TCIMQualifierDecl* FindQualifierDecl(const std::string& name) const;
  void AddQualifierDecl(TCIMQualifierDecl& declaration);
  void RemoveQualifierDecl(const TCIMQualifierDecl& declaration);
  std::vector<TCIMQualifierDecl*> EnumerateQualifiers() const;

 private:
  vsk::detail::TDependentSearch Dependents() const;

  TContainer& owner_;
  vsk::detail::TNameTable<TCIMQualifierDecl> qualifierDecls_;
  vsk::detail::TNameTable<TCIMClass> classes_;
  TCIMClass* rootClass_ = nullptr;  // null only while it is being made
  bool closing_ = false;
};

#endif
