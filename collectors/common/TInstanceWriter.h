// Fills one instance, so that what is not known stays NULL.
#ifndef VSKCORE_COLLECTORS_COMMON_TINSTANCEWRITER_H
#define VSKCORE_COLLECTORS_COMMON_TINSTANCEWRITER_H

#include <vskcore/model/TCIMInstance.h>
#include <vskcore/model/TCIMValue.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

class TCIMClass;
class TContainer;

// Owns its instance until Add hands it to the container; an instance that is not added goes with
// the writer. The C++ type of a value must be that of the property's CIM type exactly (uint32:
// unsigned int); another throws vskStatusTypeMismatch.
//
//   TInstanceWriter writer(target, cimClass);
//   writer.Set("InstanceID", "disk:nvme0n1").Set("Size", size).Add();
class TInstanceWriter {
 public:
  TInstanceWriter(TContainer& target, TCIMClass& cimClass);

  TInstanceWriter& Set(const std::string& name, const TCIMValue& value);
  // Leaves the property as it is when there is no value.
  template <typename TValue>
  TInstanceWriter& Set(const std::string& name, const std::optional<TValue>& value) {
    if (value) Set(name, TCIMValue(*value));
    return *this;
  }
  // An array; elementType is the type without the array flag.
  template <typename TElement>
  TInstanceWriter& SetList(const std::string& name, TCIMValue::ECIMType elementType,
                           const std::vector<TElement>& elements) {
    return Set(name,
               TCIMValue(elementType, 0, std::vector<TCIMValue>(elements.begin(), elements.end())));
  }

  // Validates the instance and gives it to its class. The writer is empty afterwards.
  void Add();

 private:
  std::unique_ptr<TCIMInstance> instance_;
};

#endif
