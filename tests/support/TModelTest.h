// What every test of the model starts from.
#ifndef VSKCORE_TESTS_SUPPORT_TMODELTEST_H
#define VSKCORE_TESTS_SUPPORT_TMODELTEST_H

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "support/Picture.h"
#include "support/StatusOf.h"
#include "support/TLogCapture.h"
#include "support/TSchema.h"

// An empty container, and the log, which outlives it.
class TModelTest : public testing::Test {
 protected:
  using TType = TCIMValue::TCIMType;

  TLogCapture log;
  TContainer container;
  TSchema schema{container};
};

#endif
