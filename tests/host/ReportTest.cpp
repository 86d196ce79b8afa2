#include <gtest/gtest.h>
#include <vskcore/model/TCIMClass.h>
#include <vskcore/model/TContainer.h>

#include "JsonReport.h"
#include "TextReport.h"
#include "support/TLogCapture.h"

namespace {

// A document with one instance of each class, and values of every kind in it.
class Report : public testing::Test {
 protected:
  Report() {
    container.PopulateContainerFromFile(VSK_TEST_CORE_DIR "/data/core.properties.xml");
    for (TCIMClass* cimClass :
         container.PopulateContainerFromFile(VSK_TEST_HOST_DOCUMENTS "/report.xml")) {
      if (!cimClass->EnumerateInstances(false).empty()) classes.push_back(cimClass);
    }
  }

  TLogCapture log;
  TContainer container;
  std::vector<const TCIMClass*> classes;
};

TEST_F(Report, TextShowsWhatPeopleRead) {
  EXPECT_EQ(
      "Other\n"
      "=====\n"
      "\n"
      "Sample_Kinds (Kinds of values)\n"
      "  Größe    1.5 KiloBytes\n"
      "  Colour   green\n"
      "  Colours  red\n"
      "           green\n"
      "           9\n"
      "  Empty\n"
      "  Escape   a [31mb \xEF\xBF\xBD\n"
      "  Fault    (can't be displayed: vskStatusInvalidDateTime)\n"
      "  Huge     18446744073709551615\n"
      "  Id       one\n"
      "  Low      -9223372036854775808\n"
      "  Low16    -32768\n"
      "  Low32    -2147483648\n"
      "  Low8     -128\n"
      "  Ratio    0.1\n"
      "  Shown    nothing yet\n"
      "  Third    0.333333\n"
      "  When     20051031175918.000000+060\n"
      "  Yes      true\n"
      "\n"
      "Sample_Joins\n"
      "  From  Sample_Kinds.Id=\"one\"\n"
      "  To    Sample_Other.Id=\"7\"\n",
      TextReport(classes));
}

TEST_F(Report, JsonKeepsTypesAndEveryBit) {
  EXPECT_EQ(R"({
  "Sample_Kinds": [
    {
      "Size": 1536,
      "Colour": 1,
      "Colours": [
        0,
        1,
        9
      ],
      "Empty": "",
      "Escape": "a\u001b[31mb )"
            "\xEF\xBF\xBD"
            R"(",
      "Fault": 1,
      "Hidden": null,
      "HiddenList": null,
      "Huge": 18446744073709551615,
      "Id": "one",
      "Low": -9223372036854775808,
      "Low16": -32768,
      "Low32": -2147483648,
      "Low8": -128,
      "Ratio": 0.1,
      "Shown": null,
      "Third": 0.3333333333333333,
      "When": "20051031175918.000000+060",
      "Yes": true
    }
  ],
  "Sample_Joins": [
    {
      "From": "Sample_Kinds.Id=\"one\"",
      "To": "Sample_Other.Id=\"7\""
    }
  ]
}
)",
            JsonReport(classes));
}

}  // namespace
