#include "model/TCIMReferenceImpl.h"

#include <vskcore/model/TCIMClass.h>
#include <vskcore/model/TCIMInstance.h>
#include <vskcore/model/TCIMPropertyDecl.h>
#include <vskcore/model/TContainer.h>

#include <functional>
#include <optional>
#include <vector>

#include "core/base/Fail.h"
#include "model/TCIMInstanceImpl.h"
#include "model/TPeek.h"

using vsk::detail::Fail;
using vsk::detail::Require;
using vsk::detail::TPeek;

namespace {

using TKeyBindings = TCIMReference::TKeyBindings;

// A path that is being written.
class TPrinted {
 public:
  TPrinted(const TCIMReferenceImpl& reference, std::string& path)
      : next_(reference.Bindings().begin()), end_(reference.Bindings().end()) {
    path += reference.GetClass().GetName();
  }

  bool IsDone() const { return next_ == end_; }

  // Writes the next binding. Where its value is a path, it ends with the opening quote and gives
  // that, else null.
  const TCIMReference* PrintNext(std::string& path) {
    const auto& [key, value] = *next_++;
    path.append(1, std::exchange(before_, ',')).append(key).append("=\"");
    const TCIMReference* inner = TPeek::Reference(value);
    if (inner == nullptr) path.append(value.ToString(10)).append(1, '"');
    return inner;
  }

 private:
  TKeyBindings::const_iterator next_;
  TKeyBindings::const_iterator end_;
  char before_ = '.';
};

// The bindings of two paths, side by side.
struct TSides {
  TSides(const TCIMReferenceImpl& one, const TCIMReferenceImpl& other)
      : left(one.Bindings().begin()),
        leftEnd(one.Bindings().end()),
        right(other.Bindings().begin()),
        rightEnd(other.Bindings().end()) {}

  bool IsLeftDone() const { return left == leftEnd; }
  bool IsRightDone() const { return right == rightEnd; }

  TKeyBindings::const_iterator left;
  TKeyBindings::const_iterator leftEnd;
  TKeyBindings::const_iterator right;
  TKeyBindings::const_iterator rightEnd;
};

// What settles a comparison: each operation gives its outcome, or nothing to go on.
struct TEqual {
  static constexpr bool kOtherwise = true;

  static std::optional<bool> Start(const TCIMReferenceImpl& left, const TCIMReferenceImpl& right) {
    const bool alike =
        left.FindClass() == right.FindClass() && left.Bindings().size() == right.Bindings().size();
    return alike ? std::nullopt : std::optional(false);
  }
  template <typename TItem>
  static std::optional<bool> Items(const TItem& left, const TItem& right) {
    return left == right ? std::nullopt : std::optional(false);
  }
  static std::optional<bool> End(const TSides&) { return std::nullopt; }
};

struct TLess {
  static constexpr bool kOtherwise = false;

  static std::optional<bool> Start(const TCIMReferenceImpl& left, const TCIMReferenceImpl& right) {
    if (left.FindClass() == right.FindClass()) return std::nullopt;
    return std::less<>()(left.FindClass(), right.FindClass());
  }
  template <typename TItem>
  static std::optional<bool> Items(const TItem& left, const TItem& right) {
    if (left < right) return true;
    return right < left ? std::optional(false) : std::nullopt;
  }
  static std::optional<bool> End(const TSides& sides) {
    if (sides.IsLeftDone() && sides.IsRightDone()) return std::nullopt;
    return sides.IsLeftDone();
  }
};

// Goes through both paths in reading order, down into the paths in their keys, to the first thing
// that settles it.
template <typename TRules>
bool Decide(const TCIMReferenceImpl& left, const TCIMReferenceImpl& right) {
  std::optional<bool> outcome = TRules::Start(left, right);
  TSides level(left, right);
  std::vector<TSides> above;
  while (!outcome) {
    if (level.IsLeftDone() || level.IsRightDone()) {
      outcome = TRules::End(level);
      if (above.empty()) break;
      level = above.back();
      above.pop_back();
      continue;
    }
    const auto& [leftKey, leftValue] = *level.left++;
    const auto& [rightKey, rightValue] = *level.right++;
    outcome = TRules::Items(leftKey, rightKey);
    if (outcome) break;
    const TCIMReference* leftInner = TPeek::Reference(leftValue);
    const TCIMReference* rightInner = TPeek::Reference(rightValue);
    if (leftInner == nullptr || rightInner == nullptr) {
      outcome = TRules::Items(leftValue, rightValue);
      continue;
    }
    outcome = TRules::Start(TPeek::Impl(*leftInner), TPeek::Impl(*rightInner));
    above.push_back(level);
    level = TSides(TPeek::Impl(*leftInner), TPeek::Impl(*rightInner));
  }
  return outcome.value_or(TRules::kOtherwise);
}

}  // namespace

TCIMReferenceImpl::TCIMReferenceImpl(const TCIMReference& owner, const TContainer* container)
    : owner_(owner), container_(container), class_(nullptr), resolved_(nullptr) {}

TCIMReferenceImpl::TCIMReferenceImpl(const TCIMReference& owner, const TCIMReferenceImpl& other)
    : owner_(owner),
      container_(other.container_),
      class_(other.class_),
      bindings_(other.bindings_),
      resolved_(other.resolved_),
      watch_(other.watch_) {}

void TCIMReferenceImpl::Clear() {
  container_ = nullptr;
  class_ = nullptr;
  bindings_.Clear();
  resolved_ = nullptr;
  watch_.reset();
}

void TCIMReferenceImpl::SetPath() const {
  throw TVSKException(container_ == nullptr ? vskStatusInvalidOpSequence : vskStatusNotImplemented);
}

void TCIMReferenceImpl::SetClass(TCIMClass& cimClass) {
  if (!Bindings().empty()) throw TVSKException(vskStatusInvalidOpSequence);
  class_ = &cimClass;
}

void TCIMReferenceImpl::SetClassName(const std::string& name) {
  if (container_ == nullptr || !Bindings().empty()) throw TVSKException(vskStatusInvalidOpSequence);
  class_ = &container_->GetClass(name);
}

TCIMClass& TCIMReferenceImpl::GetClass() const {
  if (class_ == nullptr) throw TVSKException(vskStatusInvalidReference);
  return *class_;
}

void TCIMReferenceImpl::AddKeyValue(const std::string& key, const TCIMValue& value) {
  if (class_ == nullptr) throw TVSKException(vskStatusInvalidOpSequence);
  const TCIMValue::TCIMType declared = class_->GetPropertyDecl(key).GetType();
  if (declared != value.GetType()) {
    Fail(vskStatusTypeMismatch,
         "Declaration type: " + declared.ToString() + " Value type: " + value.GetType().ToString());
  }
  bindings_.Change().try_emplace(key, value);
}

std::string TCIMReferenceImpl::GetPath() const {
  std::string path;
  TPrinted level(*this, path);
  std::vector<TPrinted> above;
  for (;;) {
    if (!level.IsDone()) {
      const TCIMReference* inner = level.PrintNext(path);
      if (inner == nullptr) continue;
      above.push_back(level);
      level = TPrinted(TPeek::Impl(*inner), path);
    } else if (above.empty()) {
      return path;
    } else {
      path += '"';
      level = above.back();
      above.pop_back();
    }
  }
}

ICIMElement& TCIMReferenceImpl::GetCIMElement() {
  TCIMClass& cimClass = GetClass();
  if (Bindings().empty()) return cimClass;
  if (watch_.expired()) {
    TCIMInstance& found = Require(cimClass.FindInstance(owner_));
    resolved_ = &found;
    watch_ = found.impl_;
  }
  return *resolved_;
}

ICIMElement* TCIMReferenceImpl::PeekCIMElement() const {
  TCIMClass& cimClass = GetClass();
  if (Bindings().empty()) return &cimClass;
  return watch_.expired() ? cimClass.FindInstance(owner_) : resolved_;
}

bool TCIMReferenceImpl::operator==(const TCIMReferenceImpl& other) const {
  return Decide<TEqual>(*this, other);
}

bool TCIMReferenceImpl::operator<(const TCIMReferenceImpl& other) const {
  return Decide<TLess>(*this, other);
}
