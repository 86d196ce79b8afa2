// Instances and their properties, as a C plug-in writes them.
#include <vskcore/model/TCIMClass.h>
#include <vskcore/model/TCIMDateTime.h>
#include <vskcore/model/TCIMPropertyDecl.h>
#include <vskcore/model/TCIMReference.h>
#include <vskcore/model/TCIMValue.h>
#include <vskcore/model/TContainer.h>
#include <vskcore/vskplugin.h>

#include <new>
#include <string>

#include "cinterface/Border.h"
#include "cinterface/vskCIMValueArray.h"
#include "cinterface/vskIOHandle.h"
#include "model/RequireText.h"

using vsk::detail::AllGiven;
using vsk::detail::Guarded;
using vsk::detail::IsTraced;
using vsk::detail::Tell;

namespace {

void Trace(const vskIOHandle& handle, const std::string& text) {
  TRootObject::GetCoreLogger()->Log(handle.plugin, 4, text);
}

const std::string& OpenClassName(const vskIOHandle& handle) {
  return handle.currentInstance->GetClass().GetName();
}

// True when an instance is open; the complaint is the same for the whole family.
bool IsOpen(const vskIOHandle& handle) {
  if (handle.currentInstance) return true;
  Tell(nullptr, "vskAddProperty: no current instance");
  return false;
}

// The class of that name, or null with the failure told and its status stored.
TCIMClass* LookUpClass(const vskIOHandle& handle, const char* name, vskStatus& status) {
  TCIMClass* found = nullptr;
  status = Guarded(
      "vskAddClass", [&] { found = &handle.container->GetClass(name); },
      [&](vskStatus failure) {
        Tell(nullptr, "vskAddClass: GetClass(", name, ") threw exception ",
             vskTranslateStatusCode(failure));
      });
  return found;
}

vskStatus OpenInstance(vskIOHandle& handle, TCIMClass& cimClass) {
  return Guarded(
      "vskAddClass",
      [&] {
        try {
          handle.currentInstance.reset(&handle.container->AllocateInstance(&cimClass));
        } catch (const std::bad_alloc&) {
          Tell(nullptr, "vskAddClass: CIM class ", cimClass.GetName(), ": no memory");
          throw;
        }
      },
      [&](vskStatus failure) {
        Tell(nullptr, "vskAddClass: Allocate instance (CIM class ", cimClass.GetName(),
             ") threw exception ", vskTranslateStatusCode(failure));
      });
}

// A value without a text ends the call here, whether or not anybody reads the trace.
vskStatus TraceValue(const vskIOHandle& handle, const char* name, const TCIMValue& value) {
  return Guarded("vskAddCIMValueProperty", [&] {
    if (!IsTraced()) return vsk::detail::RequireText(value);
    Trace(handle, "vskAdd<>Property(" + std::string(name) + ", value=" + value.ToString(10) + ")");
  });
}

vskStatus SetValue(vskIOHandle& handle, const char* name, const TCIMValue& value) {
  return Guarded(
      "vskAddCIMValueProperty", [&] { handle.currentInstance->SetPropertyValue(name, value); },
      [&](vskStatus failure) {
        Tell(nullptr, "AddProperty: CIM class ", OpenClassName(handle), " threw exception ",
             vskTranslateStatusCode(failure));
      });
}

vskStatus SetText(vskIOHandle& handle, const char* name, const char* value) {
  return Guarded(
      "vskAddProperty",
      [&] {
        TCIMInstance& instance = *handle.currentInstance;
        std::string text(value);
        const TCIMPropertyDecl& declaration = instance.GetClass().GetPropertyDecl(name);
        instance.SetPropertyValue(name, TCIMValue(declaration.GetType(), text, *handle.container));
      },
      [&](vskStatus failure) {
        const bool missing = failure == vskStatusNotFound;
        Tell(nullptr, "vskAddProperty: CIM class ", OpenClassName(handle), " threw exception ",
             vskTranslateStatusCode(failure), missing ? " name='" : "", missing ? name : "",
             missing ? "'" : "");
      });
}

// Builds the value and hands it to the one function that stores it, which tests the pointers.
template <typename TArgument>
vskStatus AddTyped(const char* function, vskIOHandle* handle, const char* name,
                   const TArgument& value) {
  vskStatus stored = vskStatusFail;
  const vskStatus built = Guarded(function, [&] {
    const TCIMValue typed(value);
    stored = vskAddCIMValueProperty(handle, name, &typed);
  });
  return built != vskStatusOK ? built : stored;
}

}  // namespace

void vsk::detail::CloseInstance(vskIOHandle& handle) {
  if (!handle.currentInstance) return;
  try {
    handle.currentInstance->AddToContainer();
  } catch (const TVSKException& exception) {
    Tell(nullptr, "vskAddClass: CIM class ", OpenClassName(handle), " threw exception ",
         vskTranslateStatusCode(exception.status));
    throw;
  }
  static_cast<void>(handle.currentInstance.release());  // the class's from here on
}

vskStatus vskAddClass(vskIOHandle* handle, const char* name) {
  if (!AllGiven(nullptr, __func__, "vskIOHandle", handle)) return vskStatusFail;
  if (!AllGiven(handle->plugin, __func__, "name", name)) return vskStatusFail;
  const vskStatus closed = Guarded(__func__, [&] {
    if (IsTraced()) Trace(*handle, "vskAddClass(" + std::string(name) + ")");
    vsk::detail::CloseInstance(*handle);
  });
  if (closed != vskStatusOK) return closed;
  vskStatus status = vskStatusOK;
  TCIMClass* cimClass = LookUpClass(*handle, name, status);
  return cimClass == nullptr ? status : OpenInstance(*handle, *cimClass);
}

vskStatus vskAddProperty(vskIOHandle* handle, const char* name, const char* value) {
  if (!AllGiven(nullptr, __func__, "vskIOHandle", handle)) return vskStatusFail;
  if (!AllGiven(handle->plugin, __func__, "name and/or value", name, value)) return vskStatusFail;
  if (IsTraced()) {
    const vskStatus traced = Guarded(__func__, [&] {
      Trace(*handle, "vskAddProperty(" + std::string(name) + ", value=" + value + ")");
    });
    if (traced != vskStatusOK) return traced;
  }
  if (!IsOpen(*handle)) return vskStatusInvalidClass;
  return SetText(*handle, name, value);
}

vskStatus vskAddCIMValueProperty(vskIOHandle* handle, const char* name, const TCIMValue* value) {
  if (!AllGiven(nullptr, __func__, "vskIOHandle", handle)) return vskStatusFail;
  if (!AllGiven(handle->plugin, __func__, "name", name)) return vskStatusFail;
  if (!AllGiven(handle->plugin, __func__, "value", value)) return vskStatusFail;
  const vskStatus traced = TraceValue(*handle, name, *value);
  if (traced != vskStatusOK) return traced;
  if (!IsOpen(*handle)) return vskStatusInvalidClass;
  return SetValue(*handle, name, *value);
}

vskStatus vskAddBooleanProperty(vskIOHandle* handle, const char* name, int32_t value) {
  return AddTyped(__func__, handle, name, value != 0);
}

vskStatus vskAddUint8Property(vskIOHandle* handle, const char* name, uint8_t value) {
  return AddTyped(__func__, handle, name, value);
}

vskStatus vskAddSint8Property(vskIOHandle* handle, const char* name, int8_t value) {
  return AddTyped(__func__, handle, name, value);
}

vskStatus vskAddUint16Property(vskIOHandle* handle, const char* name, uint16_t value) {
  return AddTyped(__func__, handle, name, value);
}

vskStatus vskAddSint16Property(vskIOHandle* handle, const char* name, int16_t value) {
  return AddTyped(__func__, handle, name, value);
}

vskStatus vskAddUint32Property(vskIOHandle* handle, const char* name, uint32_t value) {
  return AddTyped(__func__, handle, name, value);
}

vskStatus vskAddSint32Property(vskIOHandle* handle, const char* name, int32_t value) {
  return AddTyped(__func__, handle, name, value);
}

vskStatus vskAddUint64Property(vskIOHandle* handle, const char* name, uint64_t value) {
  return AddTyped(__func__, handle, name, value);
}

vskStatus vskAddSint64Property(vskIOHandle* handle, const char* name, int64_t value) {
  return AddTyped(__func__, handle, name, value);
}

vskStatus vskAddStringProperty(vskIOHandle* handle, const char* name, const char* value) {
  if (!AllGiven(nullptr, __func__, "value and/or name", value, name)) return vskStatusFail;
  return AddTyped(__func__, handle, name, value);
}

vskStatus vskAddArrayProperty(vskIOHandle* handle, const char* name,
                              const vskCIMValueArray* pArray) {
  if (!AllGiven(nullptr, __func__, "name and/or pArray", name, pArray)) return vskStatusFail;
  if (!AllGiven(nullptr, "vskAddCIMValueProperty", "vskIOHandle", handle)) return vskStatusFail;
  if (!IsOpen(*handle)) return vskStatusInvalidClass;
  vskStatus stored = vskStatusFail;
  const vskStatus built = Guarded(__func__, [&] {
    const TCIMPropertyDecl& declaration = handle->currentInstance->GetClass().GetPropertyDecl(name);
    const TCIMValue array(declaration.GetType(), 0, pArray->elements);
    stored = vskAddCIMValueProperty(handle, name, &array);
  });
  return built != vskStatusOK ? built : stored;
}

vskStatus vskAddReferenceProperty(vskIOHandle* handle, const char* name,
                                  const TCIMReference* pRef) {
  if (!AllGiven(nullptr, __func__, "name and/or pRef", name, pRef)) return vskStatusFail;
  return AddTyped(__func__, handle, name, *pRef);
}

vskStatus vskAddDateTimeProperty(vskIOHandle* handle, const char* name,
                                 const TCIMDateTime* pDateTime) {
  if (!AllGiven(nullptr, __func__, "name and/or pDateTime", name, pDateTime)) return vskStatusFail;
  return AddTyped(__func__, handle, name, *pDateTime);
}
