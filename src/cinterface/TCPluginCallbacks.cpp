#include "cinterface/TCPluginCallbacks.h"

#include <vskcore/core/TRootObject.h>
#include <vskcore/core/TVSKException.h>
#include <vskcore/model/TCIMClass.h>
#include <vskcore/plugin/IPlugin.h>
#include <vskcore/plugin/IPluginManager.h>

#include "cinterface/vskIOHandle.h"

namespace {

void ThrowUnlessOK(vskStatus status) {
  if (status != vskStatusOK) throw TVSKException(status);
}

// A plug-in that leaves a text out must not bring the core down.
std::string TextOf(const char* text) { return text == nullptr ? std::string() : text; }

}  // namespace

TCPluginCallbacks::TCPluginCallbacks(const vskPluginCallbacks& table)
    : table_(table), plugin_(TRootObject::GetPluginManager()->RegisterPlugin(this)) {}

// The handle is the address of the first base, by which the log finds its way back as well.
TCPluginCallbacks& TCPluginCallbacks::FromHandle(vskPluginHandle handle) {
  return static_cast<TCPluginCallbacks&>(*reinterpret_cast<IPluginCallbacks*>(handle));
}

vskPluginHandle TCPluginCallbacks::Handle() {
  return reinterpret_cast<vskPluginHandle>(static_cast<IPluginCallbacks*>(this));
}

std::int32_t TCPluginCallbacks::GetType() { return table_.getInfo(Handle()).type; }

std::string TCPluginCallbacks::GetName() { return TextOf(table_.getInfo(Handle()).name); }

std::string TCPluginCallbacks::GetVersion() { return TextOf(table_.getInfo(Handle()).version); }

std::string TCPluginCallbacks::GetInfoText() { return TextOf(table_.getInfo(Handle()).infoText); }

void TCPluginCallbacks::Destroy() {
  ThrowUnlessOK(table_.destroy(Handle()));
  delete this;
}

void TCPluginCallbacks::Initialize() {
  // Once: the plug-in may hold the text already when a host initialises it again.
  if (!path_) path_ = std::make_unique<const std::string>(plugin_->GetPath());
  ThrowUnlessOK(table_.initialize(Handle()));
}

void TCPluginCallbacks::Finalize() { ThrowUnlessOK(table_.finalize(Handle())); }

std::uint32_t TCPluginCallbacks::GetExtra() { return table_.getInfo(Handle()).extra; }

void TCPluginCallbacks::QueryClasses(TContainer* target, const std::vector<TCIMClass*>& classes) {
  vskIOHandle handle{plugin_, target, nullptr};
  // Copies: the plug-in sees the names as they were when it was asked.
  std::vector<std::string> names;
  names.reserve(classes.size());
  for (const TCIMClass* cimClass : classes) names.push_back(cimClass->GetName());
  std::vector<const char*> texts;
  texts.reserve(names.size());
  for (const std::string& name : names) texts.push_back(name.c_str());
  ThrowUnlessOK(
      table_.query(Handle(), &handle, texts.data(), static_cast<std::int32_t>(texts.size())));
  vsk::detail::CloseInstance(handle);
}
