// How the benches declare classes, and the devices that some of them write as a plug-in in C does.
#ifndef VSKCORE_BENCH_BENCHSCHEMA_H
#define VSKCORE_BENCH_BENCHSCHEMA_H

#include <vskcore/core/vskStatus.h>
#include <vskcore/model/TCIMValue.h>

#include <cstdint>
#include <memory>

class ICIMAllowQualifiers;
class TCIMClass;
class TContainer;
struct vskIOHandle;

// Fails the bench for any other status than vskStatusOK.
void Expect(vskStatus status);

// Adds a heap object, which belongs to the container from then on.
template <typename TElement>
TElement& Added(std::unique_ptr<TElement> element) {
  element->AddToContainer();
  return *element.release();
}

TCIMValue NullOf(TCIMValue::ECIMType type);

// Adds a qualifier, and declares its type in the container if need be.
void Qualify(ICIMAllowQualifiers& holder, TContainer& container, const char* name,
             const TCIMValue& value = TCIMValue(true));

// Adds a declaration with that type and default to a class.
void Declare(TCIMClass& cimClass, const char* name, const TCIMValue& value, bool key = false);

// Bench_Device with 8 properties: a key such as "disk:nvme17n1", the time of the collection, two
// texts, and numbers of four types. Bench_Part is a device otherwise, for an association that had
// one class at both ends would register nowhere; Bench_DevicePart joins the two.
void DeclareDevices(TContainer& container);

// Each writes one instance by the functions of the C interface.
void WriteDevice(vskIOHandle& handle, const char* className, std::uint32_t number);
void WriteDevicePart(vskIOHandle& handle, std::uint32_t device, std::uint32_t part);
// What the end of a query does: the last instance joins its class.
void CloseQuery(vskIOHandle& handle);

#endif
