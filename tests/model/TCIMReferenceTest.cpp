#include <vskcore/model/TCIMDateTime.h>
#include <vskcore/model/TCIMReference.h>

#include "support/TModelTest.h"

namespace {

class TCIMReferenceParts : public TModelTest {};
class TCIMReferencePath : public TModelTest {};
class TCIMReferenceOrder : public TModelTest {};

class TCIMReferenceTarget : public TModelTest {
 protected:
  TCIMReferenceTarget()
      : disk(schema.Class("Disk").Key("Id", TType::cimUint32).Key("b", TType::cimUint32).Add()) {}

  TCIMInstance& AddDisk(unsigned int id) { return schema.Add(disk, {{"Id", id}, {"b", 2u}}); }
  TCIMReference PathOf(unsigned int id) { return schema.Path(disk, {{"Id", id}, {"b", 2u}}); }
  static vskStatus LookUp(const TCIMReference& reference) {
    return StatusOf([&] { reference.GetCIMElement(); });
  }

  TCIMClass& disk;
};

TEST_F(TCIMReferenceParts, AreRefusedOutOfOrder) {
  TCIMClass& disk = schema.Class("Disk").Key("Id", TType::cimUint32).Add();
  const TCIMValue one(1u);
  TCIMReference empty;
  EXPECT_EQ(vskStatusInvalidReference, StatusOf([&] { empty.GetClass(); }));
  EXPECT_EQ(vskStatusInvalidReference, StatusOf([&] { empty.GetClassName(); }));
  EXPECT_EQ(vskStatusInvalidReference, StatusOf([&] { empty.GetPath(); }));
  EXPECT_EQ(vskStatusInvalidReference, StatusOf([&] { empty.GetCIMElement(); }));
  EXPECT_EQ(vskStatusInvalidOpSequence, StatusOf([&] { empty.AddKeyValue("Id", one); }));
  EXPECT_EQ(vskStatusInvalidOpSequence, StatusOf([&] { empty.SetClassName("Disk"); }));
  EXPECT_EQ(vskStatusInvalidOpSequence, StatusOf([&] { empty.SetPath("Disk"); }));
  EXPECT_EQ(vskStatusInvalidOpSequence, StatusOf([] { TCIMReference(nullptr, "Disk"); }));
  EXPECT_EQ(vskStatusNotImplemented, StatusOf([&] { TCIMReference(&container, "Disk"); }));
  EXPECT_EQ(nullptr, empty.FindClass());
  empty.SetKeyBindings({{"Id", one}});
  EXPECT_EQ(vskStatusInvalidReference, StatusOf([&] { empty.GetCIMElement(); }));

  TCIMReference bound(&container);
  EXPECT_EQ(vskStatusNotImplemented, StatusOf([&] { bound.SetPath("Disk"); }));
  EXPECT_EQ(vskStatusNotFound, StatusOf([&] { bound.SetClassName("Other"); }));
  bound.SetClassName("dISK");
  bound.AddKeyValue("Id", one);
  EXPECT_EQ(vskStatusInvalidOpSequence, StatusOf([&] { bound.SetClass(disk); }));
  EXPECT_EQ(vskStatusInvalidOpSequence, StatusOf([&] { bound.SetClassName("Disk"); }));
  bound.Clear();
  EXPECT_EQ(vskStatusInvalidOpSequence, StatusOf([&] { bound.SetClassName("Disk"); }));
  bound.SetContainer(&container);
  bound.SetClassName("Disk");
  EXPECT_EQ("Disk", bound.GetPath());
}

TEST_F(TCIMReferenceParts, KeysAreHeldAgainstTheClass) {
  TCIMClass& disk =
      schema.Class("Disk").Key("Id", TType::cimUint32).Property("N", TType::cimString).Add();
  TCIMReference path;
  path.SetClass(disk);
  EXPECT_EQ(vskStatusNotFound, StatusOf([&] { path.AddKeyValue("Other", TCIMValue(1u)); }));
  EXPECT_EQ(vskStatusTypeMismatch, StatusOf([&] { path.AddKeyValue("Id", TCIMValue(1)); }));
  EXPECT_EQ("Declaration type: uint32 Value type: sint32", log.Take());
  const TCIMValue numbers(TType(TType::cimUint32), 3);
  EXPECT_EQ(vskStatusTypeMismatch, StatusOf([&] { path.AddKeyValue("Id", numbers); }));
  EXPECT_EQ("Declaration type: uint32 Value type: uint32", log.Take());
  EXPECT_EQ("Disk", path.GetPath());
  path.AddKeyValue("Id", TCIMValue(1u));
  path.AddKeyValue("Id", TCIMValue(2u));  // the first stays
  path.AddKeyValue("ID", TCIMValue(3u));
  path.AddKeyValue("N", TCIMValue("x"));  // any property will do
  EXPECT_EQ("Disk.ID=\"3\",Id=\"1\",N=\"x\"", path.GetPath());
  EXPECT_EQ(3u, path.EnumerateKeyBindings().size());
}

TEST_F(TCIMReferenceParts, CopiesAreIndependent) {
  TCIMClass& disk =
      schema.Class("Disk").Key("Id", TType::cimUint32).Property("N", TType::cimUint8).Add();
  TCIMReference source = schema.Path(disk, {{"Id", 1u}});
  TCIMReference copy(source);
  TCIMReference assigned;
  assigned = source;
  const TCIMReference& itself = assigned;
  assigned = itself;
  EXPECT_TRUE(source == copy && source == assigned);
  copy.AddKeyValue("N", TCIMValue(std::uint8_t{3}));
  assigned.Clear();
  EXPECT_EQ("Disk.Id=\"1\"", source.GetPath());
  EXPECT_EQ("Disk.Id=\"1\",N=\"3\"", copy.GetPath());
  const TCIMReference before(source);
  TCIMReference bare(source);
  bare.SetKeyBindings({});
  source.AddKeyValue("N", TCIMValue(std::uint8_t{4}));
  EXPECT_EQ("Disk.Id=\"1\",N=\"4\"", source.GetPath());
  EXPECT_EQ("Disk.Id=\"1\"", before.GetPath());
  EXPECT_EQ("Disk", bare.GetPath());
  copy.Clear();
  EXPECT_EQ(vskStatusInvalidOpSequence, StatusOf([&] { copy.SetPath(""); }));  // no container left
  EXPECT_EQ(vskStatusNotImplemented, StatusOf([&] { source.SetPath(""); }));
}

TEST_F(TCIMReferencePath, PutsEveryValueInQuotes) {
  TCIMClass& disk = schema.Class("Disk").Key("Id", TType::cimUint32).Add();
  TCIMClass& all = schema.Class("All")
                       .With("ASSOCIATION")
                       .Key("b", TType::cimBoolean)
                       .Key("a", TType::cimString)
                       .Key("D", TType::cimDateTime)
                       .Reference("r", disk)
                       .With("KEY")
                       .Add();
  const TCIMReference target = schema.Path(disk, {{"Id", 5u}});
  const TCIMDateTime when("20051031175918.000000+060");
  EXPECT_EQ(
      "All.D=\"20051031175918.000000+060\",a=\"say \"x\", y\",b=\"true\",r=\"Disk.Id=\"5\"\"",
      schema.Path(all, {{"r", target}, {"b", true}, {"a", "say \"x\", y"}, {"D", when}}).GetPath());
  const TCIMReference null = schema.Path(disk, {{"Id", TCIMValue(TType::cimUint32, 0)}});
  EXPECT_EQ(vskStatusValueIsNULL, StatusOf([&] { null.GetPath(); }));
  EXPECT_EQ("Disk.Id=\"5\"", TCIMValue(target).ToString(16));
}

TEST_F(TCIMReferenceTarget, IsTheClassWithoutBindings) {
  EXPECT_EQ(static_cast<ICIMElement*>(&disk), &schema.Path(disk, {}).GetCIMElement());
}

TEST_F(TCIMReferenceTarget, IsRememberedAndGoesWithCopies) {
  const TCIMReference path = PathOf(7);
  EXPECT_EQ(vskStatusNotFound, LookUp(path));
  TCIMInstance& seven = AddDisk(7);
  EXPECT_EQ(&seven, &path.GetCIMElement());
  // Found by memory now: a search would miss it.
  seven.SetPropertyValue("Id", TCIMValue(8u));
  EXPECT_EQ(&seven, &path.GetCIMElement());
  TCIMReference copy(path);
  EXPECT_EQ(&seven, &copy.GetCIMElement());
  copy.SetKeyBindings({{"Id", 1u}});
  EXPECT_EQ(&seven, &copy.GetCIMElement());
  TCIMReference assigned;
  assigned = path;
  EXPECT_EQ(&seven, &assigned.GetCIMElement());
  const TCIMReference stored = TCIMValue(path);
  EXPECT_EQ(&seven, &stored.GetCIMElement());
  assigned.Clear();
  assigned.SetClass(disk);
  assigned.AddKeyValue("Id", TCIMValue(7u));
  EXPECT_EQ(vskStatusNotFound, LookUp(assigned));
}

TEST_F(TCIMReferenceTarget, IsSoughtAnewOnceRemoved) {
  const TCIMReference path = PathOf(7);
  disk.RemoveInstance(AddDisk(7));
  TCIMInstance& first = AddDisk(7);
  TCIMInstance& second = AddDisk(7);
  EXPECT_EQ(&first, &path.GetCIMElement());
  disk.RemoveInstance(first);
  EXPECT_EQ(&second, &path.GetCIMElement());
  const TCIMReference copy(path);
  disk.RemoveInstance(second);
  EXPECT_EQ(vskStatusNotFound, LookUp(path));
  EXPECT_EQ(vskStatusNotFound, LookUp(copy));
}

TEST_F(TCIMReferenceTarget, MayFollowTheStoredReference) {
  const TCIMValue stored(PathOf(7));
  EXPECT_EQ(&disk, &stored.GetReferencedClass());
  const TCIMReference before = stored;
  EXPECT_EQ(vskStatusNotFound, LookUp(before));
  TCIMInstance& seven = AddDisk(7);
  const TCIMReference after = stored;
  EXPECT_EQ(&seven, &after.GetCIMElement());

  // Storing looks the instance up for the source as well.
  const TCIMReference source = PathOf(7);
  const TCIMValue resolved(source);
  seven.SetPropertyValue("b", TCIMValue(3u));
  const TCIMReference copy = resolved;
  EXPECT_EQ(&seven, &copy.GetCIMElement());
  EXPECT_EQ(&seven, &source.GetCIMElement());
  EXPECT_EQ(vskStatusNotFound, LookUp(PathOf(7)));
}

TEST_F(TCIMReferenceOrder, GoesByClassThenByBindings) {
  TCIMClass& disk =
      schema.Class("Disk").Key("a", TType::cimUint32).Key("B", TType::cimUint32).Add();
  TCIMClass& solid = schema.Class("Solid", &disk).Add();
  const auto path = [&](const TSchema::TValues& keys) { return schema.Path(disk, keys); };
  const TCIMReference ascending[] = {
      path({}),          path({{"B", 1u}}), path({{"B", 1u}, {"a", 3u}}),
      path({{"B", 2u}}), path({{"a", 0u}}), path({{"a", 1u}}),
  };
  for (const TCIMReference& left : ascending) {
    for (const TCIMReference& right : ascending) {
      SCOPED_TRACE(left.GetPath() + " and " + right.GetPath());
      EXPECT_EQ(&left < &right, left < right);
      EXPECT_EQ(&left == &right, left == right);
      EXPECT_EQ(&left == &right, TCIMValue(left) == TCIMValue(right));
      EXPECT_EQ(&left < &right, TCIMValue(left) < TCIMValue(right));
    }
  }
  const TCIMReference other = schema.Path(solid, {{"a", 1u}});
  EXPECT_FALSE(other == ascending[5]);
  EXPECT_EQ(&solid < &disk, other < ascending[0]);
  EXPECT_EQ(&disk < &solid, ascending[5] < other);
  TCIMReference elsewhere(ascending[1]);
  elsewhere.SetContainer(nullptr);
  EXPECT_TRUE(elsewhere == ascending[1]);
}

TEST_F(TCIMReferenceOrder, PassesFailuresOfValuesOn) {
  TCIMClass& list =
      schema.Class("List").Property("Ids", TCIMValue(TType::cimUint32, 2)).With("KEY").Add();
  const TCIMValue ids(TType(TType::cimUint32), 2, {TCIMValue(1u)});
  const TCIMReference left = schema.Path(list, {{"Ids", ids}});
  const TCIMReference right(left);
  EXPECT_EQ(vskStatusNotImplemented, StatusOf([&] { (void)(left == right); }));
  EXPECT_EQ(vskStatusNotImplemented, StatusOf([&] { (void)(left < right); }));
  EXPECT_EQ(vskStatusNotFound, StatusOf([&] { left.GetCIMElement(); }));
}

}  // namespace
