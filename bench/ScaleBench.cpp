// How time and memory grow with the number of instances: documents of several sizes loaded, and a
// container filled through the C interface and walked.
#include <vskcore/core/TRootObject.h>
#include <vskcore/model/ICIMElement.h>
#include <vskcore/model/TCIMClass.h>
#include <vskcore/model/TCIMInstance.h>
#include <vskcore/model/TCIMProperty.h>
#include <vskcore/model/TCIMPropertyDecl.h>
#include <vskcore/model/TCIMQualifier.h>
#include <vskcore/model/TCIMReference.h>
#include <vskcore/model/TCIMValue.h>
#include <vskcore/model/TContainer.h>
#include <vskcore/vskplugin.h>

#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <stdexcept>

#include "BenchSupport.h"
#include "cinterface/vskIOHandle.h"

namespace {

using TType = TCIMValue::TCIMType;

const int kWalks = 1000;

void Expect(vskStatus status) {
  if (status != vskStatusOK) throw std::runtime_error(vskTranslateStatusCode(status));
}

// Loading.

TContender Loading(const std::string& schema, const std::string& path) {
  const auto container = std::make_shared<std::unique_ptr<TContainer>>();
  const auto before = [=] {
    *container = std::make_unique<TContainer>();
    (*container)->PopulateContainerFromFile(schema);
  };
  const auto run = [=] { (*container)->PopulateContainerFromFile(path); };
  return {path.substr(path.rfind('/') + 1), before, run, [=] { container->reset(); }};
}

// The row of the largest tells by its last column how the time has grown.
void CompareLoads(int argc, char** argv) {
  std::vector<TContender> loads;
  for (int i = 2; i < argc; ++i) loads.push_back(Loading(argv[1], argv[i]));
  CompareCalls("Loading ever more instances", 1, loads);
}

// Filling. Associations join devices to parts, for one with the same class at both ends registers
// nowhere; a part is a device otherwise.

TCIMValue NullOf(TCIMValue::ECIMType type) { return TCIMValue(TType(type), 0); }

TCIMValue NullReference(TCIMClass& target) {
  TCIMValue null = NullOf(TType::cimReference);
  null.SetReferencedClass(target);
  return null;
}

template <typename TElement>
TElement& Added(std::unique_ptr<TElement> element) {
  element->AddToContainer();
  return *element.release();
}

void Qualify(ICIMAllowQualifiers& holder, const TContainer& container, const char* name) {
  auto qualifier =
      std::make_unique<TCIMQualifier>(container.GetQualifierDecl(name), TCIMValue(true));
  holder.AddQualifier(*qualifier);
  static_cast<void>(qualifier.release());
}

void Declare(TCIMClass& cimClass, const char* name, const TCIMValue& value, bool key = false) {
  auto declaration = std::make_unique<TCIMPropertyDecl>(name, cimClass, value);
  if (key) Qualify(*declaration, cimClass.GetContainer(), "KEY");
  Added(std::move(declaration));
}

void DeclareClasses(TContainer& container) {
  for (const char* name : {"KEY", "ASSOCIATION"}) {
    container
        .AllocateQualifierDecl(name, NullOf(TType::cimBoolean), TCIMQualifierDecl::scopeNone,
                               TCIMQualifierDecl::flavorToSubclass)
        .AddToContainer();
  }
  std::unique_ptr<TCIMClass> made(&container.AllocateClass("Bench_Device", nullptr));
  Declare(*made, "Id", NullOf(TType::cimUint32), true);
  for (const char* name : {"Name", "Manufacturer", "SerialNumber"}) {
    Declare(*made, name, NullOf(TType::cimString));
  }
  Declare(*made, "Capacity", NullOf(TType::cimUint64));
  Declare(*made, "Speed", NullOf(TType::cimUint64));
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

void WriteInstance(vskIOHandle& handle, const char* className, std::uint32_t id) {
  const std::string number = std::to_string(id);
  Expect(vskAddClass(&handle, className));
  Expect(vskAddUint32Property(&handle, "Id", id));
  Expect(vskAddStringProperty(&handle, "Name", ("Device " + number).c_str()));
  Expect(vskAddStringProperty(&handle, "Manufacturer", "Makers of Things, Inc."));
  Expect(vskAddStringProperty(&handle, "SerialNumber", ("SN-0000-0000-" + number).c_str()));
  Expect(vskAddUint64Property(&handle, "Capacity", std::uint64_t{id} << 20));
  Expect(vskAddUint64Property(&handle, "Speed", 6000000000));
  Expect(vskAddUint16Property(&handle, "Status", static_cast<std::uint16_t>(id % 8)));
  Expect(vskAddBooleanProperty(&handle, "Removable", id % 2));
}

void WriteReference(vskIOHandle& handle, const char* name, const char* className,
                    std::uint32_t id) {
  TCIMReference* reference = nullptr;
  Expect(vskNewCIMReference(&reference, &handle));
  Expect(vskSetReferenceClassName(reference, className));
  Expect(vskReferenceAddUint32(reference, "Id", id));
  Expect(vskAddReferenceProperty(&handle, name, reference));
  Expect(vskDeleteCIMReference(reference));
}

void WriteAssociation(vskIOHandle& handle, std::uint32_t device, std::uint32_t part) {
  Expect(vskAddClass(&handle, "Bench_DevicePart"));
  WriteReference(handle, "Antecedent", "Bench_Device", device);
  WriteReference(handle, "Dependent", "Bench_Part", part);
}

void ResolveAll(const TContainer& container) {
  for (const TCIMInstance* association :
       container.GetClass("Bench_DevicePart").EnumerateInstances(false)) {
    for (const TCIMProperty* end : association->EnumerateProperties()) {
      static_cast<void>(static_cast<TCIMReference>(end->GetValue()).GetCIMElement());
    }
  }
}

void WalkFrom(const TContainer& container, std::size_t each) {
  const std::vector<TCIMInstance*> devices =
      container.GetClass("Bench_Device").EnumerateInstances(false);
  const std::size_t step = devices.size() / kWalks;
  for (std::size_t i = 0; i < kWalks; ++i) {
    const std::size_t found = devices[i * step]->Associators("", "", "", "").size();
    if (found != each) throw std::runtime_error("a walk has lost something");
  }
}

// What the end of a query does.
void Close(vskIOHandle& handle) { Added(std::move(handle.currentInstance)); }

template <typename TStep>
void Time(const char* name, TStep step) {
  const auto start = std::chrono::steady_clock::now();
  step();
  const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
  std::printf("  %-44s %9.2f s\n", name, taken.count());
  std::fflush(stdout);
}

// Half of the instances are devices, half are parts; every one has two associations.
void Fill(std::uint32_t instances) {
  const std::uint32_t half = instances / 2;
  TContainer container;
  DeclareClasses(container);
  vskIOHandle handle{nullptr, &container, nullptr};
  std::printf("\n%u instances of 8 properties and as many associations\n", instances);
  const double empty = GetResidentBytes();
  Time("writing the instances", [&] {
    for (std::uint32_t id = 0; id < half; ++id) WriteInstance(handle, "Bench_Device", id);
    for (std::uint32_t id = 0; id < half; ++id) WriteInstance(handle, "Bench_Part", id);
    Close(handle);
  });
  const double filled = GetResidentBytes();
  Time("writing the associations", [&] {
    for (std::uint32_t i = 0; i < instances; ++i) {
      WriteAssociation(handle, i % half, static_cast<std::uint32_t>(i * 7919ull % half));
    }
    Close(handle);
  });
  const double linked = GetResidentBytes();
  Time("resolving every reference", [&] { ResolveAll(container); });
  Time("Associators from 1,000 of the devices", [&] { WalkFrom(container, 2); });
  std::printf("  %-44s %9.0f bytes each\n", "resident, an instance", (filled - empty) / instances);
  std::printf("  %-44s %9.0f bytes each\n", "resident, an association",
              (linked - filled) / instances);
}

}  // namespace

// Without arguments fills with 125,000 and with 1,000,000 instances, with one number fills with so
// many; else they name a schema and documents with instances, the smallest first.
int main(int argc, char** argv) {
  return RunBench([&] {
    if (argc > 2) return CompareLoads(argc, argv);
    if (argc == 2) return Fill(static_cast<std::uint32_t>(std::strtoul(argv[1], nullptr, 10)));
    Fill(125000);
    Fill(1000000);
  });
}
