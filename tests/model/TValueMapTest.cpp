#include "model/TValueMap.h"

#include <gtest/gtest.h>
#include <vskcore/core/ILogger.h>
#include <vskcore/core/TRootObject.h>
#include <vskcore/model/TCIMClass.h>
#include <vskcore/model/TCIMPropertyDecl.h>
#include <vskcore/model/TContainer.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "model/PropertyDisplay.h"
#include "support/StatusOf.h"
#include "support/TLogCapture.h"
#include "support/TSchema.h"

namespace {

using TType = TCIMValue::TCIMType;
using TTexts = std::vector<std::string>;

template <typename... TText>
TCIMValue Strings(TText... texts) {
  return TCIMValue(TType::cimString, 0, {TCIMValue(texts)...});
}

TCIMValue NullOf(TCIMValue::ECIMType type) {
  TCIMValue null;
  null.SetNullValue(type, 0);
  return null;
}

// A property State with codes, which a subclass shares until it overrides it.
class TValueMapTest : public testing::Test {
 protected:
  TValueMapTest() {
    class_ = schema_.Class("Sample_Unit").Key("Id", TType::cimUint32).Take();
    state_ = &AddOrDestroy(Declaration(*class_));
    sub_.reset(&container_.AllocateClass("Sample_SubUnit", class_.get()));
  }

  static std::unique_ptr<TCIMPropertyDecl> Declaration(TCIMClass& cimClass) {
    return std::make_unique<TCIMPropertyDecl>("State", cimClass, NullOf(TType::cimUint32));
  }

  void Add(TCIMPropertyDecl& declaration, const char* name, const TCIMValue& value) {
    schema_.Qualify(declaration, name, value);
  }
  void Set(TCIMPropertyDecl& declaration, const char* name, const TCIMValue& value) {
    const_cast<TCIMQualifier&>(declaration.GetQualifier(name)).SetValue(value);
  }
  void Remove(TCIMPropertyDecl& declaration, const char* name) {
    declaration.RemoveQualifier(const_cast<TCIMQualifier&>(declaration.GetQualifier(name)));
  }
  void Override() {
    auto declaration = Declaration(*sub_);
    Add(*declaration, "OVERRIDE", "State");
    Add(*declaration, "Values", Strings("p", "q", "r"));
    overriding_ = &AddOrDestroy(std::move(declaration));
  }

  static const TCIMPropertyDecl& StateOf(const TCIMClass& cimClass) {
    return cimClass.GetPropertyDecl("State");
  }

  // What body gives, the failure, and what is logged.
  template <typename TBody>
  std::string Outcome(const TBody& body) {
    std::string text;
    const vskStatus status = StatusOf([&] { text = body(); });
    if (status != vskStatusOK) text += vskTranslateStatusCode(status);
    return text + log_.Take();
  }

  // How a property with that declaration shows a value of its own.
  std::string ShowOne(const TCIMPropertyDecl& declaration, const TCIMValue& value) {
    return Outcome([&] { return vsk::detail::DisplayValue(declaration, value); });
  }

  // Values of several types, most of which a declaration of one type never meets.
  TTexts Show(const TCIMPropertyDecl& declaration) {
    const TCIMValue values[] = {0U,   2U, 5U,     9U,
                                true, -1, "text", TCIMValue(TType::cimUint32, 0, {2U, 1U})};
    TTexts all;
    for (const TCIMValue& value : values) {
      all.push_back(ShowOne(declaration, value));
      all.push_back(Outcome([&] {
        std::string joined;
        for (const std::string& text : vsk::detail::DisplayValues(declaration, value)) {
          joined += text + "|";
        }
        return joined;
      }));
    }
    return all;
  }

  // The same by a map that is made anew.
  TTexts ShowAnew(const TCIMPropertyDecl& declaration) {
    TCIMPropertyDecl copy(declaration.GetName(), declaration.GetClass(), declaration.GetValue());
    for (const TCIMQualifier* qualifier : declaration.EnumerateQualifiers()) {
      copy.AddQualifier(*new TCIMQualifier(*qualifier));
    }
    return Show(copy);
  }

  TLogCapture log_;
  TContainer container_;
  TSchema schema_{container_};
  std::unique_ptr<TCIMClass> class_;
  std::unique_ptr<TCIMClass> sub_;
  TCIMPropertyDecl* state_ = nullptr;
  TCIMPropertyDecl* overriding_ = nullptr;
};

}  // namespace

TEST_F(TValueMapTest, NoticesEveryChangeOfWhatItIsMadeFrom) {
  const auto level = [](int threshold) { TRootObject::GetCoreLogger()->SetLevel(threshold); };
  const TCIMValue none = NullOf(TType::cimString | TType::cimArrayFlag);
  const TCIMValue holed = TCIMValue(TType::cimString, 0, {"0", "1", NullOf(TType::cimString)});
  const char kSizes[] =
      "2[3] Property State has VALUE and VALUEMAP qualifiers that aren't the same size!";
  const char kRenamed[] =
      "2[3] Property Mode has VALUE and VALUEMAP qualifiers that aren't the same size!";
  const char kType[] = "2[3] Property Mode has a VALUEMAP qualifier that isn't a string!";
  const struct {
    const char* change;
    std::function<void()> make;
    const char* base;  // how 2 shows then, with what is logged
    const char* sub;   // likewise, by the subclass
  } kSteps[] = {
      {"Values added", [&] { Add(*state_, "Values", Strings("a", "b", "c")); }, "c", "c"},
      {"map added", [&] { Add(*state_, "ValueMap", Strings("2", "5..", "0")); }, "a", "a"},
      {"map replaced", [&] { Add(*state_, "VALUEMAP", Strings("9", "0..", "3")); }, "b", "b"},
      {"map set to NULL", [&] { Set(*state_, "ValueMap", none); }, "c", "c"},
      {"map set", [&] { Set(*state_, "ValueMap", Strings("..1", "..4", "..")); }, "b", "b"},
      {"Values set to NULL", [&] { Set(*state_, "Values", none); }, "2", "2"},
      {"Values set", [&] { Set(*state_, "Values", Strings("x", "y")); }, kSizes, kSizes},
      {"name", [&] { state_->SetName("Mode"); }, kRenamed, kRenamed},
      {"log's level lowered", [&] { level(2); }, "2", "2"},
      {"log's level raised", [&] { level(3); }, kRenamed, kRenamed},
      {"map removed", [&] { Remove(*state_, "ValueMap"); }, "2", "2"},
      {"Values replaced", [&] { Add(*state_, "Values", Strings("k", "l", "m")); }, "m", "m"},
      {"overridden", [&] { Override(); }, "m", "r"},
      {"Values of the override removed", [&] { Remove(*overriding_, "Values"); }, "m", "2"},
      {"Values of the override added", [&] { Add(*overriding_, "Values", Strings("", "", "u")); },
       "m", "u"},
      {"a map that can't be read", [&] { Add(*state_, "ValueMap", holed); }, "vskStatusValueIsNULL",
       "u"},
      {"a map of numbers", [&] { Add(*state_, "ValueMap", 7U); }, kType, "u"},
      {"signed type", [&] { state_->SetValue(NullOf(TType::cimSint32)); }, "2", "u"},
      {"boolean type", [&] { state_->SetValue(NullOf(TType::cimBoolean)); }, kType, "u"},
      {"map removed again", [&] { Remove(*state_, "ValueMap"); }, "m", "u"},
      {"array type", [&] { state_->SetValue(NullOf(TType::cimUint32 | TType::cimArrayFlag)); }, "2",
       "u"},
      {"Values removed", [&] { Remove(*state_, "Values"); }, "2", "u"},
  };
  for (const auto& step : kSteps) {
    SCOPED_TRACE(step.change);
    Show(StateOf(*class_));  // so that there are maps to keep
    Show(StateOf(*sub_));
    step.make();
    const TTexts base = Show(StateOf(*class_));
    const TTexts sub = Show(StateOf(*sub_));
    EXPECT_EQ(step.base, ShowOne(StateOf(*class_), 2U));
    EXPECT_EQ(step.sub, ShowOne(StateOf(*sub_), 2U));
    EXPECT_EQ(ShowAnew(StateOf(*class_)), base);
    EXPECT_EQ(ShowAnew(StateOf(*sub_)), sub);
  }
}
