// Depth that a caller or a document drives must not drive the stack. Each body runs on a small one.
#include <pthread.h>

#include <functional>

#include "support/TModelTest.h"

namespace {

constexpr int kDepth = 10000;

void* CallFunction(void* body) {
  (*static_cast<std::function<void()>*>(body))();
  return nullptr;
}

// Far too small for a call for each level.
void OnSmallStack(std::function<void()> body) {
  pthread_attr_t attributes;
  pthread_attr_init(&attributes);
  pthread_attr_setstacksize(&attributes, std::size_t{256} << 10);
  pthread_t thread;
  ASSERT_EQ(0, pthread_create(&thread, &attributes, CallFunction, &body));
  pthread_join(thread, nullptr);
  pthread_attr_destroy(&attributes);
}

class LimitsTest : public TModelTest {
 protected:
  // Link.To="Link.To="...Leaf.Id="<id>"..."", as a value of the given type: a path, or an array
  // that holds one.
  TCIMReference DeepPath(int depth, unsigned int id, TCIMValue::ECIMType type) {
    TCIMReference path = schema.Path(leaf, {{"Id", id}});
    for (int level = 0; level < depth; ++level) {
      const TCIMValue inner(path);
      const bool isArray = (type & TType::cimArrayFlag) != 0;
      path = schema.Path(
          isArray ? list : link,
          {{isArray ? "All" : "To", isArray ? TCIMValue(TType(type), 0, {inner}) : inner}});
    }
    return path;
  }
  // { { ... { 7 } ... } }
  static TCIMValue DeepArray(int depth) {
    TCIMValue array(TType(TType::cimUint32), 0, {TCIMValue(7U)});
    for (int level = 1; level < depth; ++level) {
      TCIMValue outer(TType(TType::cimUint32), 0, {});
      static_cast<std::vector<TCIMValue>&>(outer).push_back(std::move(array));
      array.~TCIMValue();
      new (&array) TCIMValue(std::move(outer));
    }
    return array;
  }

  static constexpr auto kArrayOfPaths =
      static_cast<TCIMValue::ECIMType>(TType::cimReference | TType::cimArrayFlag);

  TCIMClass& any = schema.Class("Any").With("ABSTRACT").Add();
  TCIMClass& leaf = schema.Class("Leaf", &any).Key("Id", TType::cimUint32).Add();
  TCIMClass& link =
      schema.Class("Link", &any).With("ASSOCIATION").Reference("To", any).With("KEY").Add();
  TCIMClass& list = schema.Class("List").Key("All", kArrayOfPaths).Add();
};

TEST_F(LimitsTest, PathsInPaths) {
  OnSmallStack([&] {
    const TCIMReference path = DeepPath(kDepth, 7, TType::cimReference);
    const TCIMReference other = DeepPath(kDepth, 8, TType::cimReference);
    const TCIMReference copy(path);
    EXPECT_TRUE(copy == path);
    EXPECT_FALSE(other == path);
    EXPECT_TRUE(path < other);
    EXPECT_FALSE(other < path);
    EXPECT_FALSE(copy < path);
    const std::string text = path.GetPath();
    EXPECT_EQ("Link.To=\"Link.To=\"", text.substr(0, 18));
    EXPECT_EQ("Leaf.Id=\"7\"" + std::string(kDepth, '"'), text.substr(text.find("Leaf")));
    const TCIMInstance& instance =
        schema.Add(link, {{"To", TCIMValue(DeepPath(kDepth - 1, 7, TType::cimReference))}});
    EXPECT_EQ(&instance, link.FindInstance(path));
    EXPECT_EQ(nullptr, link.FindInstance(other));
    EXPECT_EQ(vskStatusInvalidOpSequence, StatusOf([&] { container.RemoveClass(leaf); }));
  });
  log.Take();
}

TEST_F(LimitsTest, ArraysInArrays) {
  OnSmallStack([&] {
    EXPECT_EQ(vskStatusNotSupported, StatusOf([&] { DeepArray(kDepth).ToString(10); }));
    const TCIMValue tooDeep = DeepArray(65);
    EXPECT_EQ(vskStatusNotSupported, StatusOf([&] { TCIMValue copy(tooDeep); }));
    EXPECT_EQ(vskStatusNotSupported, StatusOf([&] { DeepPath(65, 7, kArrayOfPaths).GetPath(); }));
  });
  const TCIMValue deepest = DeepArray(64);
  EXPECT_EQ(deepest.ToString(10), TCIMValue(deepest).ToString(10));
  EXPECT_EQ("{ { 7 } }", DeepArray(2).ToString(10));
}

// They go with the container, on a stack of the usual size.
TEST_F(LimitsTest, LevelsOfInheritance) {
  constexpr int kLevels = 30000;
  OnSmallStack([&] {
    TCIMClass* level = &leaf;
    for (int i = 0; i < kLevels; ++i) {
      level = &schema.Class("C" + std::to_string(i), level).Add();
    }
    EXPECT_TRUE(level->IsSubclassOf(&leaf));
    EXPECT_EQ(static_cast<std::size_t>(kLevels), leaf.EnumerateSubClasses(true).size());
    EXPECT_EQ(leaf.EnumerateKeyNames(), level->EnumerateKeyNames());
    schema.Add(*level, {{"Id", 5U}});
    EXPECT_EQ(1U, leaf.EnumerateInstances(true).size());
  });
}

// Every level has more properties than fit a page of the table, and shares those of the levels
// above.
TEST_F(LimitsTest, EachLevelOfInheritanceMayAddProperties) {
  TCIMClass* above = &leaf;
  std::vector<std::string> names{"Id"};
  for (int level = 0; level < 50; ++level) {
    TClassBuilder builder = schema.Class("C" + std::to_string(level), above);
    for (int i = 0; i < 5; ++i) {
      names.push_back("P" + std::to_string((level * 5 + i) * 7919 % 251));
      builder.Property(names.back(), TType::cimUint32);
    }
    TCIMClass& below = builder.Add();
    ASSERT_EQ(names.size(), below.EnumeratePropertyDecls().size());
    ASSERT_EQ(names.size() - 5, above->EnumeratePropertyDecls().size());
    ASSERT_EQ(nullptr, above->FindPropertyDecl(names.back()));
    above = &below;
  }
  const std::vector<const TCIMPropertyDecl*> all = above->EnumeratePropertyDecls();
  EXPECT_TRUE(std::is_sorted(all.begin(), all.end(),
                             [](const auto* left, const auto* right) { return *left < *right; }));
  for (const std::string& name : names) {
    const TCIMPropertyDecl& declaration = above->GetPropertyDecl(name);
    above->RemovePropertyDecl(const_cast<TCIMPropertyDecl&>(declaration));
    EXPECT_EQ(nullptr, above->FindPropertyDecl(name));
  }
  EXPECT_TRUE(above->EnumeratePropertyDecls().empty());
  EXPECT_EQ(246U, above->GetSuperClass().EnumeratePropertyDecls().size());
}

}  // namespace
