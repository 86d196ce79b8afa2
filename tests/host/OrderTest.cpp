#include "Order.h"

#include <gtest/gtest.h>
#include <vskcore/model/TCIMClass.h>
#include <vskcore/model/TCIMInstance.h>
#include <vskcore/model/TCIMProperty.h>
#include <vskcore/model/TContainer.h>

#include "support/TLogCapture.h"

namespace {

class Order : public testing::Test {
 protected:
  Order() {
    container.PopulateContainerFromFile(VSK_TEST_CORE_DIR "/data/core.properties.xml");
    classes = container.PopulateContainerFromFile(VSK_TEST_HOST_DOCUMENTS "/order.xml");
  }

  TLogCapture log;
  TContainer container;
  std::vector<TCIMClass*> classes;
};

TEST_F(Order, ClassesComeCategoryByCategory) {
  std::string order;
  for (const TCIMClass* cimClass : InDisplayOrder({classes.begin(), classes.end()})) {
    order += CategoryOf(*cimClass) + "/" + TitleOf(*cimClass) + " ";
  }
  // The category of the lowest number first, with its other classes, though their numbers are
  // higher than those of the next category.
  EXPECT_EQ("Beta/First Beta/Sample_D Alpha/Sample_B Alpha/Sample_C Other/Sample_A ", order);
}

TEST_F(Order, PropertiesComeByNumberThenName) {
  const TCIMInstance instance(&container.GetClass("Sample_A"));
  std::string order;
  for (const TCIMProperty* property : InDisplayOrder(instance)) {
    order += LabelOf(property->GetDeclaration()) + " ";
  }
  EXPECT_EQ("Name Late Early NoNumber WrongType Instance ID Collected ", order);
}

}  // namespace
