// What stands behind a TCIMInstance.
#ifndef VSKCORE_SRC_MODEL_TCIMINSTANCEIMPL_H
#define VSKCORE_SRC_MODEL_TCIMINSTANCEIMPL_H

#include <vskcore/model/TCIMProperty.h>
#include <vskcore/model/TCIMReference.h>

#include <boost/shared_ptr.hpp>
#include <string>
#include <vector>

#include "model/TCIMElementImpl.h"
#include "model/TPropertyLayout.h"

class TCIMClass;
class TCIMInstance;

// TCIMClassImpl reaches in to look properties up by key and for the mark of a listed instance;
// TCIMReferenceImpl watches, by a weak pointer, whether the object still lives.
class TCIMInstanceImpl final : public TCIMElementImpl {
 public:
  TCIMInstanceImpl(TCIMInstance& owner, TCIMClass* cimClass);
  TCIMInstanceImpl(const TCIMInstanceImpl&) = delete;
  TCIMInstanceImpl& operator=(const TCIMInstanceImpl&) = delete;

  void Validate() const override;
  void AddToContainer() const;
  TContainer& GetContainer() const override;
  TCIMClass& GetClass() const { return class_; }

  void SetProperty(const TCIMProperty& property);
  void SetPropertyValue(const std::string& name, const TCIMValue& value);
  // Throws vskStatusNotFound when absent.
  TCIMProperty& GetProperty(const std::string& name) const;
  TCIMProperty* FindProperty(const std::string& name) const;
  // The name is normalised already.
  TCIMProperty* FindKey(const std::string& key) const;
  std::vector<const TCIMProperty*> EnumerateProperties() const;

  TCIMReference BuildPath() const;

  std::vector<TCIMInstance*> References(const std::string& resultClass,
                                        const std::string& role) const;
  std::vector<TCIMInstance*> Associators(const std::string& assocClass,
                                         const std::string& resultClass, const std::string& role,
                                         const std::string& resultRole) const;

  // Whether this stands in its class's list.
  bool IsListed() const { return listed_; }
  void MarkListed() { listed_ = true; }

  bool operator==(const TCIMInstanceImpl& other) const;
  bool operator<(const TCIMInstanceImpl& other) const;

 private:
  // Whether a reference of that association, under that role where one is given, ends here.
  bool PointsHere(const TCIMInstance& association, const std::string& role) const;
  // The instances at all ends of the association but this one's own.
  void AppendFarEnds(const TCIMInstance& association, const TCIMClass& result,
                     const std::string& roleKey, std::vector<TCIMInstance*>& all) const;

  TCIMInstance& owner_;
  TCIMClass& class_;
  // The class's when this was made. It keeps the declarations alive, so it goes after the
  // properties; these stand in its order and never move.
  boost::shared_ptr<const vsk::detail::TPropertyLayout> layout_;
  mutable std::vector<TCIMProperty> properties_;  // handed out for change from const operations
  bool listed_ = false;
};

#endif
