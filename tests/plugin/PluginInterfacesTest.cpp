#include <gtest/gtest.h>
#include <vskcore/plugin/IPlugin.h>
#include <vskcore/plugin/IPluginAdvancedQueryCallbacks.h>
#include <vskcore/plugin/IPluginBasicQueryCallbacks.h>
#include <vskcore/plugin/IPluginCallbacks.h>
#include <vskcore/plugin/IPluginManager.h>
#include <vskcore/plugin/IPluginWriteCallbacks.h>
#include <vskcore/plugin/IQueryManager.h>

#include <cstring>
#include <vector>

namespace {

// The place of a virtual operation in its table. The Itanium C++ ABI, which all compilers that we
// build with follow, keeps one more than the offset in the pointer, and two destructors in front.
template <typename TMember>
std::ptrdiff_t Place(TMember member) {
  std::ptrdiff_t word = 0;
  static_assert(sizeof(member) >= sizeof(word));
  std::memcpy(&word, &member, sizeof(word));
  return (word - 1) / static_cast<std::ptrdiff_t>(sizeof(void*)) - 1;
}

TEST(PluginInterfacesTest, OperationsKeepTheirPlaces) {
  using TPlaces = std::vector<std::ptrdiff_t>;
  EXPECT_EQ((TPlaces{1, 2, 3, 4, 5, 6, 7}),
            (TPlaces{Place(&IPluginCallbacks::GetType), Place(&IPluginCallbacks::GetName),
                     Place(&IPluginCallbacks::GetVersion), Place(&IPluginCallbacks::GetInfoText),
                     Place(&IPluginCallbacks::Destroy), Place(&IPluginCallbacks::Initialize),
                     Place(&IPluginCallbacks::Finalize)}));
  EXPECT_EQ((TPlaces{1}), (TPlaces{Place(&IPluginBasicQueryCallbacks::QueryClasses)}));
  EXPECT_EQ((TPlaces{1, 2}), (TPlaces{Place(&IPluginAdvancedQueryCallbacks::EnumerateInstanceNames),
                                      Place(&IPluginAdvancedQueryCallbacks::QueryInstance)}));
  EXPECT_EQ((TPlaces{1, 2}), (TPlaces{Place(&IPluginWriteCallbacks::ModifyInstance),
                                      Place(&IPluginWriteCallbacks::DeleteInstance)}));
  EXPECT_EQ((TPlaces{1, 2, 3, 4, 5, 6}),
            (TPlaces{Place(&IPlugin::GetCallbacks), Place(&IPlugin::Initialize),
                     Place(&IPlugin::IsInitialized), Place(&IPlugin::GetPath),
                     Place(&IPlugin::GetSpecificationPath), Place(&IPlugin::GetClassesCollected)}));
  EXPECT_EQ((TPlaces{1, 2, 3, 4, 5, 6}),
            (TPlaces{Place(&IPluginManager::LoadPlugins), Place(&IPluginManager::LoadPlugin),
                     Place(&IPluginManager::RegisterPlugin), Place(&IPluginManager::GetPlugins),
                     Place(&IPluginManager::FindPlugin), Place(&IPluginManager::GetContainer)}));
  EXPECT_EQ((TPlaces{1, 2}),
            (TPlaces{Place(&IQueryManager::QueryClasses), Place(&IQueryManager::QueryPlugin)}));
}

}  // namespace
