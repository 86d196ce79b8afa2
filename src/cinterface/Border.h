// The border between C and the core: no exception crosses it, and every complaint names its door.
#ifndef VSKCORE_SRC_CINTERFACE_BORDER_H
#define VSKCORE_SRC_CINTERFACE_BORDER_H

#include <vskcore/core/ILogger.h>
#include <vskcore/core/TRootObject.h>
#include <vskcore/core/TVSKException.h>

#include <cstdint>
#include <new>
#include <string>

class IPlugin;

namespace vsk::detail {

// Logs the pieces, put together, as an error of that plug-in (null for the core). A message that
// there is no memory for is lost.
template <typename... TPieces>
void Tell(IPlugin* plugin, const TPieces&... pieces) noexcept {
  try {
    std::string text;
    (text.append(pieces), ...);
    TRootObject::GetCoreLogger()->Log(plugin, 0, text);
  } catch (...) {  // a log that can't be written must not end the caller
  }
}

// True when every pointer is set; if not, logs "<function>: NULL <names> parameter".
template <typename... TPointers>
bool AllGiven(IPlugin* plugin, const char* function, const char* names, TPointers... pointers) {
  if ((... && (pointers != nullptr))) return true;
  Tell(plugin, function, ": NULL ", names, " parameter");
  return false;
}

// The status of body: vskStatusOK when it returns, else what its exception stands for. tell is
// called with the status of a TVSKException, to log what the function promises.
template <typename TBody, typename TTell>
vskStatus Guarded(const char* function, TBody&& body, TTell&& tell) noexcept {
  try {
    body();
    return vskStatusOK;
  } catch (const TVSKException& exception) {
    tell(exception.status);
    return exception.status;
  } catch (const std::bad_alloc&) {
    return vskStatusOutOfMemory;
  } catch (const std::exception& exception) {
    Tell(nullptr, function, ": unexpected exception ", exception.what());
    return vskStatusFail;
  } catch (...) {
    Tell(nullptr, function, ": unexpected exception");
    return vskStatusFail;
  }
}

// The same, in silence.
template <typename TBody>
vskStatus Guarded(const char* function, TBody&& body) noexcept {
  return Guarded(function, body, [](vskStatus) {});
}

// Stores a new object through out, null when there is no memory for it.
template <typename TObject, typename... TArguments>
vskStatus Create(const char* function, TObject** out, TArguments&&... arguments) noexcept {
  *out = nullptr;
  return Guarded(function, [&] { *out = new TObject(arguments...); });
}

// The trace of the C interface: whether anybody reads it. Nothing is put together for it if not.
inline bool IsTraced() { return TRootObject::GetCoreLogger()->GetLevel() >= 4; }

}  // namespace vsk::detail

#endif
