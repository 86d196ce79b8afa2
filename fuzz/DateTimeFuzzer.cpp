// Two texts, one a line, through everything that a date-time offers; the third line picks the time
// zone.
#include <vskcore/model/TCIMDateTime.h>
#include <vskcore/model/TCIMValue.h>
#include <vskcore/model/TContainer.h>

#include <iterator>
#include <sstream>

#include "FuzzSupport.h"
#include "support/StatusOf.h"
#include "support/TZone.h"

namespace {

// Rules, so that no zone files are needed: whole hours and parts, both halves of the globe, summer
// by half an hour, and summer below standard time.
const char* const kZones[] = {
    "UTC0",
    "EST5EDT,M3.2.0,M11.1.0",
    "CET-1CEST,M3.5.0,M10.5.0/3",
    "NZST-12NZDT,M9.5.0,M4.1.0/3",
    "<+1030>-10:30<+11>-11,M10.1.0,M4.1.0",
    "IST-1GMT0,M10.5.0,M3.5.0/1",
    "<-12>12",
    "<+14>-14",
};

TCIMDateTime DateTimeOf(const std::string& text) {
  TCIMDateTime dateTime;
  const vskStatus status = StatusOf([&] { dateTime.Set(text); });
  Require((status == vskStatusOK) != dateTime.IsNull(), "a text that fails leaves NULL");
  return dateTime;
}

template <typename TBody>
std::string TextOf(TBody&& body) {
  std::string text;
  const vskStatus status = StatusOf([&] { text = body().ToString(); });
  return status == vskStatusOK ? text : std::to_string(status);
}

// What a text gives reads back from its own text, and through a value.
void ReadBack(const TCIMDateTime& dateTime, const std::string& text) {
  StatusOf([&] { dateTime.ToUIString(); });
  if (dateTime.IsNull()) return;
  const std::string printed = dateTime.ToString();
  const bool isMinusNothing = text.compare(21, 4, "-000") == 0;
  Require(printed == (isMinusNothing ? text.substr(0, 21) + "+000" : text), "it prints as it read");
  const TCIMDateTime again(printed);
  Require(again == dateTime && !(again < dateTime) && again.ToString() == printed, "it reads back");
  TContainer container;
  std::string copy = text;
  const TCIMValue value(TCIMValue::TCIMType::cimDateTime, copy, container);
  const TCIMDateTime taken = value;
  Require(value.ToString(10) == printed && taken == dateTime, "a value holds it");
  TCIMDateTime cleared = dateTime;
  cleared.Clear();
  Require(cleared.IsNull() && !dateTime.IsNull(), "a copy is independent");
}

// All three comparisons fail, or exactly one holds.
void Compare(const TCIMDateTime& left, const TCIMDateTime& right) {
  int holds = 0;
  const vskStatus equal = StatusOf([&] { holds += left == right; });
  const vskStatus less = StatusOf([&] { holds += left < right; });
  const vskStatus greater = StatusOf([&] { holds += right < left; });
  Require(equal == less && less == greater, "comparisons fail together");
  Require(holds == (equal == vskStatusOK ? 1 : 0), "exactly one comparison holds");
}

void Reckon(const TCIMDateTime& left, const TCIMDateTime& right) {
  Require(TextOf([&] { return left + right; }) == TextOf([&] { return right + left; }),
          "a + b is b + a");
  Require(TextOf([&] { return left - right; }) == TextOf([&] { return right - left; }),
          "a - b is b - a");
  StatusOf([&] { Require((left - left).ToUIString().empty(), "a - a is nothing"); });
  StatusOf([&] { Require(left + TCIMDateTime(0, 0, 0, 0, 0) == left, "a + 0 is a"); });
  // Before that the wall clock may stand before 1970, and a difference is absolute.
  if (left.IsInterval() || left.GetYear() < 1971 || !right.IsInterval()) return;
  StatusOf([&] {
    const TCIMDateTime sum = left + right;
    Require(sum - right == left, "a + b - b is a");
  });
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size > kMaxInputSize) return 0;
  StartInput();
  std::istringstream input(std::string(data, data + size));
  std::string texts[2];
  std::string zone;
  std::getline(std::getline(std::getline(input, texts[0]), texts[1]), zone);
  const TZone use(
      kZones[zone.empty() ? 0 : static_cast<unsigned char>(zone[0]) % std::size(kZones)]);
  const TCIMDateTime left = DateTimeOf(texts[0]);
  const TCIMDateTime right = DateTimeOf(texts[1]);
  ReadBack(left, texts[0]);
  ReadBack(right, texts[1]);
  Compare(left, right);
  Reckon(left, right);
  Reckon(right, left);
  return 0;
}
