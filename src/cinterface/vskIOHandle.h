// What the opaque handle of a query holds.
#ifndef VSKCORE_SRC_CINTERFACE_VSKIOHANDLE_H
#define VSKCORE_SRC_CINTERFACE_VSKIOHANDLE_H

#include <vskcore/model/TCIMInstance.h>

#include <memory>

class IPlugin;
class TContainer;

// Lives on the adapter's stack for the length of one query.
struct vskIOHandle {
  IPlugin* plugin;        // who is asked
  TContainer* container;  // what is filled
  // The instance under construction, null at first; the handle's own until its class takes it.
  std::unique_ptr<TCIMInstance> currentInstance;
};

namespace vsk::detail {

// Adds the open instance, if there is one, to its class. A refusal is logged and thrown on, and the
// instance stays open.
void CloseInstance(vskIOHandle& handle);

}  // namespace vsk::detail

#endif
