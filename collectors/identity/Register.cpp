#include "common/TCollector.h"
#include "identity/Identity.h"

namespace {

[[maybe_unused]] const bool registered =
    TCollector::Register("identity", "The machine, its firmware and its main board",
                         {{"ZNTSG_ComputerSystem", CollectComputerSystem},
                          {"ZNTSG_SystemBIOSElement", CollectFirmware},
                          {"ZNTSG_BaseBoard", CollectBaseBoard},
                          {"ZNTSG_HWQProduct", CollectProduct}});

}  // namespace
