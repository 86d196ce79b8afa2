// The bodies that the plug-in interfaces need: one home each for virtual table and type, so that
// dynamic_cast works between the core, a host and a plug-in.
#include <vskcore/plugin/IPlugin.h>
#include <vskcore/plugin/IPluginAdvancedQueryCallbacks.h>
#include <vskcore/plugin/IPluginBasicQueryCallbacks.h>
#include <vskcore/plugin/IPluginCallbacks.h>
#include <vskcore/plugin/IPluginManager.h>
#include <vskcore/plugin/IPluginWriteCallbacks.h>
#include <vskcore/plugin/IQueryManager.h>

IPlugin::IPlugin() = default;
IPlugin::IPlugin(const IPlugin&) = default;
IPlugin& IPlugin::operator=(const IPlugin&) = default;
IPlugin::~IPlugin() = default;

IPluginAdvancedQueryCallbacks::IPluginAdvancedQueryCallbacks() = default;
IPluginAdvancedQueryCallbacks::IPluginAdvancedQueryCallbacks(const IPluginAdvancedQueryCallbacks&) =
    default;
IPluginAdvancedQueryCallbacks& IPluginAdvancedQueryCallbacks::operator=(
    const IPluginAdvancedQueryCallbacks&) = default;
IPluginAdvancedQueryCallbacks::~IPluginAdvancedQueryCallbacks() = default;

IPluginBasicQueryCallbacks::IPluginBasicQueryCallbacks() = default;
IPluginBasicQueryCallbacks::IPluginBasicQueryCallbacks(const IPluginBasicQueryCallbacks&) = default;
IPluginBasicQueryCallbacks& IPluginBasicQueryCallbacks::operator=(
    const IPluginBasicQueryCallbacks&) = default;
IPluginBasicQueryCallbacks::~IPluginBasicQueryCallbacks() = default;

IPluginCallbacks::IPluginCallbacks() = default;
IPluginCallbacks::IPluginCallbacks(const IPluginCallbacks&) = default;
IPluginCallbacks& IPluginCallbacks::operator=(const IPluginCallbacks&) = default;
IPluginCallbacks::~IPluginCallbacks() = default;

IPluginManager::IPluginManager() = default;
IPluginManager::IPluginManager(const IPluginManager&) = default;
IPluginManager& IPluginManager::operator=(const IPluginManager&) = default;
IPluginManager::~IPluginManager() = default;

IPluginWriteCallbacks::IPluginWriteCallbacks() = default;
IPluginWriteCallbacks::IPluginWriteCallbacks(const IPluginWriteCallbacks&) = default;
IPluginWriteCallbacks& IPluginWriteCallbacks::operator=(const IPluginWriteCallbacks&) = default;
IPluginWriteCallbacks::~IPluginWriteCallbacks() = default;

IQueryManager::IQueryManager() = default;
IQueryManager::IQueryManager(const IQueryManager&) = default;
IQueryManager& IQueryManager::operator=(const IQueryManager&) = default;
IQueryManager::~IQueryManager() = default;
