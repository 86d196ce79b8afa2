#include "model/TPathMatcher.h"

#include <vskcore/model/TCIMProperty.h>

#include <algorithm>
#include <cstddef>
#include <string>

#include "model/TPeek.h"
#include "model/TQualifierTable.h"

namespace vsk::detail {

namespace {

// Whether a table knows a declaration by the name that it has now: it may have been renamed, to
// something that is no CIM name even.
bool Spells(const std::string& name, const std::string& key) {
  return std::equal(name.begin(), name.end(), key.begin(), key.end(), [](char left, char right) {
    return left == right || (left >= 'A' && left <= 'Z' && left - 'A' + 'a' == right);
  });
}

// A path takes a copy of the value, which only these types always allow.
bool IsPlain(TCIMValue::ECIMType type) {
  return type > TCIMValue::TCIMType::cimNone && type <= TCIMValue::TCIMType::cimReference &&
         type != TCIMValue::TCIMType::cimChar;
}

}  // namespace

TPathMatcher::TPathMatcher(const TNameTable<TCIMPropertyDecl>& table,
                           const TCIMReference& reference)
    : reference_(reference) {
  for (const auto& [key, declaration] : table.Items()) {
    if (!IsTrue(declaration->FindQualifier("KEY"))) continue;
    keys_.push_back({&key, declaration.get()});
    buildsAlways_ = buildsAlways_ || !Spells(declaration->GetName(), key);
  }
  std::sort(keys_.begin(), keys_.end(), [](const TKey& left, const TKey& right) {
    return left.declaration->GetName() < right.declaration->GetName();
  });
}

bool TPathMatcher::Fits(const TCIMInstanceImpl& instance) {
  if (!Collect(instance)) return instance.BuildPath() == reference_;
  return &instance.GetClass() == reference_.FindClass() && CollectedFit();
}

bool TPathMatcher::Collect(const TCIMInstanceImpl& instance) {
  if (buildsAlways_) return false;
  values_.clear();
  for (const TKey& key : keys_) {
    const TCIMProperty* property = instance.FindKey(*key.key);
    if (property == nullptr) return false;
    const TCIMValue& value = TPeek::Value(*property);
    if (value.GetType() != key.declaration->GetType() || !IsPlain(value.GetType())) return false;
    values_.push_back(&value);
  }
  return true;
}

bool TPathMatcher::CollectedFit() const {
  const TCIMReference::TKeyBindings& bindings = TPeek::Bindings(reference_);
  if (bindings.size() != keys_.size()) return false;
  auto binding = bindings.begin();
  for (std::size_t i = 0; i < keys_.size(); ++i, ++binding) {
    const std::string& name = keys_[i].declaration->GetName();
    if (name != binding->first || *values_[i] != binding->second) return false;
  }
  return true;
}

}  // namespace vsk::detail
