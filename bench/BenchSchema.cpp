#include "BenchSchema.h"

#include <vskcore/core/TVSKException.h>
#include <vskcore/model/TCIMClass.h>
#include <vskcore/model/TCIMInstance.h>
#include <vskcore/model/TCIMPropertyDecl.h>
#include <vskcore/model/TCIMQualifier.h>
#include <vskcore/model/TContainer.h>
#include <vskcore/vskplugin.h>

#include <stdexcept>
#include <string>

#include "cinterface/vskIOHandle.h"

using TType = TCIMValue::TCIMType;

namespace {

TCIMValue NullReference(TCIMClass& target) {
  TCIMValue null = NullOf(TType::cimReference);
  null.SetReferencedClass(target);
  return null;
}

// Of one length for all numbers, so that more instances don't have longer texts.
std::string DigitsOf(std::uint32_t number) { return std::to_string(10000000 + number); }

std::string IdOf(std::uint32_t number) { return "disk:nvme" + DigitsOf(number) + "n1"; }

void WriteReference(vskIOHandle& handle, const char* name, const char* className,
                    std::uint32_t number) {
  TCIMReference* reference = nullptr;
  Expect(vskNewCIMReference(&reference, &handle));
  Expect(vskSetReferenceClassName(reference, className));
  Expect(vskReferenceAddString(reference, "InstanceID", IdOf(number).c_str()));
  Expect(vskAddReferenceProperty(&handle, name, reference));
  Expect(vskDeleteCIMReference(reference));
}

}  // namespace

void Expect(vskStatus status) {
  if (status != vskStatusOK) throw std::runtime_error(vskTranslateStatusCode(status));
}

TCIMValue NullOf(TCIMValue::ECIMType type) { return TCIMValue(TType(type), 0); }

void Qualify(ICIMAllowQualifiers& holder, TContainer& container, const char* name,
             const TCIMValue& value) {
  if (container.FindQualifierDecl(name) == nullptr) {
    container
        .AllocateQualifierDecl(name, NullOf(value.GetType()), TCIMQualifierDecl::scopeNone,
                               TCIMQualifierDecl::flavorToSubclass)
        .AddToContainer();
  }
  auto qualifier = std::make_unique<TCIMQualifier>(container.GetQualifierDecl(name), value);
  holder.AddQualifier(*qualifier);
  static_cast<void>(qualifier.release());
}

void Declare(TCIMClass& cimClass, const char* name, const TCIMValue& value, bool key) {
  auto declaration = std::make_unique<TCIMPropertyDecl>(name, cimClass, value);
  if (key) Qualify(*declaration, cimClass.GetContainer(), "KEY");
  Added(std::move(declaration));
}

void DeclareDevices(TContainer& container) {
  std::unique_ptr<TCIMClass> made(&container.AllocateClass("Bench_Device", nullptr));
  Declare(*made, "InstanceID", NullOf(TType::cimString), true);
  Declare(*made, "DateTimeOfCollection", NullOf(TType::cimDateTime));
  Declare(*made, "ElementName", NullOf(TType::cimString));
  Declare(*made, "SerialNumber", NullOf(TType::cimString));
  Declare(*made, "Capacity", NullOf(TType::cimUint64));
  Declare(*made, "RotationSpeed", NullOf(TType::cimUint32));
  Declare(*made, "Status", NullOf(TType::cimUint16));
  Declare(*made, "Removable", NullOf(TType::cimBoolean));
  TCIMClass& device = Added(std::move(made));
  made.reset(&container.AllocateClass("Bench_Part", &device));
  TCIMClass& part = Added(std::move(made));
  made.reset(&container.AllocateClass("Bench_DevicePart", nullptr));
  Qualify(*made, container, "ASSOCIATION");
  Declare(*made, "Antecedent", NullReference(device), true);
  Declare(*made, "Dependent", NullReference(part), true);
  Added(std::move(made));
}

// The time of the collection is the core's to write.
void WriteDevice(vskIOHandle& handle, const char* className, std::uint32_t number) {
  Expect(vskAddClass(&handle, className));
  Expect(vskAddStringProperty(&handle, "InstanceID", IdOf(number).c_str()));
  Expect(vskAddStringProperty(&handle, "ElementName", "Solid State Drive 980 PRO 1TB"));
  Expect(
      vskAddStringProperty(&handle, "SerialNumber", ("S5GXNX0R" + std::to_string(number)).c_str()));
  Expect(vskAddUint64Property(&handle, "Capacity", std::uint64_t{number} << 20));
  Expect(vskAddUint32Property(&handle, "RotationSpeed", 7200));
  Expect(vskAddUint16Property(&handle, "Status", static_cast<std::uint16_t>(number % 8)));
  Expect(vskAddBooleanProperty(&handle, "Removable", static_cast<std::int32_t>(number % 2)));
}

void WriteDevicePart(vskIOHandle& handle, std::uint32_t device, std::uint32_t part) {
  Expect(vskAddClass(&handle, "Bench_DevicePart"));
  WriteReference(handle, "Antecedent", "Bench_Device", device);
  WriteReference(handle, "Dependent", "Bench_Part", part);
}

void CloseQuery(vskIOHandle& handle) { Added(std::move(handle.currentInstance)); }
