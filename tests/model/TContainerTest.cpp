#include <vskcore/model/TContainer.h>

#include <functional>

#include "support/TModelTest.h"

namespace {

class TContainerNames : public TModelTest {};
class TContainerJoin : public TModelTest {};
class TContainerRemoval : public TModelTest {};
class TContainerEnd : public TModelTest {};

// Write down that they go.
class TNotedClass : public TCIMClass {
 public:
  TNotedClass(TContainer& container, const std::string& name, TCIMClass* super, std::string& notes)
      : TCIMClass(container, name, super), notes_(notes) {}
  ~TNotedClass() override { notes_ += GetName() + " "; }

 private:
  std::string& notes_;
};

class TNotedQualifierDecl : public TCIMQualifierDecl {
 public:
  TNotedQualifierDecl(TContainer& container, const std::string& name, std::string& notes)
      : TCIMQualifierDecl(container, name, TCIMValue(true), scopeNone, flavorNone), notes_(notes) {}
  ~TNotedQualifierDecl() override { notes_ += GetName() + " "; }

 private:
  std::string& notes_;
};

TEST_F(TContainerNames, OfClassesAndTheRoot) {
  TCIMClass& root = container.GetRootClass();
  TCIMClass& disk = schema.Class("Sample_Disk").With("ABSTRACT").Add();
  EXPECT_EQ(&root, container.FindClass(""));
  EXPECT_EQ(&root, &container.GetClass(""));
  EXPECT_EQ("<root>", root.GetName());
  EXPECT_EQ(&disk, container.FindClass("SAMPLE_disk"));
  EXPECT_EQ(nullptr, container.FindClass("Other"));
  EXPECT_EQ(vskStatusNotFound, StatusOf([&] { container.GetClass("Other"); }));
  EXPECT_EQ("", log.Take());
  EXPECT_EQ(vskStatusInvalidCIMName, StatusOf([&] { container.FindClass("<root>"); }));
  EXPECT_EQ("CIM name '<root>' is invalid", log.Take());
}

TEST_F(TContainerNames, OfQualifierDeclarations) {
  for (const char* name : {"_b", "B", "a"}) {
    schema.QualifierDecl(name, TCIMValue(true), TCIMQualifierDecl::flavorNone);
  }
  EXPECT_EQ("_b boolean; a boolean; B boolean; ", Picture(container));
  EXPECT_EQ(&container.GetQualifierDecl("b"), container.FindQualifierDecl("B"));
  EXPECT_EQ(nullptr, container.FindQualifierDecl(""));
  EXPECT_EQ(vskStatusNotFound, StatusOf([&] { container.GetQualifierDecl("c"); }));
  EXPECT_EQ(vskStatusInvalidCIMName, StatusOf([&] { container.FindQualifierDecl("1"); }));
  EXPECT_EQ("CIM name '1' is invalid", log.Take());
}

TEST_F(TContainerJoin, OfAQualifierDeclarationIsForGood) {
  std::string notes;
  const auto add = [&](const char* name) {
    return StatusOf([&] { (new TNotedQualifierDecl(container, name, notes))->AddToContainer(); });
  };
  EXPECT_EQ(vskStatusOK, add("Key"));
  EXPECT_EQ("", notes);
  EXPECT_EQ(vskStatusAlreadyExists, add("KEY"));
  EXPECT_EQ("[3] TContainer: qualifier KEY already defined", log.Take());
  EXPECT_EQ("KEY ", notes);
  EXPECT_EQ(vskStatusInvalidCIMName, add("K-Y"));
  EXPECT_EQ("CIM name 'K-Y' is invalid", log.Take());
  EXPECT_EQ("KEY K-Y ", notes);
  // One that stands there already is refused too, but stays.
  TCIMQualifierDecl& added = container.GetQualifierDecl("key");
  EXPECT_EQ(vskStatusAlreadyExists, StatusOf([&] { added.AddToContainer(); }));
  EXPECT_EQ("[3] TContainer: qualifier Key already defined", log.Take());
  EXPECT_EQ("KEY K-Y ", notes);
  EXPECT_EQ("Key", container.GetQualifierDecl("key").GetName());
  container.RemoveQualifierDecl(container.GetQualifierDecl("key"));
  EXPECT_EQ("KEY K-Y Key ", notes);
}

// Each row makes something depend on the class "Target"; the line says what stands in the way.
TEST_F(TContainerRemoval, OfAClassIsRefusedWhileSomethingDependsOnIt) {
  const TCIMValue one(1u);
  const auto target = [](TContainer& c) -> TCIMClass& { return c.GetClass("Target"); };
  const auto link = [&](TSchema& s, TContainer& c) -> TCIMClass& {
    TCIMClass& wide = c.GetClass("Wide");
    return s.Class("Link")
        .With("ASSOCIATION")
        .Reference("To", wide)
        .With("KEY")
        .Reference("Also", wide)
        .Add();
  };
  const struct {
    const char* dependent;
    std::function<void(TSchema&, TContainer&)> make;
  } rows[] = {
      {"subclass Sub", [&](TSchema& s, TContainer& c) { s.Class("Sub", &target(c)).Add(); }},
      {"property Ref of class User",
       [&](TSchema& s, TContainer& c) {
         s.Class("User").With("ASSOCIATION").With("ABSTRACT").Reference("Ref", target(c)).Add();
       }},
      {"property Refs of class User",
       [&](TSchema& s, TContainer& c) {
         const TCIMValue element(s.Path(target(c), {}));
         const TCIMValue array(TType(TType::cimReference), 2, {NullReference(target(c)), element});
         s.Class("User").With("ABSTRACT").Property("Refs", array).Add();
       }},
      {"a qualifier of class User",
       [&](TSchema& s, TContainer& c) {
         s.QualifierDecl("About", TCIMValue(), TCIMQualifierDecl::flavorNone);
         s.Class("User").With("ABSTRACT").With("About", NullReference(target(c))).Add();
       }},
      {"property P of class User",
       [&](TSchema& s, TContainer& c) {
         s.QualifierDecl("About", TCIMValue(), TCIMQualifierDecl::flavorNone);
         s.Class("User").Key("P", TType::cimUint8).With("About", NullReference(target(c))).Add();
       }},
      {"qualifier About",
       [&](TSchema& s, TContainer& c) {
         s.QualifierDecl("About", NullReference(target(c)), TCIMQualifierDecl::flavorNone);
       }},
      {"an instance of class Link",
       [&](TSchema& s, TContainer& c) {
         s.Add(link(s, c),
               {{"To", s.Path(c.GetClass("Wide"), {})}, {"Also", NullReference(target(c))}});
       }},
      {"an instance of class Link",
       [&](TSchema& s, TContainer& c) {
         s.Add(link(s, c), {{"To", s.Path(target(c), {{"Id", one}})}});
       }},
      {"an instance of class Far",  // within the keys of what it refers to
       [&](TSchema& s, TContainer& c) {
         TCIMClass& near = link(s, c);
         const TCIMReference inner = s.Path(target(c), {{"Id", one}});
         TCIMClass& far =
             s.Class("Far").With("ASSOCIATION").Reference("To", near).With("KEY").Add();
         s.Add(far, {{"To", s.Path(near, {{"To", inner}})}});
       }},
      {"property Ref of class User",  // a declaration that the class itself has dropped
       [&](TSchema& s, TContainer& c) {
         TCIMClass& user = s.Class("User")
                               .With("ASSOCIATION")
                               .Key("Id", TType::cimUint32)
                               .Reference("Ref", target(c))
                               .Add();
         s.Add(user, {{"Id", one}});
         user.RemovePropertyDecl(const_cast<TCIMPropertyDecl&>(user.GetPropertyDecl("Ref")));
       }},
      {"property Own of class User",  // a declaration borrowed from the class
       [&](TSchema& s, TContainer& c) {
         TCIMClass& user = s.Class("User").With("ABSTRACT").Property("Own", TType::cimUint8).Add();
         s.Add(user, {}).SetProperty(TCIMProperty(target(c).GetPropertyDecl("Own")));
       }},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.dependent);
    TContainer c;
    TSchema s(c);
    TCIMClass& wide = s.Class("Wide").With("ABSTRACT").Key("Id", TType::cimUint32).Add();
    s.Add(s.Class("Target", &wide).Property("Own", TType::cimUint8).Add(), {{"Id", one}});
    row.make(s, c);
    const std::string before = Picture(c);
    EXPECT_EQ(vskStatusInvalidOpSequence, StatusOf([&] { c.RemoveClass(target(c)); }));
    EXPECT_EQ("TContainer: class Target can't be removed: " + std::string(row.dependent) +
                  " depends on it",
              log.Take());
    EXPECT_EQ(before, Picture(c));
  }
}

TEST_F(TContainerRemoval, OfAClassTakesItsOwnAlongAndLeavesNoLink) {
  TCIMClass& base = schema.Class("Base").With("ABSTRACT").Key("Id", TType::cimUint32).Add();
  const std::string before = Picture(container);
  TCIMClass& first = schema.Class("First", &base).Add();
  TCIMClass& loop = schema.Class("Loop", &base).With("ASSOCIATION").Add();
  auto itself = std::make_unique<TCIMPropertyDecl>("Next", loop, NullReference(loop));
  AddOrDestroy(std::move(itself));
  TCIMInstance& one = schema.Add(loop, {{"Id", TCIMValue(1u)}});
  schema.Add(loop, {{"Id", TCIMValue(2u)}, {"Next", one.BuildPath()}});

  const auto spelledAlike = schema.Class("LOOP").Take();
  container.RemoveClass(*spelledAlike);  // by name
  EXPECT_EQ(nullptr, container.FindClass("Loop"));
  EXPECT_EQ(std::vector<TCIMClass*>{&first}, base.EnumerateSubClasses(true));
  EXPECT_EQ(vskStatusNotFound, StatusOf([&] { container.RemoveClass(*spelledAlike); }));
  container.RemoveClass(first);
  container.RemoveQualifierDecl(container.GetQualifierDecl("ASSOCIATION"));
  EXPECT_EQ(before, Picture(container));
}

TEST_F(TContainerRemoval, OfAQualifierDeclarationIsRefusedWhileItIsInUse) {
  TCIMClass& disk = schema.Class("Disk")
                        .With("PLUGINNAME", "p")
                        .Key("Id", TType::cimUint32)
                        .Property("Size", TType::cimUint32)
                        .With("UNITS", "Bytes")
                        .Add();
  schema.Add(disk, {{"Id", TCIMValue(1u)}});
  const auto sub = schema.Class("Sub", &disk).Add().FindQualifier("PLUGINNAME");
  const auto refused = [&](const char* name) {
    EXPECT_EQ(vskStatusInvalidOpSequence,
              StatusOf([&] { container.RemoveQualifierDecl(container.GetQualifierDecl(name)); }));
    return log.Take();
  };
  EXPECT_EQ("TContainer: qualifier PLUGINNAME can't be removed: class Disk depends on it",
            refused("PLUGINNAME"));
  disk.RemoveQualifier(const_cast<TCIMQualifier&>(*sub));
  EXPECT_EQ("TContainer: qualifier PLUGINNAME can't be removed: class Sub depends on it",
            refused("PLUGINNAME"));
  EXPECT_EQ(
      "TContainer: qualifier UNITS can't be removed: property Size of class Disk depends on it",
      refused("UNITS"));
  for (const char* name : {"Sub", "Disk"}) {  // the instance uses it longer than the class
    TCIMClass& holder = container.GetClass(name);
    holder.RemovePropertyDecl(const_cast<TCIMPropertyDecl&>(holder.GetPropertyDecl("Size")));
  }
  EXPECT_EQ(
      "TContainer: qualifier UNITS can't be removed: property Size of class Disk depends on it",
      refused("UNITS"));
  disk.RemoveInstance(*disk.EnumerateInstances(false).at(0));
  container.RemoveQualifierDecl(container.GetQualifierDecl("units"));
  EXPECT_EQ(nullptr, container.FindQualifierDecl("UNITS"));
  schema.Qualify(container.GetRootClass(), "About", "all");
  EXPECT_EQ("TContainer: qualifier About can't be removed: class <root> depends on it",
            refused("About"));
}

TEST_F(TContainerEnd, DestroysClassesThenDeclarationsByDescendingName) {
  std::string notes;
  {
    TContainer closing;
    TSchema inIt(closing);
    (new TNotedQualifierDecl(closing, "Abstract", notes))->AddToContainer();
    (new TNotedQualifierDecl(closing, "Key", notes))->AddToContainer();
    TCIMClass* super = nullptr;
    for (const char* name : {"M", "z", "A", "Q"}) {
      auto added = std::make_unique<TNotedClass>(closing, name, super, notes);
      inIt.Qualify(*added, "ABSTRACT");
      super = &AddOrDestroy(std::move(added));
    }
  }
  EXPECT_EQ("z Q M A Key Abstract ", notes);
}

}  // namespace
