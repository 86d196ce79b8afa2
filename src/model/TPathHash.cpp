#include "model/TPathHash.h"

#include <functional>
#include <vector>

#include "model/TPeek.h"

namespace vsk::detail {

namespace {

std::uint64_t HashOf(const std::string& text) { return std::hash<std::string>()(text); }

std::uint64_t HashOf(const TCIMClass* cimClass) { return std::hash<const TCIMClass*>()(cimClass); }

template <typename TNumber>
std::uint64_t HashAs(const TCIMValue& value) {
  return std::hash<TNumber>()(static_cast<TNumber>(value));  // both zeros of a real have one hash
}

// Of a boolean, an integer or a real that isn't NULL.
std::uint64_t HashOfNumber(const TCIMValue& value) {
  switch (value.GetType()) {
    case TCIMValue::TCIMType::cimBoolean:
      return HashAs<bool>(value);
    case TCIMValue::TCIMType::cimUint8:
      return HashAs<unsigned char>(value);
    case TCIMValue::TCIMType::cimSint8:
      return HashAs<signed char>(value);
    case TCIMValue::TCIMType::cimUint16:
      return HashAs<unsigned short>(value);
    case TCIMValue::TCIMType::cimSint16:
      return HashAs<short>(value);
    case TCIMValue::TCIMType::cimUint32:
      return HashAs<unsigned int>(value);
    case TCIMValue::TCIMType::cimSint32:
      return HashAs<int>(value);
    case TCIMValue::TCIMType::cimUint64:
      return HashAs<std::uint64_t>(value);
    case TCIMValue::TCIMType::cimSint64:
      return HashAs<std::int64_t>(value);
    case TCIMValue::TCIMType::cimReal32:
      return HashAs<float>(value);
    default:
      return HashAs<double>(value);
  }
}

}  // namespace

TPathHash::TPathHash(const TCIMClass* cimClass, std::size_t bindings) {
  AddHead(cimClass, bindings);
}

void TPathHash::AddBinding(const std::string& name, const TCIMValue& value) {
  if (ended_) return;
  AddName(name, value);
  const TCIMReference* const path = TPeek::Reference(value);
  return path == nullptr ? AddPart(value) : AddPath(*path);
}

void TPathHash::Mix(std::uint64_t number) {
  hash_ = (hash_ ^ number) * 0x9E3779B97F4A7C15u;
  hash_ ^= hash_ >> 29;
}

void TPathHash::AddHead(const TCIMClass* cimClass, std::size_t bindings) {
  Mix(HashOf(cimClass));
  Mix(bindings);
}

void TPathHash::AddPath(const TCIMReference& path) {
  struct TLevel {
    TCIMReference::TKeyBindings::const_iterator next;
    TCIMReference::TKeyBindings::const_iterator end;
  };
  std::vector<TLevel> above;
  const auto enter = [&](const TCIMReference& reference) {
    const TCIMReference::TKeyBindings& bindings = TPeek::Bindings(reference);
    AddHead(reference.FindClass(), bindings.size());
    return TLevel{bindings.begin(), bindings.end()};
  };
  for (TLevel level = enter(path); !ended_;) {
    if (level.next == level.end) {
      if (above.empty()) return;
      level = above.back();
      above.pop_back();
      continue;
    }
    const auto& [name, value] = *level.next++;
    const TCIMReference* const inner = TPeek::Reference(value);
    AddName(name, value);
    if (inner == nullptr) {
      AddPart(value);
    } else {
      above.push_back(level);
      level = enter(*inner);
    }
  }
}

void TPathHash::AddName(const std::string& name, const TCIMValue& value) {
  Mix(HashOf(name));
  Mix(static_cast<std::uint64_t>(value.GetType()));
  Mix(value.IsNull() ? 0 : 1);
}

void TPathHash::AddPart(const TCIMValue& value) {
  if (value.IsNull()) {
    if (value.IsReference()) Mix(HashOf(value.FindReferencedClass()));
    return;
  }
  const TCIMValue::ECIMType type = value.GetType();
  if (type == TCIMValue::TCIMType::cimString) return Mix(HashOf(TPeek::Text(value)));
  if (type < TCIMValue::TCIMType::cimBoolean || type > TCIMValue::TCIMType::cimReal64) {
    ended_ = true;
    return;
  }
  Mix(HashOfNumber(value));
}

}  // namespace vsk::detail
