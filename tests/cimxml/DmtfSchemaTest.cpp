// A whole schema of the DMTF against what a container must hold after it. The two files are not
// part of the project; the environment variable VSK_DATA names their folder.
#include <gtest/gtest.h>
#include <vskcore/model/TCIMClass.h>
#include <vskcore/model/TCIMPropertyDecl.h>
#include <vskcore/model/TCIMQualifier.h>
#include <vskcore/model/TCIMQualifierDecl.h>
#include <vskcore/model/TCIMValue.h>
#include <vskcore/model/TContainer.h>
#include <zlib.h>

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "support/TLogCapture.h"

namespace {

using TJson = nlohmann::json;

TJson ReadPacked(const std::string& path) {
  struct TClose {
    void operator()(gzFile file) const { gzclose(file); }
  };
  const std::unique_ptr<gzFile_s, TClose> file(gzopen(path.c_str(), "rb"));
  if (file == nullptr) return {};
  std::string text;
  char block[1 << 16];
  for (int got = 0; (got = gzread(file.get(), block, sizeof block)) > 0;) {
    text.append(block, static_cast<std::size_t>(got));
  }
  return TJson::parse(text);
}

// Values as the file has them.
TJson Plain(const TCIMValue& value) {
  if (value.IsNull()) return nullptr;
  if (value.IsArray()) {
    const std::vector<TCIMValue>& elements = value;
    TJson all = TJson::array();
    for (const TCIMValue& element : elements) all.push_back(Plain(element));
    return all;
  }
  const std::string text = value.ToString(10);
  const auto type = static_cast<int>(value.GetType());
  const bool isWord =
      type == TCIMValue::TCIMType::cimString || type == TCIMValue::TCIMType::cimDateTime;
  return isWord ? TJson(text) : TJson::parse(text);
}

TJson Names(const std::vector<TCIMClass*>& classes) {
  TJson names = TJson::array();
  for (const TCIMClass* cimClass : classes) names.push_back(cimClass->GetName());
  return names;
}

TJson Described(const TCIMQualifierDecl& declaration) {
  return {{"name", declaration.GetName()},
          {"type", static_cast<int>(declaration.GetType())},
          {"scope", static_cast<int>(declaration.GetScope())},
          {"flavor", static_cast<int>(declaration.GetFlavor())},
          {"value", Plain(declaration.GetValue())}};
}

TJson Described(const TCIMPropertyDecl& declaration, const std::vector<std::string>& keys) {
  const TCIMValue& value = declaration.GetValue();
  TJson described = {{"name", declaration.GetName()},
                     {"type", static_cast<int>(declaration.GetType())},
                     {"class", declaration.GetClass().GetName()},
                     {"quals", declaration.EnumerateQualifiers().size()}};
  if (value.IsReference()) described["ref"] = value.GetReferencedClass().GetName();
  for (const std::string& key : keys) {
    if (key == declaration.GetName()) described["key"] = true;
  }
  if (!value.IsNull()) described["default"] = Plain(value);
  return described;
}

// The associations registered at the class itself: they stand in front of its superclasses'.
TJson Registered(const TCIMClass& cimClass) {
  std::vector<TCIMClass*> all = cimClass.References("", "");
  all.resize(all.size() - cimClass.GetSuperClass().References("", "").size());
  TJson names = Names(all);
  std::sort(names.begin(), names.end());  // the file has them by the byte
  return names;
}

TJson Described(const TCIMClass& cimClass) {
  const std::vector<std::string> keys = cimClass.EnumerateKeyNames();
  TJson qualifiers = TJson::array();
  for (const TCIMQualifier* qualifier : cimClass.EnumerateQualifiers()) {
    qualifiers.push_back(
        TJson::array({qualifier->GetName(), static_cast<int>(qualifier->GetFlavor()),
                      qualifier->GetPropagated()}));
  }
  TJson properties = TJson::array();
  for (const TCIMPropertyDecl* declaration : cimClass.EnumeratePropertyDecls()) {
    properties.push_back(Described(*declaration, keys));
  }
  return {{"name", cimClass.GetName()},
          {"superclass", cimClass.IsRootClass() ? "" : cimClass.GetSuperClass().GetName()},
          {"abstract", cimClass.IsAbstract()},
          {"association", cimClass.IsAssociation()},
          {"keys", keys},
          {"qualifiers", qualifiers},
          {"nqualifiers", qualifiers.size()},
          {"subclasses", Names(cimClass.EnumerateSubClasses(false))},
          {"assoc_registered", Registered(cimClass)},
          {"properties", properties}};
}

TEST(DmtfSchemaTest, ContainerHoldsWhatTheDocumentSays) {
  const char* const folder = std::getenv("VSK_DATA");
  if (folder == nullptr) GTEST_SKIP() << "VSK_DATA names no folder with the schema";
  const std::string stem = std::string(folder) + "/dmtf-schema";
  const TJson expected = ReadPacked(stem + "-expected.json.gz");
  ASSERT_TRUE(expected.is_object());

  TLogCapture log(2);
  TContainer container;
  const std::vector<TCIMClass*> collected = container.PopulateContainerFromFile(stem + ".xml.gz");
  EXPECT_EQ("", log.Take());

  const std::vector<TCIMQualifierDecl*> declarations = container.EnumerateQualifiers();
  ASSERT_EQ(expected["qualifiers"].size(), declarations.size());
  EXPECT_EQ(expected["qualifier_declarations"], declarations.size());
  for (const TJson& declaration : expected["qualifiers"]) {
    const std::string name = declaration["name"];
    EXPECT_EQ(declaration, Described(container.GetQualifierDecl(name)));
  }
  EXPECT_EQ(expected["root_subclasses"],
            Names(container.GetRootClass().EnumerateSubClasses(false)));
  ASSERT_EQ(expected["class_list"].size(), collected.size());
  EXPECT_EQ(expected["classes"], collected.size());
  for (std::size_t i = 0; i < collected.size(); ++i) {
    EXPECT_EQ(expected["class_list"][i], Described(*collected[i]));
  }
}

}  // namespace
