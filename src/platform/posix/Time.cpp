// The clock and the host's name.
#include <stdlib.h>
#include <time.h>
#include <unistd.h>
#include <vskcore/core/TVSKException.h>
#include <vskcore/model/TCIMDateTime.h>
#include <vskcore/platform/TOSSpecific.h>

namespace {

// Sees to it that the zone is the one that the rest of the process uses now, not the one it had
// when it first asked. Where TZ names none, that means a look at the file system, so it is done
// once a second: an instance is stamped with the time of its making.
void ReadZone(time_t now) {
  thread_local time_t lastLook = 0;
  const bool isNamed = getenv("TZ") != nullptr;
  if (!isNamed && now == lastLook) return;
  tzset();
  lastLook = isNamed ? 0 : now;
}

}  // namespace

TCIMDateTime TOSSpecific::GetLocalTime() {
  timespec now;
  tm local;
  if (clock_gettime(CLOCK_REALTIME, &now) != 0) throw TVSKException(vskStatusInvalidDateTime);
  ReadZone(now.tv_sec);
  if (localtime_r(&now.tv_sec, &local) == nullptr) throw TVSKException(vskStatusInvalidDateTime);
  const auto milliseconds = static_cast<unsigned int>(now.tv_nsec / 1000000);
  return TCIMDateTime(
      static_cast<unsigned short>(local.tm_year + 1900),
      static_cast<unsigned short>(local.tm_mon + 1), static_cast<unsigned int>(local.tm_mday),
      static_cast<unsigned short>(local.tm_hour), static_cast<unsigned short>(local.tm_min),
      static_cast<unsigned short>(local.tm_sec), milliseconds * 1000,
      static_cast<short>(local.tm_gmtoff / 60));
}

std::string TOSSpecific::GetMachineName() {
  // A name that does not fit is not always terminated; the last byte stays zero.
  char name[257] = {};
  if (gethostname(name, sizeof name - 1) != 0) throw TVSKException(vskStatusFail);
  return name;
}
