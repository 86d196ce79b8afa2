#include <gtest/gtest.h>

#include "core/log/TLogger.h"

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  vsk::detail::CreateCoreLogger();
  return RUN_ALL_TESTS();
}
