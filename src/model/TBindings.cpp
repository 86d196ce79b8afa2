#include "model/TBindings.h"

#include "model/TakeApart.h"

namespace vsk::detail {

void intrusive_ptr_add_ref(TBindings::TShared* shared) noexcept { ++shared->holders; }

void intrusive_ptr_release(TBindings::TShared* shared) noexcept {
  if (--shared->holders == 0) TakeApart(shared, &TBindings::TShared::nextToGo);
}

const TBindings::TMap& TBindings::Get() const {
  static const TMap& none = *new TMap;
  return shared_ ? shared_->map : none;
}

TBindings::TMap& TBindings::Change() {
  if (!shared_) {
    shared_ = new TShared;
  } else if (shared_->holders > 1) {
    const boost::intrusive_ptr<TShared> own = new TShared;
    own->map = shared_->map;
    shared_ = own;
  }
  return shared_->map;
}

void TBindings::Set(TMap map) {
  const boost::intrusive_ptr<TShared> own = new TShared;
  own->map.swap(map);
  shared_ = own;
}

}  // namespace vsk::detail
