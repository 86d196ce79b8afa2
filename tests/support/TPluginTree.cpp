#include "support/TPluginTree.h"

#include <vskcore/core/TRootObject.h>
#include <vskcore/model/TContainer.h>

#include <filesystem>

#include "plugin/TPluginManager.h"
#include "plugin/TQueryManager.h"

namespace {

const char* const kKey = "<QUALIFIER NAME='KEY' TYPE='boolean'><VALUE>true</VALUE></QUALIFIER>";

std::string Reference(const std::string& name, const std::string& cimClass) {
  return "<PROPERTY.REFERENCE NAME='" + name + "' REFERENCECLASS='" + cimClass + "'>" + kKey +
         "</PROPERTY.REFERENCE>";
}

}  // namespace

std::string Document(const std::vector<std::string>& classes) {
  std::string objects;
  for (const std::string& text : classes) objects += "<VALUE.OBJECT>" + text + "</VALUE.OBJECT>";
  return "<CIM><DECLARATION><DECLGROUP>" + objects + "</DECLGROUP></DECLARATION></CIM>";
}

std::string ClassText(const std::string& name, const std::vector<std::string>& qualifiers) {
  std::string text = "<CLASS NAME='" + name + "'>";
  for (const std::string& qualifier : qualifiers) text += qualifier;
  return text + "<PROPERTY NAME='Id' TYPE='uint32'>" + kKey + "</PROPERTY></CLASS>";
}

std::string QualifierText(const std::string& name, const std::string& type,
                          const std::string& value) {
  const std::string content = value.empty() ? "" : "<VALUE>" + value + "</VALUE>";
  return "<QUALIFIER NAME='" + name + "' TYPE='" + type + "'>" + content + "</QUALIFIER>";
}

std::string AssociationText(const std::string& name, const std::string& antecedent,
                            const std::string& dependent) {
  return "<CLASS NAME='" + name + "'>" + QualifierText("ASSOCIATION", "boolean", "true") +
         Reference("Antecedent", antecedent) + Reference("Dependent", dependent) + "</CLASS>";
}

TPluginTree::TPluginTree() {
  delete TRootObject::GetPluginManager();
  vsk::detail::CreatePluginManager(folder_.Path());
  if (TRootObject::GetQueryManager() == nullptr) vsk::detail::CreateQueryManager();
  Manager().GetContainer()->PopulateContainerFromFile(VSK_TEST_BINARY_DIR
                                                      "/lib/vskcore/data/core.properties.xml");
}

IPluginManager& TPluginTree::Manager() const { return *TRootObject::GetPluginManager(); }

std::string TPluginTree::Add(const std::string& behaviour, const std::string& document,
                             const std::string& folder) const {
  const std::string place = (folder.empty() ? behaviour : folder) + "/" + behaviour;
  if (!document.empty()) folder_.MakeFile(place + ".properties.xml", document);
  const std::string built = VSK_TEST_BINARY_DIR "/tests/plugins/" + behaviour + "/" + behaviour;
  const std::string path = folder_.MakeFile(place + ".pi.so");
  std::filesystem::copy_file(built + ".pi.so", path,
                             std::filesystem::copy_options::overwrite_existing);
  return path;
}
