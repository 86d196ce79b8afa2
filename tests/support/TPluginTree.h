// A tree of plug-ins on disk, and a fresh plug-in manager over it.
#ifndef VSKCORE_TESTS_SUPPORT_TPLUGINTREE_H
#define VSKCORE_TESTS_SUPPORT_TPLUGINTREE_H

#include <vskcore/plugin/IPluginManager.h>

#include <string>
#include <vector>

#include "support/TTempDir.h"

// A specification document of these classes.
std::string Document(const std::vector<std::string>& classes);
// A class with a uint32 key Id.
std::string ClassText(const std::string& name, const std::vector<std::string>& qualifiers = {});
// Without a value it is NULL.
std::string QualifierText(const std::string& name, const std::string& type,
                          const std::string& value);
// An association with the two classes at its ends, keys both.
std::string AssociationText(const std::string& name, const std::string& antecedent,
                            const std::string& dependent);

// For one test. Where the process has a plug-in manager already, it is replaced, and the query
// manager is made with the first. The new manager's container holds the core's own document.
class TPluginTree {
 public:
  TPluginTree();

  IPluginManager& Manager() const;
  // A copy of the plug-in of that behaviour, with that document beside it unless it is empty; gives
  // the library's path. A folder's name decides its place in the order of loading.
  std::string Add(const std::string& behaviour, const std::string& document = "",
                  const std::string& folder = "") const;
  const TTempDir& Folder() const { return folder_; }

 private:
  TTempDir folder_;
};

#endif
