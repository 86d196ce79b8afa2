#include <gtest/gtest.h>
#include <vskcore/model/TCIMClass.h>
#include <vskcore/model/TCIMQualifier.h>
#include <vskcore/model/TCIMQualifierDecl.h>
#include <vskcore/model/TContainer.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "model/NormalizeCIMName.h"
#include "model/TQualifierTable.h"
#include "support/StatusOf.h"
#include "support/TLogCapture.h"

using EFlavor = TCIMQualifierDecl::EFlavor;
using TCIMType = TCIMValue::TCIMType;
using vsk::detail::IsTrue;

namespace {

constexpr auto kOverridable = TCIMQualifierDecl::flavorOverridable;
constexpr auto kToSubclass = TCIMQualifierDecl::flavorToSubclass;
constexpr auto kNoFlavor = TCIMQualifierDecl::flavorNone;

class TCIMQualifierTable : public testing::Test {
 protected:
  TCIMQualifierDecl& Declare(const std::string& name, EFlavor flavor = kNoFlavor) {
    TCIMQualifierDecl& declaration =
        container_.AllocateQualifierDecl(name, TCIMValue(), TCIMQualifierDecl::scopeClass, flavor);
    declaration.AddToContainer();
    return declaration;
  }

  // Adds a new qualifier; null when the table did not take it.
  const TCIMQualifier* Add(const TCIMQualifierDecl& declaration, const TCIMValue& value,
                           EFlavor flavor) {
    auto qualifier = std::make_unique<TCIMQualifier>(declaration, value, flavor);
    table_.Add(*qualifier);
    return table_.Find(declaration.GetName()) == qualifier.get() ? qualifier.release() : nullptr;
  }

  std::string Picture(const vsk::detail::TQualifierTable& table) {
    std::string picture;
    for (const TCIMQualifier* qualifier : table.Enumerate()) {
      picture += qualifier->GetName() + "=" + qualifier->GetValue().ToString(10) + "/" +
                 std::to_string(qualifier->GetFlavor()) + (qualifier->GetPropagated() ? "p " : " ");
    }
    return picture;
  }

  TContainer container_;
  vsk::detail::TQualifierTable table_;
  TLogCapture log_;
};

}  // namespace

TEST(NormalizedName, LettersDigitsAndUnderscoresOfASCII) {
  const std::pair<const char*, const char*> kGood[] = {{"", ""},
                                                       {"KeY", "key"},
                                                       {"_", "_"},
                                                       {"__9", "__9"},
                                                       {"ABCXYZabcxyz_0189", "abcxyzabcxyz_0189"}};
  for (const auto& [name, key] : kGood) EXPECT_EQ(key, NormalizeCIMName(name));

  TLogCapture log;
  for (const std::string name : {"9X", "0", "Two words", "K-y", "Key ", "a.b", "Key@", "Key[",
                                 "Key`", "Key{", "Key/", "Key:", "\u00C4ra", "K\u00E4se"}) {
    EXPECT_EQ(vskStatusInvalidCIMName, StatusOf([&] { NormalizeCIMName(name); })) << name;
    EXPECT_EQ("CIM name '" + name + "' is invalid", log.Take());
  }
}

TEST(TCIMQualifierDecl, Fields) {
  TContainer container;
  TCIMQualifierDecl bare(container);
  EXPECT_EQ("", bare.GetName());
  EXPECT_TRUE(bare.GetValue().IsNull());
  EXPECT_EQ(TCIMType::cimNone, bare.GetType());
  EXPECT_EQ(0, bare.GetScope());
  EXPECT_EQ(0, bare.GetFlavor());

  TCIMQualifierDecl full(container, "Sizes", TCIMValue(TCIMType::cimUint8, 3),
                         TCIMQualifierDecl::scopeProperty | TCIMQualifierDecl::scopeReference,
                         kToSubclass);
  EXPECT_EQ(&container, &full.GetContainer());
  EXPECT_EQ(12, full.GetScope());
  EXPECT_TRUE(full.IsArray());
  full.SetFlavor(TCIMQualifierDecl::flavorTranslatable | kToSubclass);
  full.UnsetFlavor(kToSubclass | kOverridable);
  EXPECT_EQ(TCIMQualifierDecl::flavorTranslatable, full.GetFlavor());
  full.SetValue("not an array any more");
  EXPECT_EQ(TCIMType::cimString, full.GetType());
}

TEST(TCIMQualifierDecl, ComparesByName) {
  TContainer container;
  TCIMQualifierDecl key(container, "Key", 1U, TCIMQualifierDecl::scopeNone, kNoFlavor);
  TCIMQualifierDecl loud(container, "KEY", "x", TCIMQualifierDecl::scopeClass, kToSubclass);
  TCIMQualifierDecl under(container, "_key", 1U, TCIMQualifierDecl::scopeNone, kNoFlavor);
  EXPECT_TRUE(key == loud);
  EXPECT_FALSE(key < loud);
  EXPECT_FALSE(key == under);
  EXPECT_TRUE(under < loud);  // although "K" is less than "_"
  EXPECT_TRUE(TCIMQualifier(key, 1U) == TCIMQualifier(loud, 2U));
  EXPECT_TRUE(TCIMQualifier(under, 1U) < TCIMQualifier(key, 1U));

  TLogCapture log;
  TCIMQualifierDecl bad(container, "no name", 1U, TCIMQualifierDecl::scopeNone, kNoFlavor);
  EXPECT_EQ(vskStatusInvalidCIMName, StatusOf([&] { (void)(key == bad); }));
  EXPECT_EQ(vskStatusInvalidCIMName, StatusOf([&] { (void)(bad < key); }));
  EXPECT_EQ("CIM name 'no name' is invalid\nCIM name 'no name' is invalid", log.Take());
}

TEST(TCIMQualifier, ChangeEndsPropagation) {
  TContainer container;
  TCIMQualifierDecl declaration(container, "Weight", 1U, TCIMQualifierDecl::scopeClass,
                                kToSubclass);
  TCIMQualifier qualifier(declaration, "of another type");
  declaration.SetFlavor(kOverridable);
  EXPECT_EQ(kToSubclass, qualifier.GetFlavor());  // as it was when the qualifier was made
  EXPECT_EQ(TCIMType::cimString, qualifier.GetType());
  EXPECT_EQ(&declaration, &qualifier.GetDeclaration());
  EXPECT_FALSE(qualifier.GetPropagated());

  qualifier.SetPropagated(true);
  TCIMQualifier copy(qualifier);
  EXPECT_TRUE(copy.GetPropagated());
  copy.SetValue(TCIMValue(TCIMType::cimUint8, 2));
  EXPECT_FALSE(copy.GetPropagated());
  EXPECT_TRUE(copy.IsArray());
  EXPECT_FALSE(qualifier.IsArray());
  EXPECT_EQ("of another type", qualifier.GetValue().ToString(10));
  EXPECT_TRUE(qualifier.GetPropagated());
  qualifier.SetFlavor(kOverridable);
  EXPECT_FALSE(qualifier.GetPropagated());
  EXPECT_EQ(kToSubclass | kOverridable, qualifier.GetFlavor());
  qualifier.SetPropagated(true);
  qualifier.UnsetFlavor(kToSubclass);
  EXPECT_FALSE(qualifier.GetPropagated());
  EXPECT_EQ(kOverridable, qualifier.GetFlavor());
}

TEST_F(TCIMQualifierTable, FoundInAnyCase) {
  const TCIMQualifier* key = Add(Declare("Key"), true, kNoFlavor);
  ASSERT_NE(nullptr, key);
  EXPECT_EQ(key, table_.Find("KEY"));
  EXPECT_EQ("Key", table_.Get("kEY").GetName());
  EXPECT_EQ(nullptr, table_.Find("Keys"));
  EXPECT_EQ(vskStatusNotFound, StatusOf([&] { table_.Get("Keys"); }));
  EXPECT_EQ(vskStatusInvalidCIMName, StatusOf([&] { table_.Find("no name"); }));
  EXPECT_EQ("CIM name 'no name' is invalid", log_.Take());
  Add(Declare("b"), 2U, kNoFlavor);
  Add(Declare("_z"), 3U, kNoFlavor);
  EXPECT_EQ("_z=3/0 b=2/0 Key=true/0 ", Picture(table_));

  const TCIMQualifier same(key->GetDeclaration(), false);
  table_.Remove(same);  // by name, not by address
  EXPECT_EQ("_z=3/0 b=2/0 ", Picture(table_));
  EXPECT_EQ(vskStatusNotFound, StatusOf([&] { table_.Remove(same); }));
}

TEST_F(TCIMQualifierTable, InvalidNameIsRefused) {
  TCIMQualifierDecl bad(container_, "9x", 1U, TCIMQualifierDecl::scopeNone, kNoFlavor);
  EXPECT_EQ(vskStatusInvalidCIMName, StatusOf([&] { Add(bad, 1U, kNoFlavor); }));
  EXPECT_EQ("CIM name '9x' is invalid", log_.Take());
  EXPECT_EQ("", Picture(table_));
}

TEST_F(TCIMQualifierTable, SecondOfAName) {
  TCIMQualifierDecl& declaration = Declare("Rank");
  TCIMQualifierDecl& loud = Declare("Other");
  loud.SetName("RANK");
  const struct {
    EFlavor stored;
    unsigned int value;
    EFlavor flavor;
    vskStatus status;
    const char* picture;
  } kRows[] = {
      {kOverridable, 2, kToSubclass, vskStatusOK, "RANK=2/2 "},  // replaced, its spelling too
      {kOverridable, 1, kOverridable, vskStatusOK, "RANK=1/1 "},
      {kToSubclass, 1, kToSubclass, vskStatusOK, "Rank=1/2 "},  // a mere repeat
      {kToSubclass, 2, kToSubclass, vskStatusNotOverridable, "Rank=1/2 "},
      {kToSubclass, 1, kOverridable, vskStatusNotOverridable, "Rank=1/2 "},
  };
  for (const auto& row : kRows) {
    Add(declaration, 1U, row.stored);
    EXPECT_EQ(row.status, StatusOf([&] { Add(loud, row.value, row.flavor); }));
    EXPECT_EQ(row.picture, Picture(table_));
    table_.Remove(table_.Get("rank"));
  }
}

TEST_F(TCIMQualifierTable, ArraysDoNotRepeat) {
  TCIMQualifierDecl& declaration = Declare("Values");
  const TCIMValue texts(TCIMType::cimString, 0, {"a"});
  ASSERT_NE(nullptr, Add(declaration, texts, kNoFlavor));
  for (const EFlavor flavor : {kNoFlavor, kOverridable}) {  // values count before flavors
    EXPECT_EQ(vskStatusNotImplemented, StatusOf([&] { Add(declaration, texts, flavor); }));
  }
  EXPECT_EQ("Values={ a }/0 ", Picture(table_));
}

TEST_F(TCIMQualifierTable, AddedTwiceIsKept) {
  auto* qualifier = new TCIMQualifier(Declare("Rank"), 1U, kOverridable);
  table_.Add(*qualifier);
  table_.Add(*qualifier);
  EXPECT_EQ(qualifier, table_.Find("Rank"));
  EXPECT_EQ("Rank=1/1 ", Picture(table_));
}

TEST_F(TCIMQualifierTable, InheritsWhatGoesToSubclasses) {
  Add(Declare("Stays"), 1U, kOverridable);
  Add(Declare("Goes"), 2U, kToSubclass);
  vsk::detail::TQualifierTable child;
  vsk::detail::TQualifierTable grandchild;
  child.Inherit(table_);
  grandchild.Inherit(child);
  EXPECT_EQ("Goes=2/2p ", Picture(grandchild));
  EXPECT_NE(table_.Find("Goes"), child.Find("Goes"));
  EXPECT_FALSE(table_.Get("Goes").GetPropagated());

  // A copy from above resists like any other.
  TCIMQualifier other(table_.Get("Goes").GetDeclaration(), 3U, kToSubclass);
  EXPECT_EQ(vskStatusNotOverridable, StatusOf([&] { child.Add(other); }));
}

TEST_F(TCIMQualifierTable, TruthIsABooleanThatIsTrue) {
  const TCIMQualifierDecl& declaration = Declare("Key");
  EXPECT_FALSE(IsTrue(nullptr));
  const auto truth = [&](const TCIMValue& value) {
    const TCIMQualifier qualifier(declaration, value);
    return IsTrue(&qualifier);
  };
  EXPECT_TRUE(truth(true));
  EXPECT_FALSE(truth(false));
  EXPECT_FALSE(truth(TCIMValue(TCIMType::cimString, 0)));
  EXPECT_EQ(vskStatusTypeMismatch, StatusOf([&] { truth("true"); }));
}
