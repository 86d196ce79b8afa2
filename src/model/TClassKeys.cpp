#include "model/TClassKeys.h"

#include <vskcore/model/TCIMProperty.h>

#include <algorithm>

#include "model/TCIMInstanceImpl.h"
#include "model/TCIMPropertyDeclImpl.h"
#include "model/TCIMPropertyImpl.h"
#include "model/TPeek.h"

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

TClassKeys::TClassKeys(const TPropertyTable& table) {
  table.Visit([this](const TPropertyTable::TEntry& entry) {
    if (!TPeek::Impl(*entry.declaration).IsKey()) return;
    keys_.push_back({&entry.key, entry.declaration.get()});
    renamed_ = renamed_ || !Spells(entry.declaration->GetName(), entry.key);
  });
  std::sort(keys_.begin(), keys_.end(),
            [](const TKey& left, const TKey& right) { return left.GetName() < right.GetName(); });
}

bool TClassKeys::Collect(const TCIMInstanceImpl& instance,
                         std::vector<const TCIMValue*>& values) const {
  values.clear();
  for (const TKey& key : keys_) {
    const TCIMProperty* property = instance.FindKey(*key.key);
    if (property == nullptr) return false;
    const TCIMValue& value = TPeek::Value(*property);
    if (value.GetType() != key.declaration->GetType() || !IsPlain(value.GetType())) return false;
    values.push_back(&value);
  }
  return !renamed_;
}

void TClassKeys::Watch(TCIMInstanceImpl& instance) const {
  for (const TKey& key : keys_) {
    TCIMProperty* property = instance.FindKey(*key.key);
    if (property != nullptr) TPeek::Impl(*property).TellOfNextChange(instance);
  }
}

}  // namespace vsk::detail
