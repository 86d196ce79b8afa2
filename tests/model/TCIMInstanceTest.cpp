#include <vskcore/model/TCIMDateTime.h>
#include <vskcore/model/TCIMInstance.h>

#include "model/TPeek.h"
#include "support/TModelTest.h"

namespace {

class TCIMPropertyValue : public TModelTest {};
class TCIMInstanceProperties : public TModelTest {};
class TCIMInstanceJoin : public TModelTest {};
class TCIMInstanceFind : public TModelTest {};

TEST_F(TCIMPropertyValue, IsItsOwnOrTheDeclarations) {
  TCIMClass& disk = schema.Class("Disk")
                        .Key("Id", TType::cimUint32)
                        .Property("Name", TCIMValue("none"))
                        .Property("Sizes", TCIMValue(TType::cimUint8, 4))
                        .Add();
  TCIMInstance& one = schema.Add(disk, {{"Id", 1u}});
  EXPECT_EQ("Disk{Id=1, Name~\"none\", Sizes~NULL}", Picture(one));
  EXPECT_TRUE(one.GetProperty("NAME").GetPropagated());
  one.SetPropertyValue("nAME", TCIMValue(TType::cimString, 0));
  EXPECT_EQ("Disk{Id=1, Name=NULL, Sizes~NULL}", Picture(one));
  EXPECT_FALSE(one.GetProperty("Name").GetPropagated());

  // One array over another, and a value out of the property's own.
  TCIMProperty& sizes = one.GetProperty("Sizes");
  const TCIMValue bytes(TType(TType::cimUint8), 2, {TCIMValue(std::uint8_t{1})});
  sizes.SetValue(bytes);
  sizes.SetValue(TCIMValue(TType::cimUint8, 2, {TCIMValue(std::uint8_t{2})}));
  EXPECT_EQ("{2}", Picture(sizes.GetValue()));
  EXPECT_EQ(2u, sizes.GetValue().GetMaxArraySize());
  sizes.SetValue(vsk::detail::TPeek::Value(sizes));
  EXPECT_EQ("{2}", Picture(sizes.GetValue()));
  EXPECT_EQ(TType::cimUint8 | TType::cimArrayFlag, sizes.GetType());
  EXPECT_TRUE(sizes.IsArray());
}

TEST_F(TCIMPropertyValue, MustFitTheDeclaration) {
  TCIMClass& base = schema.Class("Base").With("ABSTRACT").Key("Id", TType::cimUint32).Add();
  TCIMClass& disk = schema.Class("Disk", &base).Add();
  TCIMClass& other = schema.Class("Other").Key("Id", TType::cimUint32).Add();
  const TCIMValue noClass(TType(TType::cimReference), 0);
  TCIMValue classless = noClass;  // stored although its class can't be told
  EXPECT_EQ(vskStatusInvalidReference, StatusOf([&] { classless.Set(TCIMReference()); }));
  const TCIMValue number(7u);
  const TCIMValue numbers(TType(TType::cimUint32), 3);
  const TCIMValue toBase = NullReference(base);
  const struct {
    TCIMValue declared;
    TCIMValue value;
    const char* line;  // empty when it fits
  } rows[] = {
      {number, TCIMValue(8u), ""},
      {numbers, TCIMValue(TType::cimUint32, 9, {number}), ""},
      {number, TCIMValue(8), "SetValue: decl is type uint32 but value is type sint32"},
      {number, numbers, "SetValue: decl is type uint32 but value is type uint32"},
      {numbers, TCIMValue("a"), "SetValue: decl is type uint32 but value is type string"},
      {toBase, number, "SetValue: decl is type reference but value is type uint32"},
      {toBase, TCIMValue(schema.Path(base, {})), ""},
      {toBase, TCIMValue(schema.Path(disk, {{"Id", number}})), ""},
      {toBase, NullReference(disk), ""},
      {toBase, noClass, ""},
      {toBase, NullReference(other),
       "SetValue: decl references type Base but value references Other"},
      {NullReference(disk), TCIMValue(schema.Path(base, {})),
       "SetValue: decl references type Disk but value references Base"},
      {toBase, classless, "SetValue: decl references type Base but value references "},
      {noClass, toBase, "SetValue: decl references type  but value references Base"},
      {noClass, noClass, ""},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(Picture(row.declared) + " <- " + Picture(row.value) + " " + row.line);
    const TCIMPropertyDecl declaration("P", other, row.declared);
    TCIMProperty property(declaration);
    const bool fits = *row.line == '\0';
    EXPECT_EQ(fits ? vskStatusOK : vskStatusTypeMismatch,
              StatusOf([&] { property.SetValue(row.value); }));
    EXPECT_EQ(row.line, log.Take());
    EXPECT_EQ(!fits, property.GetPropagated());
    EXPECT_EQ(Picture(fits ? row.value : row.declared), Picture(property.GetValue()));
    EXPECT_EQ(fits ? vskStatusOK : vskStatusTypeMismatch,
              StatusOf([&] { TCIMProperty(declaration, row.value); }));
    log.Take();
  }
}

TEST_F(TCIMPropertyValue, IsCheckedAgainInACopy) {
  const auto disk = schema.Class("Disk").Take();
  TCIMPropertyDecl size("Size", *disk, TCIMValue(1u));
  TCIMProperty property(size, TCIMValue(5u));
  TCIMProperty copy(property);
  copy.SetValue(TCIMValue(6u));
  EXPECT_EQ("5", Picture(property.GetValue()));
  size.SetValue(TCIMValue("text"));
  EXPECT_EQ(vskStatusTypeMismatch, StatusOf([&] { TCIMProperty second(property); }));
  EXPECT_EQ(vskStatusTypeMismatch, StatusOf([&] { copy = property; }));
  EXPECT_EQ("6", Picture(copy.GetValue()));
  const std::string line = "SetValue: decl is type string but value is type uint32";
  EXPECT_EQ(line + "\n" + line, log.Take());
  const TCIMProperty& itself = copy;
  copy = itself;
  EXPECT_EQ("6", Picture(copy.GetValue()));
}

TEST_F(TCIMPropertyValue, OrdersByNameThenByOwnValue) {
  const auto disk = schema.Class("Disk").Take();
  const TCIMPropertyDecl a("a", *disk, TCIMValue(9u));
  const TCIMPropertyDecl upperA("A", *disk, TCIMValue(1u));
  const TCIMPropertyDecl b("b", *disk, TCIMValue(1u));
  const TCIMProperty ascending[] = {
      TCIMProperty(a),  // no own value, whatever the default
      TCIMProperty(upperA, TCIMValue(TType::cimUint32, 0)),
      TCIMProperty(a, TCIMValue(3u)),
      TCIMProperty(upperA, TCIMValue(4u)),
      TCIMProperty(b),
  };
  for (const TCIMProperty& left : ascending) {
    for (const TCIMProperty& right : ascending) {
      EXPECT_EQ(&left < &right, left < right)
          << Picture(left.GetValue()) << Picture(right.GetValue());
      EXPECT_EQ(&left == &right, left == right);
    }
  }
  EXPECT_TRUE(TCIMProperty(a) == TCIMProperty(upperA));
}

TEST_F(TCIMInstanceProperties, AreThoseOfTheClassAtItsMaking) {
  TCIMClass& base =
      schema.Class("Base").Key("_b", TType::cimUint8).Property("B", TCIMValue(2u)).Add();
  TCIMClass& disk = schema.Class("Disk", &base).Property("a", TType::cimString).Add();
  TCIMInstance& early = schema.Add(disk, {{"_B", TCIMValue(std::uint8_t{1})}});
  EXPECT_EQ("Disk{_b=1, a~NULL, B~2}", Picture(early));
  EXPECT_EQ(&early.GetProperty("b"), early.FindProperty("B"));

  // What the class drops or gains later is no matter to the instance.
  disk.RemovePropertyDecl(const_cast<TCIMPropertyDecl&>(disk.GetPropertyDecl("A")));
  EXPECT_EQ("Disk{_b~NULL, B~2}", Picture(*schema.Make(disk, {})));
  AddOrDestroy(std::make_unique<TCIMPropertyDecl>("Z", disk, TCIMValue("z")));
  const auto late = schema.Make(disk, {});
  EXPECT_EQ("Disk{_b=1, a~NULL, B~2}", Picture(early));
  EXPECT_EQ("Disk{_b~NULL, B~2, Z~\"z\"}", Picture(*late));
  early.SetPropertyValue("A", TCIMValue("kept"));
  EXPECT_EQ("\"kept\"", Picture(early.GetProperty("a").GetValue()));

  // Instances go by the names that declarations have when they are made.
  const_cast<TCIMPropertyDecl&>(disk.GetPropertyDecl("Z")).SetName("A");
  const auto renamed = schema.Make(disk, {});
  EXPECT_EQ("Disk{_b~NULL, A~\"z\", B~2}", Picture(*renamed));
  EXPECT_EQ(nullptr, renamed->FindProperty("Z"));
  EXPECT_NE(nullptr, late->FindProperty("Z"));
}

TEST_F(TCIMInstanceProperties, AbsentAndInvalidNames) {
  const auto disk = schema.Class("Disk").Property("Name", TType::cimString).Take();
  TCIMInstance one(disk.get());
  const TCIMPropertyDecl foreign("Other", *disk, TCIMValue("x"));
  EXPECT_EQ(nullptr, one.FindProperty("Other"));
  EXPECT_EQ(nullptr, one.FindProperty(""));
  EXPECT_EQ(vskStatusNotFound, StatusOf([&] { one.GetProperty("Other"); }));
  EXPECT_EQ(vskStatusNotFound, StatusOf([&] { one.SetPropertyValue("Other", TCIMValue(1u)); }));
  EXPECT_EQ(vskStatusNotFound, StatusOf([&] { one.SetProperty(TCIMProperty(foreign)); }));
  EXPECT_EQ(vskStatusInvalidCIMName, StatusOf([&] { one.FindProperty("no such"); }));
  EXPECT_EQ("CIM name 'no such' is invalid", log.Take());
  EXPECT_EQ(vskStatusInvalidClass, StatusOf([&] { TCIMInstance none(nullptr); }));
}

TEST_F(TCIMInstanceProperties, CanBeReplacedWithTheirDeclaration) {
  const auto disk = schema.Class("Disk").Property("Name", TType::cimString).Take();
  TCIMInstance one(disk.get());
  const TCIMPropertyDecl number("NAME", *disk, TCIMValue(4u));
  one.SetProperty(TCIMProperty(number));
  EXPECT_EQ("Disk{NAME~4}", Picture(one));
  one.SetProperty(TCIMProperty(number, TCIMValue(5u)));
  EXPECT_EQ("Disk{NAME=5}", Picture(one));
  EXPECT_EQ(&number, &one.GetProperty("name").GetDeclaration());
}

TEST_F(TCIMInstanceProperties, CarryTheTimeOfCollection) {
  const auto stamped =
      schema.Class("S").Property("dateTIMEofCollection", TType::cimDateTime).Take();
  const TCIMInstance one(stamped.get());
  const TCIMProperty& collected = one.GetProperty("DateTimeOfCollection");
  EXPECT_FALSE(collected.GetPropagated());
  const TCIMDateTime when = collected.GetValue();
  EXPECT_FALSE(when.IsInterval());
  EXPECT_GE(when.GetYear(), 2024);

  const auto wrong = schema.Class("W").Property("DateTimeOfCollection", TType::cimString).Take();
  EXPECT_EQ(vskStatusTypeMismatch, StatusOf([&] { container.AllocateInstance(wrong.get()); }));
  EXPECT_EQ("SetValue: decl is type string but value is type datetime", log.Take());
}

TEST_F(TCIMInstanceProperties, DecideEquality) {
  TCIMClass& disk =
      schema.Class("Disk").Key("Id", TType::cimUint32).Property("N", TCIMValue("d")).Add();
  TCIMClass& same = schema.Class("Same", &disk).Add();
  const auto make = [&](TCIMClass& cimClass, unsigned int id) {
    return schema.Make(cimClass, {{"Id", id}});
  };
  const auto one = make(disk, 1);
  const auto equal = make(disk, 1);
  EXPECT_TRUE(*one == *equal);
  EXPECT_FALSE(*one == *make(disk, 2));
  EXPECT_FALSE(*one == *make(same, 1));
  equal->SetPropertyValue("N", TCIMValue("d"));  // shows the same, but of its own
  EXPECT_FALSE(*one == *equal);
  EXPECT_FALSE(*one < *make(disk, 2));
  EXPECT_FALSE(*make(disk, 2) < *one);
  EXPECT_EQ(&disk < &same, *one < *make(same, 1));

  // One property under two names: it was renamed between the two.
  const auto old = schema.Class("Old").Property("N", TCIMValue("d")).Take();
  const TCIMInstance before(old.get());
  const_cast<TCIMPropertyDecl&>(old->GetPropertyDecl("N")).SetName("M");
  EXPECT_FALSE(before == TCIMInstance(old.get()));
}

TEST_F(TCIMInstanceJoin, NeedsAValueInEveryKey) {
  TCIMClass& disk = schema.Class("Disk")
                        .Key("Number", TType::cimUint32)
                        .Key("defaulted", TCIMValue::TCIMType::cimString)
                        .Key("_Id", TType::cimUint32)
                        .Add();
  const_cast<TCIMPropertyDecl&>(disk.GetPropertyDecl("Defaulted")).SetValue(TCIMValue("d"));
  auto instance = schema.Make(disk, {});
  const auto join = [&] { return StatusOf([&] { instance->AddToContainer(); }); };
  EXPECT_EQ(vskStatusInvalidInstance, join());
  EXPECT_EQ("Instance Disk: key property _Id is NULL", log.Take());
  instance->SetPropertyValue("_id", TCIMValue(1u));
  instance->SetPropertyValue("number", TCIMValue(TType::cimUint32, 0));
  EXPECT_EQ(vskStatusInvalidInstance, join());
  EXPECT_EQ("Instance Disk: key property Number is NULL", log.Take());
  EXPECT_EQ(0u, disk.EnumerateInstances(false).size());
  instance->SetPropertyValue("Number", TCIMValue(2u));
  EXPECT_EQ(vskStatusOK, join());
  EXPECT_EQ("Disk.Number=\"2\",_Id=\"1\",defaulted=\"d\"", instance->BuildPath().GetPath());
  EXPECT_EQ(instance.get(), disk.EnumerateInstances(false).at(0));
  EXPECT_EQ(&container, &instance.release()->GetContainer());
}

TEST_F(TCIMInstanceJoin, TwiceEndsInOneDestruction) {
  TCIMClass& disk = schema.Class("Disk").Key("Id", TType::cimUint32).Add();
  TCIMInstance& one = schema.Add(disk, {{"Id", 1u}});
  TCIMInstance& two = schema.Add(disk, {{"Id", 2u}});
  one.AddToContainer();
  two.AddToContainer();
  EXPECT_EQ((std::vector<TCIMInstance*>{&one, &two, &one, &two}), disk.EnumerateInstances(false));
  disk.RemoveInstance(one);
  EXPECT_EQ((std::vector<TCIMInstance*>{&two, &two}), disk.EnumerateInstances(false));
}

TEST_F(TCIMInstanceJoin, EndsWithRemovalInAnyOrder) {
  TCIMClass& disk = schema.Class("Disk").Key("Id", TType::cimUint32).Add();
  std::vector<TCIMInstance*> expected;
  const auto add = [&](unsigned int id) { expected.push_back(&schema.Add(disk, {{"Id", id}})); };
  const auto remove = [&](std::size_t place) {
    TCIMInstance* doomed = expected.at(place);
    expected.erase(expected.begin() + static_cast<std::ptrdiff_t>(place));
    disk.RemoveInstance(*doomed);
    EXPECT_EQ(expected, disk.EnumerateInstances(false));
  };
  for (unsigned int id = 0; id < 9; ++id) add(id);
  for (const std::size_t place : {4u, 0u, 6u}) remove(place);
  add(20);
  for (const std::size_t place : {6u, 1u, 0u, 0u, 1u, 1u}) remove(place);
  EXPECT_EQ(1u, expected.size());
  remove(0);
  add(30);
  EXPECT_EQ(expected, disk.EnumerateInstances(false));
}

TEST_F(TCIMInstanceJoin, RemovalDestroysWhatIsNotListedToo) {
  TCIMClass& disk = schema.Class("Disk").Key("Id", TType::cimUint32).Add();
  TCIMClass& other = schema.Class("Other").Key("Id", TType::cimUint32).Add();
  disk.RemoveInstance(*schema.Make(disk, {}).release());
  // Asked of the wrong class, the right one must not keep it either.
  TCIMInstance& listed = schema.Add(disk, {{"Id", 1u}});
  other.RemoveInstance(listed);
  EXPECT_EQ(0u, disk.EnumerateInstances(false).size());
}

TEST_F(TCIMInstanceFind, LooksInItsOwnClassAlone) {
  TCIMClass& disk = schema.Class("Disk").Key("Id", TType::cimUint32).Add();
  TCIMClass& solid = schema.Class("Solid", &disk).Add();
  TCIMInstance& first = schema.Add(solid, {{"Id", 1u}});
  schema.Add(solid, {{"Id", 1u}});
  const TCIMReference path = first.BuildPath();
  EXPECT_EQ(&first, solid.FindInstance(path));
  EXPECT_EQ(&first, &solid.GetInstance(path));
  EXPECT_EQ(nullptr, disk.FindInstance(path));
  EXPECT_EQ(vskStatusNotFound, StatusOf([&] { disk.GetInstance(path); }));
}

}  // namespace
