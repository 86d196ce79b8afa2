#include <gtest/gtest.h>
#include <sys/utsname.h>
#include <vskcore/model/TCIMDateTime.h>
#include <vskcore/platform/TOSSpecific.h>

#include <chrono>
#include <ctime>

#include "support/TZone.h"

namespace {

// The clock's whole seconds as a timestamp of Greenwich. From the same clock that the code under
// test reads: time() may lag behind it by a tick, and so by a second.
TCIMDateTime Greenwich() {
  using TClock = std::chrono::system_clock;
  const std::time_t now = TClock::to_time_t(TClock::now());
  const std::tm utc = *gmtime(&now);
  const auto cut = [](int field) { return static_cast<unsigned short>(field); };
  return TCIMDateTime(cut(utc.tm_year + 1900), cut(utc.tm_mon + 1), cut(utc.tm_mday),
                      cut(utc.tm_hour), cut(utc.tm_min), cut(utc.tm_sec), 0, 0);
}

TEST(TOSSpecificTime, LocalTimeIsNowWithItsOffset) {
  const struct {
    const char* zone;
    int offset;
  } rows[] = {{"UTC0", 0}, {"ZZZ-5:45", 345}, {"ZZZ9:30", -570}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.zone);
    const TZone use(row.zone);
    const TCIMDateTime second(0, 0, 0, 1, 0);
    const TCIMDateTime before = Greenwich();
    const TCIMDateTime local = TOSSpecific::GetLocalTime();
    const TCIMDateTime after = Greenwich() + second;
    EXPECT_EQ(row.offset, static_cast<short>(local.GetUTCOffset()));
    EXPECT_FALSE(local < before);
    EXPECT_TRUE(local < after);
    EXPECT_EQ(0u, local.GetMicroSeconds() % 1000);
  }
}

TEST(TOSSpecificTime, OffsetCountsDaylightSaving) {
  const TZone use("AAA5BBB,0/0,J365/25");  // in force the whole year
  EXPECT_EQ(-240, static_cast<short>(TOSSpecific::GetLocalTime().GetUTCOffset()));
}

short Offset() { return static_cast<short>(TOSSpecific::GetLocalTime().GetUTCOffset()); }

TEST(TOSSpecificTime, NoticesAZoneThatNobodyAnnounced) {
  const TZone restored("UTC0");
  unsetenv("TZ");
  const short home = Offset();
  setenv("TZ", "AAA-5:07", 1);
  EXPECT_EQ(307, Offset());
  setenv("TZ", "AAA-5:08", 1);  // in the same second
  EXPECT_EQ(308, Offset());
  unsetenv("TZ");
  EXPECT_EQ(home, Offset());
}

TEST(TOSSpecificNames, MachineAndOperatingSystemBearTheHostsName) {
  utsname host;
  ASSERT_EQ(0, uname(&host));
  EXPECT_EQ(host.nodename, TOSSpecific::GetMachineName());
  EXPECT_EQ(host.nodename, TOSSpecific::GetOperatingSystemName());
}

}  // namespace
