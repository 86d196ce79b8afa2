// What stands behind an ICIMElement.
#ifndef VSKCORE_SRC_MODEL_TCIMELEMENTIMPL_H
#define VSKCORE_SRC_MODEL_TCIMELEMENTIMPL_H

class TContainer;

class TCIMElementImpl {
 public:
  virtual ~TCIMElementImpl() = default;
  virtual void Validate() const = 0;
  virtual TContainer& GetContainer() const = 0;
};

#endif
