#include <vskcore/core/TRootObject.h>
#include <vskcore/model/TCIMClass.h>
#include <vskcore/model/TCIMQualifier.h>
#include <vskcore/model/TCIMQualifierDecl.h>
#include <vskcore/model/TCIMValue.h>
#include <vskcore/model/TContainer.h>
#include <vskcore/platform/TOSSpecific.h>
#include <vskcore/plugin/IPluginCallbacks.h>
#include <vskcore/plugin/IPluginManager.h>
#include <vskcore/plugin/TPlugin.h>

#include <memory>
#include <utility>

#include "core/base/Fail.h"

using vsk::detail::LogError;

namespace {

// What a plug-in's classes are marked with.
struct TMarks {
  const TCIMQualifierDecl* name;
  const TCIMQualifierDecl* version;
};

TMarks FindMarks(const TContainer& container) {
  try {
    const TCIMQualifierDecl& name = container.GetQualifierDecl("PLUGINNAME");
    return {&name, &container.GetQualifierDecl("PLUGINVERSION")};
  } catch (const TVSKException&) {
    LogError("Couldn't find PLUGINNAME/PLUGINVERSION qualifier decl");
    throw;
  }
}

void Mark(TCIMClass& cimClass, const TCIMQualifierDecl& declaration, const std::string& text) {
  auto qualifier = std::make_unique<TCIMQualifier>(declaration, TCIMValue(text));
  cimClass.AddQualifier(*qualifier);
  // A class that holds an equal one already has not taken this one over.
  if (cimClass.FindQualifier(declaration.GetName()) == qualifier.get()) qualifier.release();
}

}  // namespace

TPlugin::TPlugin(IPluginCallbacks* callbacks) : callbacks_(callbacks), initialized_(false) {}
TPlugin::TPlugin(const TPlugin& other) = default;
TPlugin& TPlugin::operator=(const TPlugin& other) = default;
TPlugin::~TPlugin() = default;

IPluginCallbacks* TPlugin::GetCallbacks() { return callbacks_; }

void TPlugin::Initialize() {
  callbacks_->Initialize();
  initialized_ = true;
}

bool TPlugin::IsInitialized() { return initialized_; }

const std::string TPlugin::GetPath() { return path_; }

const std::string TPlugin::GetSpecificationPath() {
  return TOSSpecific::BuildSpecificationPath(path_);
}

std::vector<TCIMClass*> TPlugin::GetClassesCollected() {
  std::vector<TCIMClass*> present;
  for (std::size_t i = 0; i < classes_.size(); ++i) {
    const TContainer& container = *TRootObject::GetPluginManager()->GetContainer();
    if (container.FindClass(classNames_[i]) == classes_[i]) present.push_back(classes_[i]);
  }
  if (present.empty()) throw TVSKException(vskStatusFail);
  return present;
}

void TPlugin::SetPath(std::string path) { path_ = std::move(path); }

void TPlugin::LoadSpecificationDocument() {
  TContainer& container = *TRootObject::GetPluginManager()->GetContainer();
  std::vector<TCIMClass*> added = container.PopulateContainerFromFile(GetSpecificationPath());
  std::vector<std::string> names;
  names.reserve(added.size());
  for (const TCIMClass* cimClass : added) names.push_back(cimClass->GetName());
  classes_.swap(added);
  classNames_.swap(names);
  const TMarks marks = FindMarks(container);
  for (TCIMClass* cimClass : classes_) {
    Mark(*cimClass, *marks.name, callbacks_->GetName());
    Mark(*cimClass, *marks.version, callbacks_->GetVersion());
  }
}
