// A stream of calls through the C interface, as a plug-in makes them while it is queried. A byte
// picks the function, each argument takes what it needs from the bytes behind. What the header
// forbids is left out, and only that: objects are not used behind their deletion, and none of the
// pointers is NULL that may not be.
#include <vskcore/core/TRootObject.h>
#include <vskcore/model/TCIMClass.h>
#include <vskcore/model/TCIMDateTime.h>
#include <vskcore/model/TCIMReference.h>
#include <vskcore/model/TCIMValue.h>
#include <vskcore/model/TContainer.h>
#include <vskcore/vskplugin.h>

#include <cstring>
#include <iterator>
#include <list>
#include <tuple>
#include <utility>

#include "ContainerWalk.h"
#include "FuzzSupport.h"
#include "cinterface/TCPluginCallbacks.h"
#include "plugin/TPluginManager.h"
#include "support/StatusOf.h"

namespace {

constexpr std::size_t kMaxStreamSize = 4096;
constexpr std::size_t kSlots = 4;
// A reference that takes in itself doubles with each call.
constexpr int kMaxNestings = 10;

const char* const kNames[] = {
    "Base",   "Device",   "Event",   "Link",    "Meta",      "Unknown",
    "Id",     "Name",     "Boolean", "Uint8",   "Sint8",     "Uint16",
    "Sint16", "Uint32",   "Sint32",  "Uint64",  "Sint64",    "Real64",
    "String", "DateTime", "Uint8s",  "Strings", "DateTimes", "DateTimeOfCollection",
    "At",     "From",     "To",      "ID",      "7",         "true"};
const char* const kTexts[] = {
    "20051031175918.000000+060", "00000003120000.000000:000", "", "not a name", "3.5e300", nullptr};

// What one plug-in has in its hands during one query.
class TStream {
 public:
  explicit TStream(const std::string& bytes) : bytes_(bytes) {}
  ~TStream() {
    for (TCIMDateTime* dateTime : dateTimes_) vskDeleteCIMDateTime(dateTime);
    for (TCIMReference* reference : references_) vskDeleteCIMReference(reference);
    for (vskCIMValueArray* array : arrays_) vskDeleteCIMValueArray(array);
  }
  TStream(const TStream&) = delete;
  TStream& operator=(const TStream&) = delete;

  bool IsAtEnd() const { return place_ >= bytes_.size(); }
  void SetHandles(vskPluginHandle plugin, vskIOHandle* handle) {
    plugin_ = plugin;
    handle_ = handle;
  }
  bool MayNest() { return nestings_++ < kMaxNestings; }

  // Behind the end all bytes are 0.
  unsigned char TakeByte() {
    return IsAtEnd() ? '\0' : static_cast<unsigned char>(bytes_[place_++]);
  }

  // An argument of that type.
  template <typename TArgument>
  TArgument Take() {
    return Take(static_cast<TArgument*>(nullptr));
  }

  // A place for a new object; what stood there is deleted.
  template <typename TObject>
  TObject** TakePlace(TObject* (&slots)[kSlots], vskStatus (*destroy)(TObject*)) {
    TObject*& slot = slots[TakeByte() % kSlots];
    if (slot != nullptr) destroy(std::exchange(slot, nullptr));
    return &slot;
  }

 private:
  template <typename TNumber>
  TNumber Take(TNumber*) {
    TNumber number = 0;
    unsigned char bytes[sizeof number];
    for (unsigned char& byte : bytes) byte = TakeByte();
    std::memcpy(&number, bytes, sizeof number);
    return number;
  }
  const char* Take(const char**) {
    std::size_t choice = TakeByte();
    if (choice < std::size(kNames)) return kNames[choice];
    choice -= std::size(kNames);
    if (choice < std::size(kTexts)) return kTexts[choice];
    std::string text;
    for (choice -= std::size(kTexts); choice > 0 && !IsAtEnd(); --choice) {
      text += static_cast<char>(TakeByte());
    }
    return texts_.emplace_back(std::move(text)).c_str();
  }
  const char** Take(const char***) { return TakeByte() % 8 == 7 ? nullptr : &answer_; }
  vskPluginHandle Take(vskPluginHandle*) { return plugin_; }
  vskIOHandle* Take(vskIOHandle**) { return TakeByte() % 64 == 63 ? nullptr : handle_; }
  TCIMDateTime* Take(TCIMDateTime**) { return dateTimes_[TakeByte() % kSlots]; }
  TCIMDateTime** Take(TCIMDateTime***) { return TakePlace(dateTimes_, vskDeleteCIMDateTime); }
  const TCIMDateTime* Take(const TCIMDateTime**) { return Take<TCIMDateTime*>(); }
  TCIMReference* Take(TCIMReference**) { return references_[TakeByte() % kSlots]; }
  TCIMReference** Take(TCIMReference***) { return TakePlace(references_, vskDeleteCIMReference); }
  const TCIMReference* Take(const TCIMReference**) { return Take<TCIMReference*>(); }
  vskCIMValueArray* Take(vskCIMValueArray**) { return arrays_[TakeByte() % kSlots]; }
  vskCIMValueArray** Take(vskCIMValueArray***) {
    return TakePlace(arrays_, vskDeleteCIMValueArray);
  }
  const vskCIMValueArray* Take(const vskCIMValueArray**) { return Take<vskCIMValueArray*>(); }
  const TCIMValue* Take(const TCIMValue**) {
    const unsigned char type = TakeByte();
    if (type == 0xff) return nullptr;
    const char* const text = Take<const char*>();
    std::string given = text == nullptr ? "" : text;
    value_.SetNullValue(TCIMValue::TCIMType::cimNone, 0);
    StatusOf([&] {
      value_ = TCIMValue(static_cast<TCIMValue::ECIMType>(type % 17), given, container_);
    });
    return &value_;
  }

  const std::string& bytes_;
  std::size_t place_ = 0;
  int nestings_ = 0;
  vskPluginHandle plugin_ = nullptr;
  vskIOHandle* handle_ = nullptr;
  const char* answer_ = nullptr;
  TContainer container_;
  TCIMValue value_;
  std::list<std::string> texts_;
  TCIMDateTime* dateTimes_[kSlots] = {};
  TCIMReference* references_[kSlots] = {};
  vskCIMValueArray* arrays_[kSlots] = {};
};

template <typename... TArguments>
void Call(TStream& stream, vskStatus (*function)(TArguments...)) {
  const std::tuple<TArguments...> arguments{stream.Take<TArguments>()...};
  const vskStatus status = std::apply(function, arguments);
  Require(status >= 0 && status < vskStatusEnd, "a status has a name");
}

template <auto kFunction>
void Call(TStream& stream) {
  Call(stream, kFunction);
}

template <auto kFunction>
void Nest(TStream& stream) {
  if (stream.MayNest()) Call(stream, kFunction);
}

void WriteLog(TStream& stream) {
  const std::int32_t levels[] = {0, 1, 2, 3, 4, 100};
  const std::int32_t level = levels[stream.TakeByte() % std::size(levels)];
  vskWriteLog(stream.Take<vskPluginHandle>(), level, stream.Take<const char*>());
}

void AskForHandle(TStream& stream) {
  void* object = nullptr;
  Require(vskGetHandle(stream.Take<vskPluginHandle>(), &object) == vskStatusOK && object != nullptr,
          "a plug-in has its object");
}

using TCall = void (*)(TStream&);

const TCall kCalls[] = {
    Call<vskAddClass>,
    Call<vskAddProperty>,
    Call<vskAddCIMValueProperty>,
    Call<vskAddBooleanProperty>,
    Call<vskAddUint8Property>,
    Call<vskAddSint8Property>,
    Call<vskAddUint16Property>,
    Call<vskAddSint16Property>,
    Call<vskAddUint32Property>,
    Call<vskAddSint32Property>,
    Call<vskAddUint64Property>,
    Call<vskAddSint64Property>,
    Call<vskAddStringProperty>,
    Call<vskAddArrayProperty>,
    Call<vskAddReferenceProperty>,
    Call<vskAddDateTimeProperty>,
    Call<vskNewCIMDateTime>,
    Call<vskSetDateTime>,
    Call<vskSetDateTimeInterval>,
    Call<vskSetDateTimeString>,
    Call<vskGetLocalTime>,
    Call<vskNewCIMReference>,
    Call<vskSetReferencePath>,
    Call<vskSetReferenceClassName>,
    Call<vskReferenceAddBoolean>,
    Call<vskReferenceAddUint8>,
    Call<vskReferenceAddSint8>,
    Call<vskReferenceAddUint16>,
    Call<vskReferenceAddSint16>,
    Call<vskReferenceAddUint32>,
    Call<vskReferenceAddSint32>,
    Call<vskReferenceAddUint64>,
    Call<vskReferenceAddSint64>,
    Call<vskReferenceAddString>,
    Nest<vskReferenceAddReference>,
    Call<vskReferenceAddDateTime>,
    Call<vskNewCIMValueArray>,
    Call<vskArrayAddBoolean>,
    Call<vskArrayAddUint8>,
    Call<vskArrayAddSint8>,
    Call<vskArrayAddUint16>,
    Call<vskArrayAddSint16>,
    Call<vskArrayAddUint32>,
    Call<vskArrayAddSint32>,
    Call<vskArrayAddUint64>,
    Call<vskArrayAddSint64>,
    Call<vskArrayAddString>,
    Call<vskArrayAddReference>,
    Call<vskArrayAddDateTime>,
    Call<vskGetPluginPath>,
    Call<vskGetSystemCreationClassName>,
    Call<vskGetSystemName>,
    WriteLog,
    AskForHandle,
};

TStream* running = nullptr;  // in the query that is under way

vskStatus Succeed(vskPluginHandle) { return vskStatusOK; }

vskPluginInfo GetInfo(vskPluginHandle) { return {"fuzz", "1", "", 2, 0}; }

vskStatus Query(vskPluginHandle plugin, vskIOHandle* handle, const char* const* classNames,
                int32_t count) {
  for (int32_t i = 0; i < count; ++i) Require(std::strlen(classNames[i]) > 0, "a class has a name");
  running->SetHandles(plugin, handle);
  const bool fails = running->TakeByte() % 4 == 3;
  while (!running->IsAtEnd()) kCalls[running->TakeByte() % std::size(kCalls)](*running);
  return fails ? vskStatusFail : vskStatusOK;
}

// The process's core, without a document of its own, and one plug-in in it.
vskPluginHandle Register() {
  vsk::detail::CreatePluginManager("");
  const vskPluginCallbacks table = {nullptr, Succeed, Succeed, Query, GetInfo, Succeed};
  vskPluginHandle plugin = nullptr;
  Require(vskRegisterPlugin(&table, &plugin) == vskStatusOK, "a plug-in registers");
  return plugin;
}

TContainer& Schema() {
  static TContainer container;
  DeclareQualifiers(container);
  container.PopulateContainerFromFile(VSK_FUZZ_SCHEMA);
  return container;
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size > kMaxStreamSize) return 0;
  StartInput();
  static const vskPluginHandle plugin = Register();
  static TContainer& container = Schema();
  const std::string bytes(data, data + size);
  TStream calls(bytes);
  running = &calls;
  const std::vector<TCIMClass*> classes = container.GetRootClass().EnumerateSubClasses(true);
  StatusOf([&] { TCPluginCallbacks::FromHandle(plugin).QueryClasses(&container, classes); });
  WalkInstances(container);
  RemoveInstances(container);
  return 0;
}
