#include "model/TQualifierTable.h"

#include <boost/make_shared.hpp>

#include "model/SchemaRevision.h"
#include "model/TPeek.h"

namespace vsk::detail {

namespace {

bool Has(const TCIMQualifier& qualifier, TCIMQualifierDecl::EFlavor flavor) {
  return (qualifier.GetFlavor() & flavor) != 0;
}

// A qualifier that is not overridable takes a mere repeat of itself, and nothing else.
void RequireRepeat(const TCIMQualifier& stored, const TCIMQualifier& qualifier) {
  if (TPeek::Value(stored) != TPeek::Value(qualifier) ||
      stored.GetFlavor() != qualifier.GetFlavor()) {
    throw TVSKException(vskStatusNotOverridable);
  }
}

}  // namespace

void TQualifierTable::Add(TCIMQualifier& qualifier) {
  std::string key = NormalizeCIMName(qualifier.GetName());
  const TCIMQualifier* const stored = table_.FindKey(key);
  if (stored == &qualifier) return;
  if (stored != nullptr && !Has(*stored, TCIMQualifierDecl::flavorOverridable)) {
    return RequireRepeat(*stored, qualifier);
  }
  CountSchemaChange();
  table_.Adopt(std::move(key), qualifier);
}

const TCIMValue* TQualifierTable::FindValue(const std::string& key) const {
  const TCIMQualifier* const found = table_.FindKey(key);
  if (found == nullptr || TPeek::Value(*found).IsNull()) return nullptr;
  return &TPeek::Value(*found);
}

void TQualifierTable::Remove(const TCIMQualifier& qualifier) {
  CountSchemaChange();
  table_.Remove(qualifier.GetName());
}

void TQualifierTable::Inherit(const TQualifierTable& superclass) {
  for (const auto& [key, qualifier] : superclass.table_.Items()) {
    if (!Has(*qualifier, TCIMQualifierDecl::flavorToSubclass)) continue;
    const auto copy = boost::make_shared<TCIMQualifier>(*qualifier);
    copy->SetPropagated(true);
    table_.AddKey(key, copy);
  }
}

bool IsTrue(const TCIMQualifier* qualifier) {
  if (qualifier == nullptr || TPeek::Value(*qualifier).IsNull()) return false;
  return TPeek::Value(*qualifier);
}

}  // namespace vsk::detail
