// A container, a query's handle and one of each opaque object, for tests of the C functions.
#ifndef VSKCORE_TESTS_CINTERFACE_CFIXTURE_H
#define VSKCORE_TESTS_CINTERFACE_CFIXTURE_H

#include <gtest/gtest.h>
#include <vskcore/core/TLogRecord.h>
#include <vskcore/plugin/TPlugin.h>
#include <vskcore/vskcore.h>
#include <vskcore/vskplugin.h>

#include <string>
#include <vector>

#include "cinterface/TTypedRow.h"
#include "cinterface/vskCIMValueArray.h"
#include "cinterface/vskIOHandle.h"
#include "support/StatusOf.h"
#include "support/TLogCapture.h"
#include "support/TSchema.h"

// The plug-in behind the handle, by name alone.
class TSpeaker : public IPluginCallbacks {
 public:
  std::int32_t GetType() override { return 2; }
  std::string GetName() override { return "Sample"; }
  std::string GetVersion() override { return "1"; }
  std::string GetInfoText() override { return ""; }
  void Destroy() override {}
  void Initialize() override {}
  void Finalize() override {}
};

// The class Sample_All has the key Id and one property for each CIM type, named after the type as
// the C functions spell it ("Uint8"), and the arrays "Uint8s" and "Strings". Reference points to
// Sample_Target, a class with the key Id.
class CFixture : public testing::Test {
 public:
  using TType = TCIMValue::TCIMType;

  CFixture() : schema(container), handle{&plugin, &container, nullptr} {
    TCIMClass& target = schema.Class("Sample_Target").Key("Id", TType::cimUint32).Add();
    TClassBuilder builder = schema.Class("Sample_All");
    builder.With("ASSOCIATION").Key("Id", TType::cimUint32);
    for (const TTypedRow& row : TypedRows()) builder.Property(row.type, CIMType(row.type));
    all = &builder.Property("Real64", TType::cimReal64)
               .Reference("Reference", target)
               .Property("Uint8s", TCIMValue(TType::cimUint8, 5))
               .Property("Strings", TCIMValue(TType::cimString, 5))
               .Add();
  }

  // Opens an instance with its key.
  void Open(std::uint32_t id) {
    ASSERT_EQ(vskStatusOK, vskAddClass(&handle, "Sample_All"));
    ASSERT_EQ(vskStatusOK, vskAddUint32Property(&handle, "Id", id));
  }

  // A property of the open instance as text; "NULL" for NULL.
  std::string Stored(const std::string& name) const {
    const TCIMValue value = handle.currentInstance->GetProperty(name).GetValue();
    return value.IsNull() ? "NULL" : value.ToString(10);
  }

  // The lines since the last call; what was logged for the handle's plug-in bears its name in
  // front.
  std::vector<std::string> ToldLines() {
    std::vector<std::string> lines;
    for (const TLogRecord& record : TRootObject::GetCoreLogger()->GetRecords()) {
      lines.push_back((record.plugin == &plugin ? "Sample: " : "") + record.text);
    }
    log.Take();
    return lines;
  }
  std::string Told() {
    std::string joined;
    for (const std::string& line : ToldLines()) joined += (joined.empty() ? "" : "\n") + line;
    return joined;
  }

  // What calls gave, and the line that each has logged.
  struct TRefusal {
    vskStatus status;
    const char* line;
  };
  void ExpectRefusals(const std::vector<TRefusal>& rows) {
    const std::vector<std::string> lines = ToldLines();
    ASSERT_EQ(rows.size(), lines.size());
    for (std::size_t i = 0; i < lines.size(); ++i) {
      EXPECT_EQ(vskStatusFail, rows[i].status) << rows[i].line;
      EXPECT_EQ(rows[i].line, lines[i]);
    }
  }

  TLogCapture log;
  TSpeaker speaker;
  TPlugin plugin{&speaker};
  TContainer container;
  TSchema schema;
  TCIMClass* all;  // Sample_All
  vskIOHandle handle;
};

#endif
