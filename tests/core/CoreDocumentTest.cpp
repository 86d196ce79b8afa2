#include <gtest/gtest.h>
#include <vskcore/model/TCIMClass.h>
#include <vskcore/model/TCIMInstance.h>
#include <vskcore/model/TCIMProperty.h>
#include <vskcore/model/TCIMQualifierDecl.h>
#include <vskcore/model/TContainer.h>

#include "support/Picture.h"
#include "support/TLogCapture.h"
#include "support/TPluginTree.h"

namespace {

using TFlavor = TCIMQualifierDecl::EFlavor;
using TType = TCIMValue::TCIMType;

class CoreDocumentTest : public testing::Test {
 protected:
  CoreDocumentTest() {
    container.PopulateContainerFromFile(VSK_TEST_BINARY_DIR
                                        "/lib/vskcore/data/core.properties.xml");
  }
  // Reads a document of these classes on top.
  void Read(const std::vector<std::string>& classes) {
    const TTempDir folder;
    container.PopulateContainerFromFile(folder.MakeFile("plug-in.xml", Document(classes)));
  }

  TLogCapture log;
  TContainer container;
};

// The types that the core and the host insist on, and the flavors that the core's rules stand on.
TEST_F(CoreDocumentTest, DeclaresWhatIsRead) {
  constexpr TFlavor kFixed = TCIMQualifierDecl::flavorToSubclass;
  constexpr TFlavor kHere = TCIMQualifierDecl::flavorOverridable;
  const struct {
    const char* name;
    TType::ECIMType type;
    int flavor;  // -1: any
  } kRows[] = {
      {"ABSTRACT", TType::cimBoolean, 0},
      {"ASSOCIATION", TType::cimBoolean, kFixed},
      {"KEY", TType::cimBoolean, kFixed},
      {"OVERRIDE", TType::cimString, -1},
      {"BASE", TType::cimUint8, -1},
      {"NULLDISPLAY", TType::cimString, -1},
      {"UNITS", TType::cimString, -1},
      {"Values", TType::cimString | TType::cimArrayFlag, -1},
      {"ValueMap", TType::cimString | TType::cimArrayFlag, -1},
      {"DONTCOLLECT", TType::cimBoolean, kHere},
      {"PLUGINNAME", TType::cimString, kHere},
      {"PLUGINVERSION", TType::cimString, kHere},
      {"Description", TType::cimString, -1},
      {"DisplayName", TType::cimString, -1},
      {"DisplayOrder", TType::cimUint16, -1},
      {"Category", TType::cimString, -1},
      {"Identity", TType::cimBoolean, -1},
      {"Volatile", TType::cimBoolean, -1},
      {"Sensitivity", TType::cimString, -1},
      {"Privilege", TType::cimString, -1},
      {"DataSource", TType::cimString, -1},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.name);
    const TCIMQualifierDecl* const declaration = container.FindQualifierDecl(row.name);
    ASSERT_NE(nullptr, declaration);
    EXPECT_EQ(row.type, declaration->GetType());
    EXPECT_TRUE(row.flavor == -1 || row.flavor == declaration->GetFlavor());
  }
}

TEST_F(CoreDocumentTest, ItsBasesServeConcreteClasses) {
  Read({"<CLASS NAME='Sample_Fan' SUPERCLASS='ZNTSG_ManagedElement'/>",
        "<CLASS NAME='Sample_Disk' SUPERCLASS='ZNTSG_ManagedElement'/>",
        "<CLASS NAME='Sample_Cools' SUPERCLASS='ZNTSG_Dependency'>"
        "<PROPERTY.REFERENCE NAME='Antecedent' REFERENCECLASS='Sample_Fan'>" +
            QualifierText("KEY", "boolean", "true") +
            "</PROPERTY.REFERENCE>"
            "<PROPERTY.REFERENCE NAME='Dependent' REFERENCECLASS='Sample_Disk'>" +
            QualifierText("KEY", "boolean", "true") + "</PROPERTY.REFERENCE></CLASS>"});
  const TCIMClass& fan = container.GetClass("Sample_Fan");
  EXPECT_FALSE(fan.IsAbstract());
  EXPECT_EQ(std::vector<std::string>{"InstanceID"}, fan.EnumerateKeyNames());
  const TCIMInstance instance(&container.GetClass("Sample_Fan"));
  EXPECT_FALSE(instance.GetProperty("DateTimeOfCollection").GetValue().IsNull());
  EXPECT_EQ("Not available", instance.GetProperty("ElementName").ToString());
  EXPECT_EQ(
      "Sample_Cools : ZNTSG_Dependency [^ASSOCIATION=true] {"
      " Antecedent reference Sample_Fan [KEY=true];"
      " Dependent reference Sample_Disk [KEY=true] }",
      Picture(container.GetClass("Sample_Cools")));
}

}  // namespace
