#include "common/TCollector.h"

#include <vskcore/core/ILogger.h>
#include <vskcore/core/TRootObject.h>
#include <vskcore/core/TVSKException.h>
#include <vskcore/core/vskVersion.h>
#include <vskcore/model/TCIMClass.h>
#include <vskcore/plugin/IPluginManager.h>

#include <exception>
#include <memory>
#include <utility>

#include "common/TSource.h"

bool TCollector::Register(const char* name, const char* info, std::vector<TEntry> entries) {
  IPluginManager* manager = TRootObject::GetPluginManager();
  if (manager == nullptr) return false;
  std::unique_ptr<TCollector> collector(new TCollector(name, info, std::move(entries)));
  collector->plugin_ = manager->RegisterPlugin(collector.get());
  static_cast<void>(collector.release());  // lives until Destroy
  return true;
}

TCollector::TCollector(const char* name, const char* info, std::vector<TEntry> entries)
    : name_(name), info_(info), entries_(std::move(entries)), plugin_(nullptr) {}

std::int32_t TCollector::GetType() { return 0; }
std::string TCollector::GetName() { return name_; }
std::string TCollector::GetVersion() { return VSK_VERSION; }
std::string TCollector::GetInfoText() { return info_; }
void TCollector::Destroy() { delete this; }
void TCollector::Initialize() {}
void TCollector::Finalize() {}

void TCollector::QueryClasses(TContainer* target, const std::vector<TCIMClass*>& classes) {
  const TSource source = TSource::FromEnvironment();
  for (TCIMClass* cimClass : classes) {
    try {
      QueryClass(source, *target, *cimClass);
    } catch (const std::exception& exception) {
      TRootObject::GetCoreLogger()->Log(
          plugin_, 0, "Couldn't collect " + cimClass->GetName() + ": " + exception.what());
    }
  }
}

void TCollector::QueryClass(const TSource& source, TContainer& target, TCIMClass& cimClass) {
  for (const TEntry& entry : entries_) {
    if (cimClass.GetName() == entry.className) return entry.collect(source, target, cimClass);
  }
  throw TVSKException(vskStatusUnknownClass);
}
