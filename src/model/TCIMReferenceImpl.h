// What stands behind a TCIMReference.
#ifndef VSKCORE_SRC_MODEL_TCIMREFERENCEIMPL_H
#define VSKCORE_SRC_MODEL_TCIMREFERENCEIMPL_H

#include <vskcore/model/TCIMReference.h>

#include <boost/weak_ptr.hpp>
#include <string>
#include <utility>

#include "model/TBindings.h"

class ICIMElement;
class TCIMClass;
class TCIMInstance;
class TCIMInstanceImpl;
class TContainer;

// While there are bindings the class stays as it is. Bindings without a class come from
// SetKeyBindings alone. Copies share the bindings until one of them changes. A key may be a path
// again, to any depth: nothing here goes down by recursion.
class TCIMReferenceImpl {
 public:
  using TKeyBindings = TCIMReference::TKeyBindings;

  TCIMReferenceImpl(const TCIMReference& owner, const TContainer* container);
  TCIMReferenceImpl(const TCIMReference& owner, const TCIMReferenceImpl& other);
  TCIMReferenceImpl(const TCIMReferenceImpl&) = delete;
  TCIMReferenceImpl& operator=(const TCIMReferenceImpl&) = delete;

  void SetContainer(const TContainer* container) { container_ = container; }
  void Clear();
  [[noreturn]] void SetPath() const;
  void SetClass(TCIMClass& cimClass);
  void SetClassName(const std::string& name);
  // Throws vskStatusInvalidReference when no class is set.
  TCIMClass& GetClass() const;
  TCIMClass* FindClass() const { return class_; }

  void AddKeyValue(const std::string& key, const TCIMValue& value);
  void SetKeyBindings(TKeyBindings bindings) { bindings_.Set(std::move(bindings)); }
  const TKeyBindings& Bindings() const { return bindings_.Get(); }

  std::string GetPath() const;
  ICIMElement& GetCIMElement();
  // The same for a look that leaves no trace; null for an instance that isn't there.
  ICIMElement* PeekCIMElement() const;

  // The instance that was found once and is still there, else null.
  const TCIMInstance* GetRemembered() const { return watch_.expired() ? nullptr : resolved_; }

  bool operator==(const TCIMReferenceImpl& other) const;
  bool operator<(const TCIMReferenceImpl& other) const;

 private:
  const TCIMReference& owner_;
  const TContainer* container_;
  TCIMClass* class_;
  vsk::detail::TBindings bindings_;
  // The instance that was found. It may be gone since, which the watch tells.
  TCIMInstance* resolved_;
  boost::weak_ptr<const TCIMInstanceImpl> watch_;
};

#endif
