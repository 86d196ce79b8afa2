#include <vskcore/model/TCIMClass.h>

#include <algorithm>

#include "support/TModelTest.h"

namespace {

class TCIMClassInheritance : public TModelTest {};
class TCIMClassKeys : public TModelTest {};
class TCIMClassJoin : public TModelTest {};
class TCIMClassProperties : public TModelTest {};
class TCIMClassTree : public TModelTest {};

std::vector<std::string> NamesOf(const std::vector<TCIMClass*>& classes) {
  std::vector<std::string> names;
  for (const TCIMClass* cimClass : classes) names.push_back(cimClass->GetName());
  return names;
}

using TNames = std::vector<std::string>;

TEST_F(TCIMClassInheritance, TakesDeclarationsAndSomeQualifiersOver) {
  TCIMClass& base = schema.Class("Sample_Base")
                        .With("ABSTRACT")
                        .With("ASSOCIATION")
                        .With("PLUGINNAME", "p")
                        .Key("Id", TType::cimUint32)
                        .Add();
  TCIMClass& disk =
      schema.Class("Sample_Disk", &base).Property("Size", TCIMValue(std::uint64_t{4})).Add();
  EXPECT_EQ(
      "Sample_Disk : Sample_Base [^ASSOCIATION=true, ^PLUGINNAME=\"p\"]"
      " { Sample_Base.Id uint32 [KEY=true]; Size uint64 = 4 }",
      Picture(disk));
  EXPECT_EQ(&base.GetPropertyDecl("id"), &disk.GetPropertyDecl("ID"));
  EXPECT_NE(&base.GetQualifier("PluginName"), &disk.GetQualifier("PLUGINNAME"));

  // The copy of a copy, and what of the superclass it is not tied to any more.
  const auto solid = schema.Class("Sample_Solid", &disk).Take();
  schema.Qualify(disk, "PLUGINNAME", "q");
  EXPECT_EQ("\"p\"", Picture(solid->GetQualifier("PLUGINNAME").GetValue()));
  EXPECT_EQ("\"p\"", Picture(base.GetQualifier("PLUGINNAME").GetValue()));
  EXPECT_TRUE(solid->GetQualifier("PLUGINNAME").GetPropagated());
  EXPECT_FALSE(disk.GetQualifier("PLUGINNAME").GetPropagated());
}

TEST_F(TCIMClassInheritance, IsASnapshot) {
  TCIMClass& base = schema.Class("Base").Key("Id", TType::cimUint32).Add();
  const auto early = schema.Class("Early", &base).Take();
  AddOrDestroy(std::make_unique<TCIMPropertyDecl>("Late", base, TCIMValue("x")));
  const auto late = schema.Class("Late", &base).Property("Own", TType::cimString).Take();
  EXPECT_EQ("Early : Base { Base.Id uint32 [KEY=true] }", Picture(*early));
  EXPECT_EQ("Base { Id uint32 [KEY=true]; Late string = \"x\" }", Picture(base));
  EXPECT_EQ("Late : Base { Base.Id uint32 [KEY=true]; Base.Late string = \"x\"; Own string }",
            Picture(*late));

  base.RemovePropertyDecl(const_cast<TCIMPropertyDecl&>(base.GetPropertyDecl("LATE")));
  EXPECT_EQ(nullptr, base.FindPropertyDecl("Late"));
  EXPECT_EQ("\"x\"", Picture(late->GetPropertyDecl("Late").GetValue()));
  late->RemovePropertyDecl(const_cast<TCIMPropertyDecl&>(late->GetPropertyDecl("Id")));
  EXPECT_EQ("Base { Id uint32 [KEY=true] }", Picture(base));
}

TEST_F(TCIMClassInheritance, SharedDeclarationsShowTheirChangesEverywhere) {
  TCIMClass& base = schema.Class("Base").Key("Id", TType::cimUint32).Add();
  const auto derived = schema.Class("Derived", &base).Take();
  auto& id = const_cast<TCIMPropertyDecl&>(derived->GetPropertyDecl("Id"));
  schema.Qualify(id, "UNITS", "Bytes");
  id.SetValue(TCIMValue(7u));
  EXPECT_EQ("Base { Id uint32 [KEY=true, UNITS=\"Bytes\"] = 7 }", Picture(base));
}

TEST_F(TCIMClassKeys, DecideWhetherAClassIsValid) {
  const auto isValid = [&](const TCIMValue& key, bool isAbstract) {
    TClassBuilder builder = schema.Class("Sample_Disk");
    if (isAbstract) builder.With("ABSTRACT");
    return StatusOf([&] {
      builder.Property("Other", TType::cimString).Property("Id", TType::cimUint32);
      builder.With("KEY", key).Take()->Validate();
    });
  };
  const struct {
    TCIMValue key;
    vskStatus concrete;
  } rows[] = {
      {TCIMValue(true), vskStatusOK},
      {TCIMValue(false), vskStatusInvalidClass},
      {TCIMValue(TType(TType::cimBoolean), 0), vskStatusInvalidClass},
      {TCIMValue("true"), vskStatusTypeMismatch},
      {TCIMValue(TType(TType::cimString), 0), vskStatusInvalidClass},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(Picture(row.key));
    EXPECT_EQ(row.concrete, isValid(row.key, false));
    const bool told = row.concrete == vskStatusInvalidClass;
    EXPECT_EQ(told ? "Class Sample_Disk has no keys" : "", log.Take());
    EXPECT_EQ(vskStatusOK, isValid(row.key, true));
  }
}

TEST_F(TCIMClassKeys, AreThoseOfNowInOrderOfLowerCasedNames) {
  TCIMClass& base = schema.Class("Base").With("ABSTRACT").Key("_b", TType::cimString).Add();
  TCIMClass& derived =
      schema.Class("Derived", &base).Key("B", TType::cimUint8).Property("a", TType::cimUint8).Add();
  EXPECT_EQ((TNames{"_b", "B"}), derived.EnumerateKeyNames());
  schema.Qualify(const_cast<TCIMPropertyDecl&>(derived.GetPropertyDecl("a")), "KEY");
  EXPECT_EQ((TNames{"_b", "a", "B"}), derived.EnumerateKeyNames());
  auto& inherited = const_cast<TCIMPropertyDecl&>(base.GetPropertyDecl("_b"));
  const_cast<TCIMQualifier&>(inherited.GetQualifier("KEY")).SetValue(TCIMValue(false));
  EXPECT_EQ((TNames{"a", "B"}), derived.EnumerateKeyNames());
  inherited.SetName("Renamed");
  const_cast<TCIMQualifier&>(inherited.GetQualifier("KEY")).SetValue(TCIMValue(true));
  EXPECT_EQ((TNames{"Renamed", "a", "B"}), derived.EnumerateKeyNames());
}

TEST_F(TCIMClassJoin, LinksAndHandsOver) {
  TCIMClass& base = schema.Class("Base").With("ABSTRACT").Add();
  auto derived = schema.Class("Derived", &base).Key("Id", TType::cimUint32).Take();
  EXPECT_EQ(TNames{}, NamesOf(base.EnumerateSubClasses(false)));
  EXPECT_EQ(nullptr, container.FindClass("Derived"));
  TCIMClass& added = AddOrDestroy(std::move(derived));
  EXPECT_EQ(TNames{"Derived"}, NamesOf(base.EnumerateSubClasses(false)));
  EXPECT_EQ(&added, container.FindClass("dERIVED"));
  EXPECT_EQ("Derived", added.GetName());
}

TEST_F(TCIMClassJoin, FailureLeavesClassAndContainerAsTheyWere) {
  schema.Class("Sample_Disk").Key("Id", TType::cimUint32).Add();
  const std::string before = Picture(container);
  const struct {
    const char* name;
    const char* key;
    vskStatus status;
    const char* line;
  } rows[] = {
      {"sample_DISK", "Id", vskStatusAlreadyExists,
       "[3] TContainer: class sample_DISK already defined"},
      {"Sample-Disk", "Id", vskStatusInvalidCIMName, "CIM name 'Sample-Disk' is invalid"},
      {"9Sample", "Id", vskStatusInvalidCIMName, "CIM name '9Sample' is invalid"},
      {"Sample Disk", nullptr, vskStatusInvalidClass, "Class Sample Disk has no keys"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    TClassBuilder builder = schema.Class(row.name);
    if (row.key != nullptr) builder.Key(row.key, TType::cimUint32);
    const auto cimClass = builder.Take();
    EXPECT_EQ(row.status, StatusOf([&] { cimClass->AddToContainer(); }));
    EXPECT_EQ(row.line, log.Take());
    EXPECT_EQ(before, Picture(container));
  }
  TCIMClass& added = container.GetClass("Sample_Disk");
  EXPECT_EQ(vskStatusAlreadyExists, StatusOf([&] { added.AddToContainer(); }));
  EXPECT_EQ(before, Picture(container));
  EXPECT_EQ(vskStatusInvalidClass, StatusOf([&] { container.GetRootClass().AddToContainer(); }));
  EXPECT_EQ(
      "[3] TContainer: class Sample_Disk already defined\n"
      "Class <root> has no keys",
      log.Take());
}

// A superclass with "Id" (uint32) and its subclass with "Size" (uint64), to which a row adds.
struct TAddRow {
  const char* name;
  TCIMValue value;
  bool overrides;
  bool toAssociation;
  vskStatus status;
  const char* line;
};

TEST_F(TCIMClassProperties, JoinByRule) {
  TCIMClass& target = schema.Class("Target").Key("Id", TType::cimUint32).Add();
  const TCIMValue reference = NullReference(target);
  const TCIMValue references(TType(TType::cimReference), 4);
  const TCIMValue number(TType(TType::cimUint32), 0);
  const TCIMValue numbers(TType(TType::cimUint32), 3);
  const TAddRow rows[] = {
      {"New", number, false, false, vskStatusOK, ""},
      {"iD", number, true, false, vskStatusOK, ""},
      {"Ref", reference, false, true, vskStatusOK, ""},
      {"Refs", references, false, false, vskStatusOK, ""},  // an array is no reference property
      {"Ref", reference, false, false, vskStatusNotAssociation,
       "Attempt to add reference property Ref to non-association class Sub"},
      {"1 d", reference, true, false, vskStatusNotAssociation,  // told before the name is read
       "Attempt to add reference property 1 d to non-association class Sub"},
      {"1 d", number, true, false, vskStatusInvalidCIMName, "CIM name '1 d' is invalid"},
      {"iD", number, false, false, vskStatusAlreadyExists,
       "Attempt to add property iD to class Sub: already exists"},
      {"SIZE", number, false, false, vskStatusAlreadyExists,
       "Attempt to add property SIZE to class Sub: already exists"},
      {"New", number, true, false, vskStatusNotFound,
       "Attempt to override property New in class Sub: property doesn't exist in base class"},
      {"ID", numbers, true, false, vskStatusTypeMismatch,
       "Attempt to override property ID in class Sub: different types"},
      {"SIZE", TCIMValue(std::uint64_t{1}), true, false, vskStatusAlreadyExists,
       "Attempt to override property SIZE in class Sub: original was defined in this class"},
  };
  for (const TAddRow& row : rows) {
    SCOPED_TRACE(std::string(row.name) + " -> " + row.line);
    const auto super = schema.Class("Super").Key("Id", TType::cimUint32).Take();
    TClassBuilder builder = schema.Class("Sub", super.get());
    if (row.toAssociation) builder.With("ASSOCIATION");
    const auto sub = builder.Property("Size", TType::cimUint64).Take();
    const std::string before = Picture(*sub);
    const std::string superBefore = Picture(*super);

    auto declaration = std::make_unique<TCIMPropertyDecl>(row.name, *sub, row.value);
    if (row.overrides) schema.Qualify(*declaration, "OVERRIDE", "anything");
    const vskStatus status = StatusOf([&] { declaration->AddToContainer(); });
    EXPECT_EQ(row.status, status);
    EXPECT_EQ(row.line, log.Take());
    EXPECT_EQ(superBefore, Picture(*super));
    if (status == vskStatusOK) {
      EXPECT_EQ(declaration.release(), sub->FindPropertyDecl(row.name));
    } else {
      EXPECT_EQ(before, Picture(*sub));
    }
  }
}

TEST_F(TCIMClassProperties, AreOverriddenOncePerClassAlongAChain) {
  TCIMClass& top = schema.Class("Top").Key("Id", TType::cimUint32).Add();
  const auto overridden = [&](const char* name, TCIMClass& super,
                              unsigned int value) -> TCIMClass& {
    return schema.Class(name, &super).Property("Id", TCIMValue(value)).With("OVERRIDE", "").Add();
  };
  EXPECT_EQ(vskStatusInvalidClass, StatusOf([&] { overridden("Keyless", top, 2); }));
  EXPECT_EQ("Class Keyless has no keys", log.Take());  // the KEY went with the old declaration
  TCIMClass& middle = schema.Class("Middle", &top)
                          .Property("Id", TCIMValue(3u))
                          .With("OVERRIDE", "Id")
                          .With("KEY")
                          .Add();
  const auto bottom = schema.Class("Bottom", &middle)
                          .With("ABSTRACT")
                          .Property("ID", TCIMValue(5u))
                          .With("OVERRIDE", "Id")
                          .Take();
  EXPECT_EQ("Top { Id uint32 [KEY=true] }", Picture(top));
  EXPECT_EQ("Middle : Top { Id uint32 [KEY=true, OVERRIDE=\"Id\"] = 3 }", Picture(middle));
  EXPECT_EQ("Bottom : Middle [ABSTRACT=true] { ID uint32 [OVERRIDE=\"Id\"] = 5 }",
            Picture(*bottom));
}

TEST_F(TCIMClassProperties, AbsentAndInvalidNames) {
  TCIMClass& disk = schema.Class("Disk").Key("Id", TType::cimUint32).Add();
  TCIMPropertyDecl absent("Other", disk, TCIMValue(1u));
  TCIMPropertyDecl invalid("no such", disk, TCIMValue(1u));
  EXPECT_EQ(nullptr, disk.FindPropertyDecl("Other"));
  EXPECT_EQ(nullptr, disk.FindQualifier("Other"));
  EXPECT_EQ(vskStatusNotFound, StatusOf([&] { disk.GetPropertyDecl("Other"); }));
  EXPECT_EQ(vskStatusNotFound, StatusOf([&] { disk.GetQualifier("Other"); }));
  EXPECT_EQ(vskStatusNotFound, StatusOf([&] { disk.RemovePropertyDecl(absent); }));
  EXPECT_EQ("", log.Take());
  EXPECT_EQ(vskStatusInvalidCIMName, StatusOf([&] { disk.FindPropertyDecl("no such"); }));
  EXPECT_EQ(vskStatusInvalidCIMName, StatusOf([&] { disk.RemovePropertyDecl(invalid); }));
  EXPECT_EQ(vskStatusInvalidCIMName, StatusOf([&] { disk.FindQualifier("no such"); }));
  const std::string line = "CIM name 'no such' is invalid";
  EXPECT_EQ(line + "\n" + line + "\n" + line, log.Take());
}

TEST_F(TCIMClassTree, KnowsItsPlace) {
  TCIMClass& root = container.GetRootClass();
  TCIMClass& base = schema.Class("Base").With("ABSTRACT").Add();
  TCIMClass& leaf = schema.Class("Leaf", &base).With("ABSTRACT").Add();
  TCIMClass& other = schema.Class("Other", &root).With("ABSTRACT").Add();
  const struct {
    const TCIMClass& cimClass;
    bool isRootClass;
    std::vector<const TCIMClass*> supers;
  } rows[] = {
      {root, false, {&root}},
      {base, true, {&root, &base}},
      {leaf, false, {&root, &base, &leaf}},
      {other, true, {&root, &other}},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.cimClass.GetName());
    EXPECT_EQ(row.isRootClass, row.cimClass.IsRootClass());
    for (const TCIMClass* candidate : {&root, &base, &leaf, &other}) {
      const bool expected = std::count(row.supers.begin(), row.supers.end(), candidate) == 1;
      EXPECT_EQ(expected, row.cimClass.IsSubclassOf(candidate)) << candidate->GetName();
    }
    EXPECT_FALSE(row.cimClass.IsSubclassOf(nullptr));
  }
  EXPECT_EQ(&base, &leaf.GetSuperClass());
  EXPECT_EQ(&root, &base.GetSuperClass());
  EXPECT_EQ(vskStatusNotFound, StatusOf([&] { root.GetSuperClass(); }));
}

TEST_F(TCIMClassTree, IsWalkedInPreOrderOfJoining) {
  const auto add = [&](const char* name, TCIMClass* super) -> TCIMClass& {
    TCIMClass& added = schema.Class(name, super).With("ABSTRACT").Key("Id", TType::cimUint32).Add();
    schema.Add(added, {{"Id", TCIMValue(1u)}});
    return added;
  };
  TCIMClass& b = add("B", nullptr);
  TCIMClass& a = add("a", nullptr);
  const auto sub = [&](const char* name, TCIMClass& super) -> TCIMClass& {
    return schema.Class(name, &super).Add();
  };
  TCIMClass& bz = sub("Bz", b);
  sub("ax", a);
  sub("_by", b);
  schema.Add(sub("Bzz", bz), {{"Id", TCIMValue(2u)}});
  schema.Add(b, {{"Id", TCIMValue(3u)}});
  TCIMClass& root = container.GetRootClass();
  EXPECT_EQ((TNames{"B", "a"}), NamesOf(root.EnumerateSubClasses(false)));
  EXPECT_EQ((TNames{"B", "Bz", "Bzz", "_by", "a", "ax"}), NamesOf(root.EnumerateSubClasses(true)));
  EXPECT_EQ((TNames{"Bz", "Bzz", "_by"}), NamesOf(b.EnumerateSubClasses(true)));

  std::string instances;
  for (const TCIMInstance* instance : root.EnumerateInstances(true))
    instances += Picture(*instance);
  EXPECT_EQ("B{Id=1}B{Id=3}Bzz{Id=2}a{Id=1}", instances);
  EXPECT_EQ(2u, b.EnumerateInstances(false).size());
  EXPECT_EQ(3u, b.EnumerateInstances(true).size());
  EXPECT_EQ(0u, root.EnumerateInstances(false).size());
}

TEST_F(TCIMClassTree, ComparesNamesExactly) {
  const auto upper = schema.Class("Disk").Take();
  const auto lower = schema.Class("disk").Take();
  const auto again = schema.Class("Disk").Take();
  EXPECT_FALSE(*upper == *lower);
  EXPECT_TRUE(*upper == *again);
  EXPECT_TRUE(*upper < *lower);
  EXPECT_FALSE(*lower < *upper);
}

}  // namespace
