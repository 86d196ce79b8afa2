// What can be validated and joined to a container: a class or an instance.
#ifndef VSKCORE_MODEL_ICIMELEMENT_H
#define VSKCORE_MODEL_ICIMELEMENT_H

#include <vskcore/core/vskExport.h>

class TContainer;

// Implemented by TCIMClass and TCIMInstance. The order of the virtual operations is part of the
// contract.
class VSK_EXPORT ICIMElement {
 public:
  ICIMElement();
  virtual ~ICIMElement();

  // Fails with a TVSKException when the element isn't fit to join its container.
  virtual void Validate() const = 0;
  // Validates and joins. From success on the container's side owns the element.
  virtual void AddToContainer() const = 0;
  // The container that it was made for, joined or not.
  virtual TContainer& GetContainer() const = 0;
};

#endif
