#include <gtest/gtest.h>
#include <vskcore/core/TVSKException.h>

#include <limits>

#include "core/base/Fail.h"
#include "support/StatusOf.h"
#include "support/TLogCapture.h"

namespace {

struct TStatusRow {
  vskStatus status;
  const char* name;
};

#define ROW(status) \
  { status, #status }

// In the order of their numbers, from 0.
const TStatusRow kStatuses[] = {
    ROW(vskStatusOK),
    ROW(vskStatusNotImplemented),
    ROW(vskStatusUnknownClass),
    ROW(vskStatusFail),
    ROW(vskStatusOutOfMemory),
    ROW(vskStatusNoMoreItems),
    ROW(vskStatusErrorCollectingClass),
    ROW(vskStatusInvalidClass),
    ROW(vskStatusInvalidProperty),
    ROW(vskStatusInvalidSpecificationDocument),
    ROW(vskStatusInvalidDataCollectionDocument),
    ROW(vskStatusFileSystemError),
    ROW(vskStatusDirectoryAlreadyExists),
    ROW(vskStatusNotArray),
    ROW(vskStatusTypeMismatch),
    ROW(vskStatusNotFound),
    ROW(vskStatusAlreadyExists),
    ROW(vskStatusInvalidOpSequence),
    ROW(vskStatusInvalidInstance),
    ROW(vskStatusCorruptedContainer),
    ROW(vskStatusInvalidPlugin),
    ROW(vskStatusInvalidDateTime),
    ROW(vskStatusNotAssociation),
    ROW(vskStatusNotReference),
    ROW(vskStatusInvalidReference),
    ROW(vskStatusInvalidCIMName),
    ROW(vskStatusFileNotFound),
    ROW(vskStatusAccessDenied),
    ROW(vskStatusNotOverridable),
    ROW(vskStatusInvalidGzipFile),
    ROW(vskStatusCorruptGzipFile),
    ROW(vskStatusNotSupported),
    ROW(vskStatusValueIsNULL),
    ROW(vskStatusINETNotFound),
    ROW(vskStatusConnectionFailed),
    ROW(vskStatusEnd),
};

TEST(VskStatus, NumberAndTextOfEachRow) {
  vskStatus number = 0;
  for (const TStatusRow& row : kStatuses) {
    EXPECT_EQ(number++, row.status) << row.name;
    EXPECT_STREQ(row.name, vskTranslateStatusCode(row.status));
    EXPECT_STREQ(row.name, TVSKException(row.status).what());
  }
  EXPECT_EQ(36, number);
}

TEST(VskStatus, NumbersOfNobodyHaveAText) {
  const vskStatus lowest = std::numeric_limits<vskStatus>::min();
  const vskStatus highest = std::numeric_limits<vskStatus>::max();
  for (const vskStatus status : {-1, 36, lowest, highest}) {
    EXPECT_STREQ("vskStatusUnknown", vskTranslateStatusCode(status)) << status;
  }
}

TEST(VskStatus, FailLogsAnErrorAndThrowsACopyableException) {
  TLogCapture log;
  try {
    vsk::detail::Fail(vskStatusNotOverridable, "told first");
    FAIL();
  } catch (const std::exception& exception) {
    const TVSKException copy = dynamic_cast<const TVSKException&>(exception);
    EXPECT_EQ(vskStatusNotOverridable, copy.status);
    EXPECT_STREQ("vskStatusNotOverridable", copy.what());
  }
  EXPECT_EQ("told first", log.Take());
}

TEST(VskStatus, RequireRefusesNothingFound) {
  const int found = 17;
  EXPECT_EQ(&found, &vsk::detail::Require(&found));
  const int* const absent = nullptr;
  EXPECT_EQ(vskStatusNotFound, StatusOf([&] { vsk::detail::Require(absent); }));
}

}  // namespace
