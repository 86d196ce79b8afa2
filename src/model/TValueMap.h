// The words for the codes of a property.
#ifndef VSKCORE_SRC_MODEL_TVALUEMAP_H
#define VSKCORE_SRC_MODEL_TVALUEMAP_H

#include <cstdint>
#include <string>
#include <vector>

#include "model/SchemaRevision.h"
#include "model/TQualifierTable.h"

namespace vsk::detail {

// What the qualifiers Values and ValueMap of one declaration say, taken apart. Never changed once
// it is made: a change to the schema makes it out of date.
class TValueMap {
 public:
  // Throws vskStatusValueIsNULL for a NULL element that is read.
  explicit TValueMap(const TQualifierTable& qualifiers);

  bool IsCurrent() const { return revision_ == SchemaRevision(); }
  // False without Values, and for a map with a fault.
  bool IsUsable() const { return usable_; }
  // What is wrong with the qualifiers, to be put behind the property's name; null for nothing.
  const char* GetFault() const { return fault_; }
  // The text of the first range that holds the number, else that of ".."; null without either.
  const std::string* Find(std::uint64_t number) const;

 private:
  // From low to high, both included.
  struct TRange {
    std::uint64_t low;
    std::uint64_t high;  // kOpenEnd until the next range, if any, closes it
    std::string text;
  };

  // Each is false, with the fault noted, for qualifiers that make no map.
  bool Read(const TQualifierTable& qualifiers);
  bool NumberTexts(const std::vector<TCIMValue>& texts);
  bool ReadEntry(const std::string& entry, std::string text);
  bool ReadCatchAll(std::string text);
  bool ReadUpTo(const std::string& entry, std::string text);
  bool ReadFrom(const std::string& entry, std::string text);
  bool ReadNumber(const std::string& entry, std::size_t& place, std::uint64_t& number);

  bool Refuse(const char* fault);
  bool EndsOpen() const;

  std::uint64_t revision_ = SchemaRevision();  // as it is before the qualifiers are read
  std::vector<TRange> ranges_;                 // they may overlap: the first that fits counts
  bool endsAscend_ = false;
  std::string catchAll_;
  std::uint64_t next_ = 0;  // where a range without a start begins
  const char* fault_ = nullptr;
  bool usable_;  // last, for its making reads into the others
};

}  // namespace vsk::detail

#endif
