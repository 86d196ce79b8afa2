// The logger behind ILogger.
#ifndef VSKCORE_SRC_CORE_LOG_TLOGGER_H
#define VSKCORE_SRC_CORE_LOG_TLOGGER_H

#include <vskcore/core/ILogger.h>
#include <vskcore/core/TLogRecord.h>
#include <vskcore/core/vskStatus.h>

#include <cstdint>
#include <list>
#include <string>

namespace vsk::detail {

// Creates the logger that TRootObject::GetCoreLogger hands out, before anything else of the core.
// Called once; the logger belongs to the process.
vskStatus CreateCoreLogger();

}  // namespace vsk::detail

#endif
