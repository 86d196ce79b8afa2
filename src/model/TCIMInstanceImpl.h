// What stands behind a TCIMInstance.
#ifndef VSKCORE_SRC_MODEL_TCIMINSTANCEIMPL_H
#define VSKCORE_SRC_MODEL_TCIMINSTANCEIMPL_H

#include <vskcore/model/TCIMProperty.h>
#include <vskcore/model/TCIMReference.h>

#include <boost/shared_ptr.hpp>
#include <cstddef>
#include <string>
#include <vector>

#include "model/TCIMElementImpl.h"
#include "model/TPropertyLayout.h"

class TCIMClass;
class TCIMInstance;

// The indexes of the class's instances reach in for the properties and for the position;
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
  std::vector<TCIMProperty>& Properties() { return properties_; }

  TCIMReference BuildPath() const;

  std::vector<TCIMInstance*> References(const std::string& resultClass,
                                        const std::string& role) const;
  std::vector<TCIMInstance*> Associators(const std::string& assocClass,
                                         const std::string& resultClass, const std::string& role,
                                         const std::string& resultRole) const;

  // Where this stands in its class's list; the first place, where there are several.
  bool IsListed() const { return position_ != kNowhere; }
  std::size_t GetPosition() const { return position_; }
  void SetPosition(std::size_t position) { position_ = position; }
  // One is about to change, as asked for by TCIMPropertyImpl::TellOfNextChange.
  void PropertyChanges() noexcept;

  bool operator==(const TCIMInstanceImpl& other) const;
  bool operator<(const TCIMInstanceImpl& other) const;

 private:
  static constexpr std::size_t kNowhere = static_cast<std::size_t>(-1);

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
  std::size_t position_ = kNowhere;
};

#endif
