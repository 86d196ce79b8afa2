#include <gtest/gtest.h>
#include <vskcore/model/TCIMClass.h>
#include <vskcore/model/TCIMPropertyDecl.h>
#include <vskcore/model/TCIMQualifier.h>
#include <vskcore/model/TContainer.h>

#include <set>

#include "support/TLogCapture.h"

namespace {

std::vector<std::string> Texts(const TCIMPropertyDecl& declaration, const char* name) {
  const TCIMQualifier* qualifier = declaration.FindQualifier(name);
  if (qualifier == nullptr) return {};
  std::vector<std::string> texts;
  const TCIMValue value = qualifier->GetValue();
  for (const TCIMValue& element : static_cast<std::vector<TCIMValue>&>(value)) {
    texts.push_back(element.ToString(10));
  }
  return texts;
}

std::string Text(const TCIMPropertyDecl& declaration, const char* name) {
  const TCIMQualifier* qualifier = declaration.FindQualifier(name);
  return qualifier == nullptr ? "" : qualifier->GetValue().ToString(10);
}

// What every property of a collector owes its readers.
void CheckProperty(const TCIMPropertyDecl& declaration) {
  SCOPED_TRACE(declaration.GetClass().GetName() + "." + declaration.GetName());
  for (const char* name : {"Description", "DisplayName", "DisplayOrder"}) {
    EXPECT_NE("", Text(declaration, name)) << name;
  }
  const std::vector<std::string> values = Texts(declaration, "Values");
  if (declaration.GetType() == TCIMValue::TCIMType::cimBoolean) {
    EXPECT_EQ((std::vector<std::string>{"No", "Yes"}), values);
  } else if (!values.empty()) {
    const std::vector<std::string> map = Texts(declaration, "ValueMap");
    ASSERT_EQ(values.size(), map.size());
    EXPECT_EQ("..", map.back());  // a code that is new still displays
    EXPECT_EQ(map.size(), std::set<std::string>(map.begin(), map.end()).size());
  }
  if (declaration.GetType() == TCIMValue::TCIMType::cimUint64) {
    const std::string unit = Text(declaration, "UNITS");
    EXPECT_TRUE(unit == "Bytes" || unit == "Seconds") << unit;
  }
}

TEST(CollectorSchema, TellsAllThatAReaderNeeds) {
  const TLogCapture log;  // and loads without an error
  const std::string core = VSK_TEST_CORE_DIR;
  TContainer container;
  container.PopulateContainerFromFile(core + "/data/core.properties.xml");
  for (const std::string name : {"cpu", "identity", "os"}) {
    const std::vector<TCIMClass*> classes =
        container.PopulateContainerFromFile(core + "/" + name + "/" + name + ".properties.xml");
    EXPECT_LE(3u, classes.size());
    for (const TCIMClass* cimClass : classes) {
      EXPECT_NE(nullptr, cimClass->FindQualifier("Category")) << cimClass->GetName();
      std::set<std::string> orders;
      for (const TCIMPropertyDecl* declaration : cimClass->EnumeratePropertyDecls()) {
        CheckProperty(*declaration);
        EXPECT_TRUE(orders.insert(Text(*declaration, "DisplayOrder")).second)
            << cimClass->GetName() << '.' << declaration->GetName();
      }
    }
  }
}

}  // namespace
