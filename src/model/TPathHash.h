// A number that tells paths apart.
#ifndef VSKCORE_SRC_MODEL_TPATHHASH_H
#define VSKCORE_SRC_MODEL_TPATHHASH_H

#include <vskcore/model/TCIMReference.h>
#include <vskcore/model/TCIMValue.h>

#include <cstddef>
#include <cstdint>
#include <string>

class TCIMClass;

namespace vsk::detail {

// Two paths whose comparison says that they are equal, or fails, have the same hash. To keep that,
// it ends at the first value whose comparison may fail: a date-time or an array that isn't NULL.
// What stands behind it a comparison only reads when all before it is equal.
class TPathHash {
 public:
  TPathHash(const TCIMClass* cimClass, std::size_t bindings);
  explicit TPathHash(const TCIMReference& path) { AddPath(path); }

  // The next binding, in ascending order of the names.
  void AddBinding(const std::string& name, const TCIMValue& value);
  // Whether it didn't end before its time: no comparison with this path fails.
  bool IsWhole() const { return !ended_; }
  std::uint32_t Get() const { return static_cast<std::uint32_t>(hash_ >> 32); }

 private:
  void Mix(std::uint64_t number);
  void AddHead(const TCIMClass* cimClass, std::size_t bindings);
  void AddPath(const TCIMReference& path);
  void AddName(const std::string& name, const TCIMValue& value);
  void AddPart(const TCIMValue& value);  // no path

  std::uint64_t hash_ = 0;
  bool ended_ = false;
};

}  // namespace vsk::detail

#endif
