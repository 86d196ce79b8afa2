// Destruction in a loop of what is nested without bound.
#ifndef VSKCORE_SRC_MODEL_TAKEAPART_H
#define VSKCORE_SRC_MODEL_TAKEAPART_H

#include <utility>

namespace vsk::detail {

// Destroys a heap object whose destructor may come here again with others that lie in it. Those
// only queue up, so the stack holds one of them at a time, however deep they lie. nextToGo is for
// the queue; nothing else uses it.
template <typename TNode>
void TakeApart(TNode* doomed, TNode* TNode::*nextToGo) noexcept {
  static thread_local TNode* waiting = nullptr;
  static thread_local bool isAtWork = false;
  doomed->*nextToGo = std::exchange(waiting, doomed);
  if (isAtWork) return;
  isAtWork = true;
  while (waiting != nullptr) {
    TNode* const next = std::exchange(waiting, waiting->*nextToGo);
    delete next;
  }
  isAtWork = false;
}

}  // namespace vsk::detail

#endif
