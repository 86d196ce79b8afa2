// The indexes of instances and of referrers against the plain walks: random changes of every kind
// that may reach a path or a reference, and between them the same questions to both. Behind that,
// searches whose answers are known.
#include <vskcore/model/TCIMDateTime.h>

#include <algorithm>
#include <iostream>
#include <limits>
#include <random>
#include <set>
#include <utility>

#include "support/TModelTest.h"

namespace {

using TType = TCIMValue::TCIMType;

const auto kArray = static_cast<TCIMValue::ECIMType>(TType::cimUint8 | TType::cimArrayFlag);

// What FindInstance is to answer: the first whose path, once built, equals the reference.
TCIMInstance* Walk(const TCIMClass& cimClass, const TCIMReference& reference) {
  for (TCIMInstance* instance : cimClass.EnumerateInstances(false)) {
    if (instance->BuildPath() == reference) return instance;
  }
  return nullptr;
}

bool PointsAt(const TCIMProperty& property, const TCIMInstance& target) {
  const TCIMValue value = property.GetValue();
  if (!value.IsReference()) return false;
  const TCIMReference reference = value;  // fails for NULL
  ICIMElement* element = nullptr;
  const vskStatus status = StatusOf([&] { element = &reference.GetCIMElement(); });
  if (status != vskStatusOK && status != vskStatusNotFound) throw TVSKException(status);
  return element == &target;
}

// What References is to answer: every instance of these associations that has such a reference.
std::vector<TCIMInstance*> WalkReferrers(const TCIMInstance& target, const std::string& role) {
  std::vector<TCIMInstance*> all;
  for (const TCIMClass* association : target.GetClass().References("", role)) {
    for (TCIMInstance* instance : association->EnumerateInstances(false)) {
      const auto properties = instance->EnumerateProperties();
      const TCIMProperty* of = role.empty() ? nullptr : instance->FindProperty(role);
      const bool points =
          role.empty() ? std::any_of(properties.begin(), properties.end(),
                                     [&](const auto* each) { return PointsAt(*each, target); })
                       : of != nullptr && PointsAt(*of, target);
      if (points) all.push_back(instance);
    }
  }
  return all;
}

// Few enough values of each type that paths meet, with all that is awkward to compare.
class TDice {
 public:
  explicit TDice(unsigned int seed) : engine_(seed) {}

  std::size_t Below(std::size_t count) { return engine_() % count; }
  bool OneIn(std::size_t count) { return Below(count) == 0; }

  template <typename TItems>
  auto Pick(const TItems& items) {
    return items[Below(std::size(items))];
  }

  std::string AnyCase(std::string name) {
    for (char& letter : name) {
      if (letter >= 'A' && OneIn(4)) letter = static_cast<char>(letter ^ 0x20);
    }
    return name;
  }

  TCIMValue Value(TCIMValue::ECIMType type) {
    const double reals[] = {0.0, -0.0, 1.5, std::numeric_limits<double>::quiet_NaN()};
    const char* const texts[] = {"", "a", "A", "a text that is too long to lie in the string"};
    if (OneIn(12)) return Null(type);
    if (type == kArray) return TCIMValue(TType::cimUint8, 2, {TCIMValue(std::uint8_t{7})});
    switch (type) {
      case TType::cimString:
        return TCIMValue(Pick(texts));
      case TType::cimReal64:
        return TCIMValue(Pick(reals));
      case TType::cimDateTime:
        return TCIMValue(DateTime());
      case TType::cimSint64:
        return TCIMValue(static_cast<std::int64_t>(Below(5)) - 2);
      default:
        return TCIMValue(static_cast<unsigned int>(Below(8)));
    }
  }

 private:
  static TCIMValue Null(TCIMValue::ECIMType type) {
    TCIMValue null;
    null.SetNullValue(type, 2);
    return null;
  }

  TCIMDateTime DateTime() {
    const char* const texts[] = {"20051031175918.000000+060", "20051031165918.000000+000",
                                 "20051031165918.000001+000", "20010101000000.000000+000",
                                 "00000001020304.000005:000"};
    TCIMDateTime dateTime(Pick(texts));
    if (OneIn(30)) dateTime.Clear();
    return dateTime;
  }

  std::mt19937 engine_;
};

// A small schema, what stands in it, and the hands that change it.
class TIndexWorld {
 public:
  TIndexWorld(unsigned int seed, std::size_t size) : dice_(seed), size_(size) {
    TCIMClass& plain = schema_.Class("Plain")
                           .Key("Id", TType::cimUint32)
                           .Key("_b", TType::cimString)
                           .Property("a", TCIMValue(std::int64_t{1}))
                           .Add();
    TCIMClass& real =
        schema_.Class("Real").Key("R", TType::cimReal64).Key("S", TType::cimSint64).Add();
    // Date-times whose comparison fails stand before, and behind, a key that tells paths apart.
    TCIMClass& event =
        schema_.Class("Event").Key("At", TType::cimDateTime).Key("Id", TType::cimUint32).Add();
    schema_.Class("Late").Key("Id", TType::cimUint32).Key("Z", TType::cimDateTime).Add();
    schema_.Class("List").Key("Id", TType::cimUint32).Key("Z", kArray).Add();
    TCIMClass& link = schema_.Class("Link")
                          .With("ASSOCIATION")
                          .Reference("From", plain)
                          .With("KEY")
                          .Reference("To", event)
                          .With("KEY")
                          .Add();
    // References that are no keys, one with a default.
    schema_.Class("Tie")
        .With("ASSOCIATION")
        .Key("Id", TType::cimUint32)
        .Reference("Left", plain)
        .Reference("Right", real)
        .Reference("Third", plain)
        .Add();
    schema_.Class("Over").With("ASSOCIATION").Reference("Link", link).With("KEY").Add();
    schema_.Class("SubPlain", &plain).Add();
    schema_.Class("SubReal", &real).Property("T", TCIMValue("d")).With("KEY").Add();
    classes_ = container_.GetRootClass().EnumerateSubClasses(true);
  }

  // One change, most often to keys.
  void Change() {
    TCIMClass& cimClass = *dice_.Pick(classes_);
    const auto instances = cimClass.EnumerateInstances(false);
    if (instances.size() < 2 || dice_.OneIn(instances.size() < size_ ? 3 : 12)) {
      return Attempt([&] { AddInstance(cimClass); });
    }
    TCIMInstance& instance = *dice_.Pick(instances);
    Attempt([&] { ChangeOf(cimClass, instance, *dice_.Pick(instances)); });
  }

  TCIMClass& PickClass() { return *dice_.Pick(classes_); }

  // One of those that were asked for before, or the path of what stands there, perhaps bent.
  const TCIMReference& PickReference(const TCIMClass& cimClass) {
    TCIMReference& reference = references_[dice_.Below(std::size(references_))];
    const auto instances = cimClass.EnumerateInstances(false);
    if (!instances.empty() && !dice_.OneIn(3)) {
      Attempt([&] { reference = Bend(dice_.Pick(instances)->BuildPath()); });
    }
    return reference;
  }

  // Of what most associations point to; null when there is none.
  const TCIMInstance* PickTarget() {
    const auto instances =
        container_.GetClass(dice_.OneIn(2) ? "Plain" : "Real").EnumerateInstances(false);
    return instances.empty() ? nullptr : dice_.Pick(instances);
  }

  std::string PickRole() {
    const char* const roles[] = {"", "", "from", "LEFT", "Right", "Third", "Id"};
    return dice_.Pick(roles);
  }

  bool IsTimeToAsk() { return dice_.OneIn(2); }

 private:
  template <typename TBody>
  static void Attempt(TBody&& body) {
    StatusOf(body);
  }

  TCIMReference Bend(TCIMReference path) {
    if (dice_.OneIn(2)) return path;
    TCIMReference::TKeyBindings bent;
    for (const auto& [name, value] : path.EnumerateKeyBindings()) {
      if (dice_.OneIn(12)) continue;
      const std::string given = dice_.OneIn(12) ? dice_.AnyCase(name) : name;
      const bool other = dice_.OneIn(6) && !value.IsReference();
      bent.emplace(given, other ? dice_.Value(value.GetType()) : value);
    }
    if (dice_.OneIn(20)) bent.emplace("Other", TCIMValue(1u));
    path.SetKeyBindings(bent);
    return path;
  }

  TCIMValue ValueFor(const TCIMPropertyDecl& declaration) {
    const TCIMClass* target = declaration.GetValue().FindReferencedClass();
    if (declaration.GetType() != TType::cimReference || target == nullptr) {
      return dice_.Value(declaration.GetType());
    }
    const auto instances = target->EnumerateInstances(false);
    const TCIMReference& stale = dice_.Pick(references_);
    if (stale.FindClass() == target && dice_.OneIn(3)) return TCIMValue(stale);
    if (instances.empty() || dice_.OneIn(50)) return declaration.GetValue();
    if (dice_.OneIn(30)) return TCIMValue(PathOf(*target));
    return TCIMValue(dice_.Pick(instances)->BuildPath());
  }

  static TCIMReference PathOf(const TCIMClass& cimClass) {
    TCIMReference path;
    path.SetClass(const_cast<TCIMClass&>(cimClass));
    return path;
  }

  void AddInstance(TCIMClass& cimClass) {
    auto instance = schema_.Make(cimClass, {});
    for (const TCIMProperty* property : instance->EnumerateProperties()) {
      if (property->GetValue().IsNull() || dice_.OneIn(2)) {
        instance->SetPropertyValue(property->GetName(), ValueFor(property->GetDeclaration()));
      }
    }
    AddOrDestroy(std::move(instance));
  }

  TCIMProperty& PickProperty(TCIMInstance& instance) {
    return *const_cast<TCIMProperty*>(dice_.Pick(instance.EnumerateProperties()));
  }

  void ChangeOf(TCIMClass& cimClass, TCIMInstance& instance, TCIMInstance& other) {
    TCIMProperty& property = PickProperty(instance);
    const std::string name = dice_.AnyCase(property.GetName());
    switch (dice_.Below(16)) {
      case 0:
        return Remove(cimClass, instance);
      case 1:
        return dice_.OneIn(4) ? instance.AddToContainer() : Remove(cimClass, instance);
      case 2:
        return instance.SetPropertyValue(name, ValueFor(property.GetDeclaration()));
      case 3:
        return instance.SetProperty(other.GetProperty(name));
      case 4:
        return instance.SetProperty(TCIMProperty(property.GetDeclaration()));  // the default
      case 5:
        property = other.GetProperty(name);
        return;
      case 6:
        return Swap(property, other.GetProperty(name));
      case 7:
        return MoveAway(property);
      case 8:
        return Borrow(instance, property);
      case 9:
        return dice_.OneIn(4) ? ChangeSchema(cimClass) : property.SetValue(property.GetValue());
      default:
        kept_.emplace(&instance, &property);
        return ChangeKept(instance);
    }
  }

  void Remove(TCIMClass& cimClass, TCIMInstance& instance) {
    kept_.erase(&instance);
    cimClass.RemoveInstance(instance);
  }

  // By way of a property that was fetched some time ago.
  void ChangeKept(const TCIMInstance& instance) {
    TCIMProperty& property = *kept_.find(&instance)->second;
    property.SetValue(ValueFor(property.GetDeclaration()));
  }

  // One that can't be copied any more, its declaration having changed, fails before the swap.
  static void Swap(TCIMProperty& left, TCIMProperty& right) {
    const TCIMProperty copies[] = {left, right};
    std::swap(left, right);
  }

  // What is handed on as an rvalue is copied, and stays.
  void MoveAway(TCIMProperty& property) {
    const TCIMProperty copy(property);
    TCIMProperty away(std::move(property));
    EXPECT_EQ(&copy.GetDeclaration(), &property.GetDeclaration());
    property = away;
    away.SetValue(ValueFor(away.GetDeclaration()));
    if (dice_.OneIn(2)) property = copy;
  }

  // A declaration of no class, of another type perhaps. Its default shows, and changes.
  void Borrow(TCIMInstance& instance, const TCIMProperty& property) {
    const TType type = dice_.OneIn(6) ? TType(TType::cimSint64) : property.GetType();
    if (lent_.size() < 8) {
      lent_.push_back(std::make_unique<TCIMPropertyDecl>(dice_.AnyCase(property.GetName()),
                                                         instance.GetClass(), dice_.Value(type)));
    }
    TCIMPropertyDecl& declaration = *lent_[dice_.Below(lent_.size())];
    if (dice_.OneIn(2)) return declaration.SetValue(dice_.Value(declaration.GetType()));
    instance.SetProperty(TCIMProperty(declaration));
  }

  // Much of this makes look-ups fail, so it is put right soon.
  void ChangeSchema(TCIMClass& cimClass) {
    auto& declaration =
        *const_cast<TCIMPropertyDecl*>(dice_.Pick(cimClass.EnumeratePropertyDecls()));
    const std::string name = declaration.GetName();
    switch (dice_.Below(6)) {
      case 0:
        return declaration.SetValue(ValueFor(declaration));
      case 1:
        return declaration.SetValue(TCIMValue(true));
      case 2:
        return declaration.SetName(dice_.AnyCase(name));
      case 3:
        return ToggleKey(declaration);
      case 4:
        return Requalify(declaration);
      default:
        return Redeclare(cimClass, declaration);
    }
  }

  void ToggleKey(TCIMPropertyDecl& declaration) {
    const TCIMQualifier* key = declaration.FindQualifier("key");
    if (key == nullptr) return schema_.Qualify(declaration, "KEY");
    declaration.RemoveQualifier(const_cast<TCIMQualifier&>(*key));
  }

  void Requalify(const TCIMPropertyDecl& declaration) {
    const TCIMValue values[] = {TCIMValue(true), TCIMValue(true), TCIMValue(false), TCIMValue("x")};
    const TCIMQualifier* key = declaration.FindQualifier("KEY");
    if (key != nullptr) const_cast<TCIMQualifier*>(key)->SetValue(dice_.Pick(values));
  }

  // In this class alone: instances from before have the old one, and others may have borrowed it.
  // A new one was made ready some time ago.
  void Redeclare(TCIMClass& cimClass, const TCIMPropertyDecl& old) {
    keepers_.push_back(schema_.Make(cimClass, {}));
    std::unique_ptr<TCIMPropertyDecl>& ready = ready_[&cimClass];
    if (ready == nullptr) {
      const std::string name = dice_.OneIn(3) ? "Late" : old.GetName();
      ready = std::make_unique<TCIMPropertyDecl>(name, cimClass, old.GetValue());
      return schema_.Qualify(*ready, "KEY");
    }
    if (cimClass.FindPropertyDecl(ready->GetName()) != nullptr) {
      if (cimClass.EnumeratePropertyDecls().size() == 1) return;
      return cimClass.RemovePropertyDecl(*ready);  // the one of that name
    }
    AddOrDestroy(std::move(ready));
  }

  TDice dice_;
  std::size_t size_;                                     // what lists settle at, roughly
  std::vector<std::unique_ptr<TCIMPropertyDecl>> lent_;  // outlive the instances
  std::vector<std::unique_ptr<TCIMInstance>> keepers_;   // of declarations that classes dropped
  TContainer container_;
  TSchema schema_{container_};
  std::vector<TCIMClass*> classes_;
  TCIMReference references_[12];
  std::map<const TCIMClass*, std::unique_ptr<TCIMPropertyDecl>> ready_;
  std::map<const TCIMInstance*, TCIMProperty*> kept_;  // fetched some time ago
};

// Searches, and holds the answers against those of the walk.
class TSearchTest : public TModelTest {
 protected:
  void Compare(const TCIMClass& cimClass, const TCIMReference& reference) {
    TCIMInstance* expected = nullptr;
    const vskStatus status = StatusOf([&] { expected = Walk(cimClass, reference); });
    const std::string lines = log.Take();
    TCIMInstance* found = nullptr;
    EXPECT_EQ(status, StatusOf([&] { found = cimClass.FindInstance(reference); }));
    EXPECT_EQ(lines, log.Take());
    EXPECT_EQ(expected, found) << cimClass.GetName();
    ++answers[status];
    if (found != nullptr) ++hits;
  }

  std::map<vskStatus, int> answers;
  int hits = 0;
};

class TInstanceIndexJudge : public TSearchTest {
 protected:
  void Run(unsigned int seed, std::size_t size, int steps) {
    TIndexWorld world(seed, size);
    for (int step = 0; step < steps && !HasFailure(); ++step) {
      if (!world.IsTimeToAsk()) {
        world.Change();
        continue;
      }
      const TCIMClass& cimClass = world.PickClass();
      const TCIMReference& reference = world.PickReference(cimClass);
      log.Take();
      Compare(cimClass, reference);
      const TCIMInstance* target = world.PickTarget();
      if (target != nullptr) CompareReferrers(*target, world.PickRole());
      if (HasFailure()) std::cout << "seed " << seed << ", step " << step << '\n';
    }
  }

  void CompareReferrers(const TCIMInstance& target, const std::string& role) {
    log.Take();
    std::vector<TCIMInstance*> expected;
    const vskStatus status = StatusOf([&] { expected = WalkReferrers(target, role); });
    const std::string lines = log.Take();
    std::vector<TCIMInstance*> found;
    EXPECT_EQ(status, StatusOf([&] { found = target.References("", role); }));
    EXPECT_EQ(lines, log.Take());
    EXPECT_EQ(expected, found) << target.GetClass().GetName();
    ++referrerAnswers[status];
    if (!found.empty()) ++referrerHits;
  }

  std::map<vskStatus, int> referrerAnswers;
  int referrerHits = 0;
};

TEST_F(TInstanceIndexJudge, NeverHearsAnotherAnswerThanTheWalks) {
  for (unsigned int seed = 0; seed < 95; ++seed) Run(seed, 4, 2000);
  for (unsigned int seed = 1000; seed < 1002; ++seed) Run(seed, 40, 5000);
  log.Take();
  EXPECT_GT(hits, 25000);
  for (const vskStatus status : {vskStatusOK, vskStatusInvalidDateTime, vskStatusNotImplemented,
                                 vskStatusTypeMismatch, vskStatusNotFound}) {
    EXPECT_GT(answers[status], 20) << status;
  }
  EXPECT_GT(referrerHits, 5000);
  for (const vskStatus status : {vskStatusOK, vskStatusInvalidDateTime, vskStatusInvalidCIMName,
                                 vskStatusTypeMismatch, vskStatusValueIsNULL}) {
    EXPECT_GT(referrerAnswers[status], 20) << status;
  }
}

using TStatuses = std::set<vskStatus>;

// Searches for everything in the container by every path in it, in every class.
class TAllSearches : public TSearchTest {
 protected:
  void ExpectWalks(const std::vector<TCIMReference>& references) {
    for (const TCIMClass* cimClass : container.GetRootClass().EnumerateSubClasses(true)) {
      for (const TCIMReference& reference : references) Compare(*cimClass, reference);
    }
  }
  TStatuses Statuses() const {
    TStatuses statuses;
    for (const auto& [status, count] : answers) statuses.insert(status);
    return statuses;
  }
};

TEST_F(TAllSearches, OfOrdinaryKeys) {
  TCIMClass& disk = schema.Class("Disk")
                        .Key("Id", TType::cimUint32)
                        .Key("_b", TType::cimString)
                        .Key("B", TType::cimReal64)
                        .Property("z", TType::cimReal64)
                        .Add();
  TCIMClass& solid = schema.Class("Solid", &disk).Add();
  const double nan = std::numeric_limits<double>::quiet_NaN();
  std::vector<TCIMReference> paths;
  for (TCIMClass* cimClass : {&disk, &solid}) {
    for (const double real : {0.0, -0.0, 1.5, nan}) {
      TCIMInstance& added = schema.Add(*cimClass, {{"Id", 1u}, {"_b", "x"}, {"b", real}});
      paths.push_back(added.BuildPath());
    }
  }
  paths.push_back(schema.Path(disk, {}));
  paths.push_back(schema.Path(disk, {{"Id", 1u}, {"_b", "x"}}));
  paths.push_back(schema.Path(disk, {{"Id", 1u}, {"_b", "x"}, {"b", 1.5}}));  // "B"
  paths.push_back(schema.Path(disk, {{"Id", 1u}, {"_b", "X"}, {"B", 1.5}}));
  paths.push_back(schema.Path(disk, {{"Id", 1u}, {"_b", "x"}, {"B", 1.5}, {"z", 1.5}}));
  paths.push_back(TCIMReference());
  paths.front().SetKeyBindings({{"B", 1.5}, {"Id", 1}, {"_b", "x"}});
  ExpectWalks(paths);
  EXPECT_EQ(TStatuses{vskStatusOK}, Statuses());
  EXPECT_EQ(5, hits);

  // A key that became NULL, or changed otherwise, after the instance joined.
  disk.EnumerateInstances(false)[2]->SetPropertyValue("_B", TCIMValue(TType::cimString, 0));
  disk.EnumerateInstances(false)[1]->SetPropertyValue("Id", TCIMValue(8u));
  for (const TCIMInstance* instance : disk.EnumerateInstances(true)) {
    paths.push_back(instance->BuildPath());
  }
  ExpectWalks(paths);
}

TEST_F(TAllSearches, OfKeysThatAreReferencesDateTimesAndArrays) {
  TCIMClass& disk = schema.Class("Disk").Key("Id", TType::cimUint32).Add();
  TCIMClass& link =
      schema.Class("Link").With("ASSOCIATION").Reference("To", disk).With("KEY").Add();
  TCIMClass& event = schema.Class("Event").Key("At", TType::cimDateTime).Add();
  TCIMClass& list =
      schema.Class("List").Property("Ids", TCIMValue(TType::cimUint32, 2)).With("KEY").Add();
  const TCIMReference seven = schema.Path(disk, {{"Id", 7u}});
  schema.Add(disk, {{"Id", 7u}});
  schema.Add(link, {{"To", TCIMValue(schema.Path(disk, {{"Id", 6u}}))}});
  schema.Add(link, {{"To", seven}});
  schema.Add(event, {{"At", TCIMValue(TCIMDateTime("20051031175918.000000+060"))}});
  schema.Add(event, {{"At", TCIMValue(TCIMDateTime("00000001020304.000005:000"))}});
  schema.Add(list, {{"Ids", TCIMValue(TType::cimUint32, 2, {TCIMValue(1u)})}});
  std::vector<TCIMReference> paths;
  for (const TCIMInstance* instance : container.GetRootClass().EnumerateInstances(true)) {
    paths.push_back(instance->BuildPath());
  }
  paths.push_back(
      schema.Path(event, {{"At", TCIMValue(TCIMDateTime("20051031165918.000000+000"))}}));
  paths.push_back(schema.Path(link, {{"To", NullReference(disk)}}));
  // Neither another name nor another number of keys lets the values be compared.
  const TCIMValue interval(TCIMDateTime("00000001020304.000005:000"));
  paths.push_back(schema.Path(event, {{"at", interval}}));
  paths.push_back(schema.Path(event, {{"At", interval}, {"at", interval}}));
  ExpectWalks(paths);
  EXPECT_EQ(5, hits);  // the disk, both links, the timestamp in both spellings
  EXPECT_EQ((TStatuses{vskStatusOK, vskStatusInvalidDateTime, vskStatusNotImplemented}),
            Statuses());
}

TEST_F(TAllSearches, OfInstancesOlderThanTheirClassNow) {
  const auto expectWalks = [&](const char* when) {
    SCOPED_TRACE(when);
    TCIMClass& disk = container.GetClass("Disk");
    answers.clear();
    TCIMReference named = schema.Path(disk, {});
    named.SetKeyBindings({{"Name", 2u}});
    ExpectWalks({schema.Path(disk, {{"Id", 1u}}), named, TCIMReference()});
    return Statuses();
  };
  TCIMClass& disk =
      schema.Class("Disk").Key("Id", TType::cimUint32).Property("Name", TType::cimUint32).Add();
  auto& id = const_cast<TCIMPropertyDecl&>(disk.GetPropertyDecl("Id"));
  auto& name = const_cast<TCIMPropertyDecl&>(disk.GetPropertyDecl("Name"));
  schema.Qualify(name, "KEY", TCIMValue("yes"));
  EXPECT_EQ(TStatuses{vskStatusOK}, expectWalks("a bad key and nothing to see it"));
  name.RemoveQualifier(const_cast<TCIMQualifier&>(name.GetQualifier("KEY")));
  schema.Add(disk, {{"Id", 1u}});
  schema.Add(disk, {{"Id", 1u}, {"Name", 2u}});
  EXPECT_EQ(TStatuses{vskStatusOK}, expectWalks("as usual"));
  EXPECT_EQ(1, hits);

  schema.Qualify(name, "KEY", TCIMValue("yes"));
  EXPECT_EQ(TStatuses{vskStatusTypeMismatch}, expectWalks("a bad key"));
  const_cast<TCIMQualifier&>(name.GetQualifier("KEY")).SetValue(TCIMValue(true));
  EXPECT_EQ(TStatuses{vskStatusOK}, expectWalks("a new key"));
  name.SetValue(TCIMValue("text"));
  EXPECT_EQ(TStatuses{vskStatusTypeMismatch}, expectWalks("a key of another type"));
  const TCIMValue noCopy(TType(TType::cimChar), 0);
  EXPECT_EQ(vskStatusTypeMismatch, StatusOf([&] { name.SetValue(noCopy); }));  // takes the type
  EXPECT_EQ(TStatuses{vskStatusTypeMismatch}, expectWalks("a key that no path can take"));
  name.SetValue(TCIMValue(3u));
  id.SetName("Ident");
  EXPECT_EQ(TStatuses{vskStatusNotFound}, expectWalks("a renamed key"));
  id.SetName("nAME");
  EXPECT_EQ(TStatuses{vskStatusOK}, expectWalks("two keys of one name"));
  id.SetName("Name");
  hits = 0;
  EXPECT_EQ(TStatuses{vskStatusOK}, expectWalks("two keys of one spelling"));
  EXPECT_EQ(1, hits);  // a path holds a name once
  id.SetName("i d");
  EXPECT_EQ(TStatuses{vskStatusInvalidCIMName}, expectWalks("a key with no name"));
  id.SetName("ID");
  EXPECT_EQ(TStatuses{vskStatusOK}, expectWalks("another spelling"));
  disk.RemovePropertyDecl(name);
  EXPECT_EQ(TStatuses{vskStatusOK}, expectWalks("a dropped key"));
  AddOrDestroy(std::make_unique<TCIMPropertyDecl>("Late", disk, TCIMValue(1u)));
  schema.Qualify(const_cast<TCIMPropertyDecl&>(disk.GetPropertyDecl("Late")), "KEY");
  EXPECT_EQ(TStatuses{vskStatusNotFound}, expectWalks("a key that the instances lack"));
}

TEST_F(TAllSearches, OfNumbersOfEveryType) {
  const TCIMValue numbers[] = {true,
                               std::uint8_t{1},
                               std::int8_t{-1},
                               std::uint16_t{1},
                               std::int16_t{-1},
                               1u,
                               -1,
                               std::uint64_t{1},
                               std::int64_t{-1},
                               1.5f,
                               -1.5};
  std::vector<TCIMReference> paths;
  for (const TCIMValue& number : numbers) {
    const TType type = number.GetType();
    TCIMClass& cimClass = schema.Class("Of_" + type.ToString()).Key("Id", type).Add();
    paths.push_back(schema.Add(cimClass, {{"Id", number}}).BuildPath());
  }
  ExpectWalks(paths);
  EXPECT_EQ(static_cast<int>(std::size(numbers)), hits);
}

TEST_F(TAllSearches, OfKeysThatNoPathCanHold) {
  TCIMClass& disk =
      schema.Class("Disk").Key("Id", TType::cimUint32).Property("C", TType::cimUint8).Add();
  schema.Add(disk, {{"Id", 1u}});
  auto& letter = const_cast<TCIMPropertyDecl&>(disk.GetPropertyDecl("C"));
  schema.Qualify(letter, "KEY");
  TCIMValue null;
  null.SetNullValue(TType::cimChar, 0);
  EXPECT_EQ(vskStatusTypeMismatch, StatusOf([&] { letter.SetValue(null); }));
  EXPECT_EQ(TType::cimChar, letter.GetType());
  ExpectWalks({schema.Path(disk, {{"Id", 1u}})});
  EXPECT_EQ(TStatuses{vskStatusTypeMismatch}, Statuses());
}

}  // namespace
