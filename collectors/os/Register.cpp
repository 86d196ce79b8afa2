#include "common/TCollector.h"
#include "os/Os.h"

namespace {

[[maybe_unused]] const bool registered =
    TCollector::Register("os", "The operating system and the state of the processor's known faults",
                         {{"ZNTSG_OperatingSystem", CollectOperatingSystem},
                          {"ZNTSG_CPUVulnerability", CollectVulnerabilities},
                          {"ZNTSG_RunningOS", CollectRunningOS}});

}  // namespace
