#include "cinterface/Border.h"

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>

#include "support/TLogCapture.h"

TEST(BorderTest, NothingThatIsThrownCrosses) {
  TLogCapture log;
  const struct {
    std::function<void()> body;
    vskStatus status;
    const char* line;
  } kRows[] = {
      {[] {}, vskStatusOK, ""},
      {[] { throw TVSKException(vskStatusNotFound); }, vskStatusNotFound, ""},
      {[] { throw std::bad_alloc(); }, vskStatusOutOfMemory, ""},
      {[] { throw std::length_error("too long"); }, vskStatusFail,
       "vskDoor: unexpected exception too long"},
      {[] { throw 17; }, vskStatusFail, "vskDoor: unexpected exception"},
  };
  for (const auto& row : kRows) {
    EXPECT_EQ(row.status, vsk::detail::Guarded("vskDoor", row.body));
    EXPECT_EQ(row.line, log.Take());
  }
}
