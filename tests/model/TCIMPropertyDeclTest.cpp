#include <vskcore/model/TCIMPropertyDecl.h>

#include "support/TModelTest.h"

namespace {

class TCIMPropertyDeclValue : public TModelTest {};
class TCIMPropertyDeclName : public TModelTest {};

TEST_F(TCIMPropertyDeclValue, GivesTheType) {
  const auto disk = schema.Class("Disk").Take();
  TCIMPropertyDecl size("Size", *disk, TCIMValue());
  EXPECT_EQ(TType::cimNone, size.GetType());
  size.SetValue(TCIMValue(TType(TType::cimUint8), 4));
  EXPECT_EQ(TType::cimUint8 | TType::cimArrayFlag, size.GetType());
  EXPECT_TRUE(size.IsArray());
  const TCIMValue& shown = size.GetValue();
  size.SetValue(TCIMValue(std::uint64_t{7}));  // any type may follow any other
  EXPECT_EQ("7", Picture(shown));
  EXPECT_FALSE(size.IsArray());
  size.SetValue(shown);
  EXPECT_EQ("7", Picture(size.GetValue()));
  EXPECT_EQ(disk.get(), &size.GetClass());
}

TEST_F(TCIMPropertyDeclValue, MayComeOutOfTheValueItself) {
  const auto disk = schema.Class("Disk").Take();
  const TCIMValue texts(TType(TType::cimString), 0, {TCIMValue("first"), TCIMValue("second")});
  TCIMPropertyDecl names("Names", *disk, texts);
  const std::vector<TCIMValue>& elements = names.GetValue();
  names.SetValue(elements[1]);
  EXPECT_EQ("\"second\"", Picture(names.GetValue()));
}

TEST_F(TCIMPropertyDeclName, IsCheckedWhenItIsUsed) {
  const auto disk = schema.Class("Disk").Take();
  const auto other = schema.Class("Other").Take();
  const TCIMPropertyDecl name("Name", *disk, TCIMValue("x"));
  const TCIMPropertyDecl upper("NAME", *other, TCIMValue(1u));
  const TCIMPropertyDecl after("Of", *disk, TCIMValue("x"));
  const TCIMPropertyDecl invalid("a b", *disk, TCIMValue("x"));
  EXPECT_EQ(vskStatusOK, StatusOf([&] { invalid.Validate(); }));
  EXPECT_TRUE(name == upper);
  EXPECT_FALSE(name < upper);
  EXPECT_TRUE(upper < after);
  EXPECT_FALSE(after < upper);
  EXPECT_EQ(vskStatusInvalidCIMName, StatusOf([&] { (void)(name == invalid); }));
  EXPECT_EQ(vskStatusInvalidCIMName, StatusOf([&] { (void)(invalid < name); }));
  EXPECT_EQ("CIM name 'a b' is invalid\nCIM name 'a b' is invalid", log.Take());
}

TEST_F(TCIMPropertyDeclName, OfAnAddedOneChangesNoLookUp) {
  const auto disk = schema.Class("Disk").Property("Old", TType::cimString).Take();
  auto& declaration = const_cast<TCIMPropertyDecl&>(disk->GetPropertyDecl("Old"));
  declaration.SetName("New");
  EXPECT_EQ("New", disk->GetPropertyDecl("old").GetName());
  EXPECT_EQ(nullptr, disk->FindPropertyDecl("New"));
  EXPECT_EQ(vskStatusNotFound, StatusOf([&] { disk->RemovePropertyDecl(declaration); }));
}

}  // namespace
