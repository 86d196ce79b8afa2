#include <gtest/gtest.h>
#include <vskcore/model/TCIMDateTime.h>

#include "support/StatusOf.h"
#include "support/TZone.h"

using std::string;

namespace {

const char* const kUTC = "UTC0";
const char* const kEast = "JST-9";
const char* const kWest = "EST5EDT,M3.2.0,M11.1.0";
const char* const kDowns = "IST-1GMT0,M10.5.0,M3.5.0/1";  // an hour back in winter
const char* const kSecond = "SEC-00:00:01";

const char* const kZones[] = {kUTC,    kEast,    kWest,   kDowns,
                              kSecond, "FAR-14", "FAW12", "LHS-10:30LHD-11,M10.1.0,M4.1.0"};

// The text of what body makes, or the status it throws.
template <typename TBody>
string TextOf(TBody&& body) {
  string text;
  const vskStatus status = StatusOf([&] { text = body().ToString(); });
  return status == vskStatusOK ? text : vskTranslateStatusCode(status);
}

const char* const kInvalid = "vskStatusInvalidDateTime";

TEST(TCIMDateTimeText, TimestampTellsEachFieldApart) {
  const TCIMDateTime time("20071113092746.001234-345");
  EXPECT_EQ(2007, time.GetYear());
  EXPECT_EQ(11, time.GetMonth());
  EXPECT_EQ(13u, time.GetDay());
  EXPECT_EQ(9, time.GetHour());
  EXPECT_EQ(27, time.GetMinute());
  EXPECT_EQ(46, time.GetSecond());
  EXPECT_EQ(1234u, time.GetMicroSeconds());
  EXPECT_EQ(65536 - 345, time.GetUTCOffset());
  EXPECT_FALSE(time.IsNull());
  EXPECT_FALSE(time.IsInterval());
  EXPECT_TRUE(time == TCIMDateTime(2007, 11, 13, 9, 27, 46, 1234, -345));
}

TEST(TCIMDateTimeText, GoodOnesPrintBackInAnyZone) {
  for (const char* zone : kZones) {
    SCOPED_TRACE(zone);
    const TZone use(zone);
    for (const char* text :
         {"20051031175918.000000+060", "20071113092746.001234-345", "19991231235960.999999+999",
          "20050013000000.000000+000", "20051340256199.100000+000",  // out of the calendar
          "00000003120000.000000:000", "00100000235959.999999:000", "99999999000000.000001:000",
          "00000000000000.000000:000"}) {
      EXPECT_EQ(text, TextOf([&] { return TCIMDateTime(text); }));
    }
    EXPECT_EQ("20051031175918.000000+000",
              TextOf([] { return TCIMDateTime("20051031175918.000000-000"); }));
  }
}

TEST(TCIMDateTimeText, BadOnesAreRefusedAndChangeNothing) {
  TCIMDateTime time("20051031175918.000007+060");
  for (const char* text :
       {"", "20051031175918.000000+06", "20051031175918.000000+0600", "20051031175918.000000:060",
        "20051031175918,000000+060", "20051031175918.000000 060", "2005103117591*.000000+060",
        "2005 031175918.000000+060", "20051031175918.00000*+060", "20051031175918.000000+06*",
        "00000003120000.000000:001", "20051031175918.000000*060", "+0051031175918.000000+060",
        "00000000000000.000000+000",  // the year 0
        "00000001240000.000000:000", "00000001006000.000000:000", "00000001000060.000000:000"}) {
    EXPECT_EQ(vskStatusInvalidDateTime, StatusOf([&] { time.Set(string(text)); })) << text;
    EXPECT_EQ(kInvalid, TextOf([&] { return TCIMDateTime(string(text)); })) << text;
  }
  EXPECT_EQ("20051031175918.000007+060", time.ToString());
}

struct TRangeRow {
  const char* zone;
  const char* first;  // the earliest that is good, then what lies a second before
  const char* before;
  const char* last;  // the latest that is good, then what lies a second behind
  const char* behind;
};

const TRangeRow kRanges[] = {
    {kUTC, "19700101000000.000000+000", "19691231235959.000000+000", "20380119031407.000000+000",
     "20380119031408.000000+000"},
    {kUTC, "19700101020500.000000+125", "19700101020459.000000+125", "20380119051907.000000+125",
     "20380119051908.000000+125"},
    {kUTC, "19691231215500.000000-125", "19691231215459.000000-125", "20380119010907.000000-125",
     "20380119010908.000000-125"},
    {kEast, "19700101000000.000000+000", "19691231235959.000000+000", "20380119121407.000000+000",
     "20380119121408.000000+000"},
    {kWest, "19700101000000.000000+000", "19691231235959.000000+000", "20380118221407.000000+000",
     "20380118221408.000000+000"},
    {kDowns, "19700101000000.000000+000", "19691231235959.000000+000", "20380119041407.000000+000",
     "20380119041408.000000+000"},
    {kSecond, "19700101000000.000000+000", "19691231235959.000000+000", "20380119031408.000000+000",
     "20380119031409.000000+000"},
};

TEST(TCIMDateTimeRange, From1970ToTheLastSecondOf31Bits) {
  for (const TRangeRow& row : kRanges) {
    SCOPED_TRACE(row.zone);
    const TZone use(row.zone);
    EXPECT_EQ(row.first, TextOf([&] { return TCIMDateTime(row.first); }));
    EXPECT_EQ(kInvalid, TextOf([&] { return TCIMDateTime(row.before); })) << row.before;
    EXPECT_EQ(row.last, TextOf([&] { return TCIMDateTime(row.last); }));
    EXPECT_EQ(kInvalid, TextOf([&] { return TCIMDateTime(row.behind); })) << row.behind;
  }
}

TEST(TCIMDateTimeRange, TheFirstDayIsGoodInEveryZone) {
  for (const char* zone : kZones) {
    SCOPED_TRACE(zone);
    const TZone use(zone);
    EXPECT_NO_THROW(TCIMDateTime(1970, 1, 1, 0, 0, 0, 0, 0));
    for (unsigned short hour = 0; hour < 24; ++hour) {
      EXPECT_NO_THROW(TCIMDateTime(1970, 1, 1, hour, 59, 59, 0, 0)) << hour;
    }
  }
}

TEST(TCIMDateTimeRange, FieldsBeyondTheTextForm) {
  const TZone use(kUTC);
  const TCIMDateTime wide(2005, 12, 3, 4, 5, 6, 4000000000u, -1439);
  EXPECT_EQ("20051203040506.4000000000-1439", wide.ToString());
  EXPECT_TRUE(TCIMDateTime(2005, 12, 3, 4, 5, 6, 1, -1439) < wide);
  EXPECT_EQ(kInvalid, TextOf([] { return TCIMDateTime(2005, 1, 4294967295u, 0, 0, 0, 0, 0); }));
  EXPECT_EQ(kInvalid, TextOf([] { return TCIMDateTime(65535, 65535, 1, 0, 0, 0, 0, 0); }));
  // Any one field can carry an ordinary date past the end.
  EXPECT_EQ("20371231235960.000000-1440",
            TextOf([] { return TCIMDateTime(2037, 12, 31, 23, 59, 60, 0, -1440); }));
  EXPECT_EQ(kInvalid, TextOf([] { return TCIMDateTime(2037, 14, 1, 0, 0, 0, 0, 0); }));
  EXPECT_EQ(kInvalid, TextOf([] { return TCIMDateTime(2037, 12, 50, 23, 0, 0, 0, 0); }));
  EXPECT_EQ(kInvalid, TextOf([] { return TCIMDateTime(2037, 12, 31, 500, 0, 0, 0, 0); }));
  EXPECT_EQ(kInvalid, TextOf([] { return TCIMDateTime(2037, 12, 31, 0, 30000, 0, 0, 0); }));
  EXPECT_EQ(kInvalid, TextOf([] { return TCIMDateTime(2037, 12, 31, 0, 0, 0, 0, -30000); }));
  EXPECT_EQ("4294967295000000.000000:000", TCIMDateTime(4294967295u, 0, 0, 0, 0).ToString());
  EXPECT_EQ(kInvalid, TextOf([] { return TCIMDateTime(1, 2, 3, 4, 1000000); }));
}

TEST(TCIMDateTimeState, EachFormKeepsWhatItDoesNotUse) {
  TCIMDateTime time;
  EXPECT_TRUE(time.IsNull());
  EXPECT_EQ(0, time.GetYear() + time.GetMonth() + time.GetUTCOffset());
  time.Set(2009, 4, 17, 21, 43, 58, 600, 90);
  time.Set(12, 23, 59, 58, 999999);
  EXPECT_TRUE(time.IsInterval());
  EXPECT_EQ("00000012235958.999999:000", time.ToString());
  EXPECT_EQ(2009, time.GetYear());
  EXPECT_EQ(4, time.GetMonth());
  EXPECT_EQ(90, time.GetUTCOffset());
  time.Clear();
  EXPECT_TRUE(time.IsNull());
  EXPECT_EQ(12u, time.GetDay());
  time.Set(string("20051031175918.000000+060"));
  EXPECT_FALSE(time.IsNull() || time.IsInterval());
}

TEST(TCIMDateTimeState, CopiesAreIndependent) {
  TCIMDateTime first(5, 4, 3, 2, 1);
  const TCIMDateTime copy(first);
  TCIMDateTime assigned;
  assigned = first;
  const TCIMDateTime& self = assigned;
  assigned = self;
  first.Clear();
  EXPECT_EQ("00000005040302.000001:000", copy.ToString());
  EXPECT_EQ("00000005040302.000001:000", assigned.ToString());
}

TEST(TCIMDateTimeState, NullRefusesEverythingAndDifferenceIsNotOffered) {
  TCIMDateTime interval(1, 2, 3, 4, 5);
  const TCIMDateTime stamp("20051031175918.000000+060");
  const auto refused = [](auto body) { return StatusOf(body) == vskStatusInvalidDateTime; };
  // A cleared one still holds good fields, which must not count.
  for (const TCIMDateTime& filled : {interval, stamp}) {
    TCIMDateTime cleared(filled);
    cleared.Clear();
    for (const TCIMDateTime& null : {TCIMDateTime(), cleared}) {
      EXPECT_TRUE(refused([&] { null.ToString(); }));
      EXPECT_TRUE(refused([&] { null.ToUIString(); }));
      EXPECT_TRUE(refused([&] { (void)(null == null); }));
      for (const TCIMDateTime& other : {interval, stamp}) {
        EXPECT_TRUE(refused([&] { (void)(null == other); }));
        EXPECT_TRUE(refused([&] { (void)(other < null); }));
        EXPECT_TRUE(refused([&] { null + other; }));
        EXPECT_TRUE(refused([&] { other + null; }));
        EXPECT_TRUE(refused([&] { null - other; }));
        EXPECT_TRUE(refused([&] { other - null; }));
      }
    }
  }
  EXPECT_EQ(vskStatusNotImplemented,
            StatusOf([&] { TCIMDateTime::GetDifference(interval, interval); }));
}

struct TOrderRow {
  const char* left;
  const char* order;  // "<", "=", ">", or "" for a refusal
  const char* right;
};

const TOrderRow kOrders[] = {
    {"20051031120000.000000+060", "=", "20051031110000.000000+000"},
    {"20051031120000.000000-060", ">", "20051031120000.000000+000"},
    {"20051031120000.000000+060", "<", "20051031110000.000001+000"},
    {"20051031120000.999999+000", "<", "20051031120001.000000+000"},
    {"20051031120000.000000+000", "<", "20051101110000.000000+000"},
    {"20051340000000.000000+000", "=", "20060209000000.000000+000"},
    {"19700101000000.000000+000", "<", "19700101090000.000000+000"},  // both sides of zero
    {"00000003120000.000000:000", ">", "00000002235959.999999:000"},
    {"00000003120000.000008:000", "<", "00000003120000.000010:000"},
    {"00049710062815.000000:000", ">", "00024855031408.000000:000"},  // unsigned
    {"00049710062816.000000:000", "=", "00000000000000.000000:000"},  // wrapped
    {"00000003120000.000000:000", "", "20051031120000.000000+000"},
};

string OrderOf(const TCIMDateTime& left, const TCIMDateTime& right) {
  string order;
  StatusOf([&] {
    const bool less = left < right;
    const bool equal = left == right;
    order = less ? "<" : equal ? "=" : ">";
  });
  return order;
}

TEST(TCIMDateTimeOrder, ByInstantOrLengthInEveryZone) {
  for (const char* zone : kZones) {
    const TZone use(zone);
    for (const TOrderRow& row : kOrders) {
      SCOPED_TRACE(string(zone) + ": " + row.left + row.order + row.right);
      const string order = row.order;
      EXPECT_EQ(order, OrderOf(TCIMDateTime(row.left), TCIMDateTime(row.right)));
      EXPECT_EQ(order == "<"   ? ">"
                : order == ">" ? "<"
                               : order,
                OrderOf(TCIMDateTime(row.right), TCIMDateTime(row.left)));
    }
  }
}

struct TSumRow {
  const char* left;
  char operation;
  const char* right;
  const char* result;
};

// Both operations give the same with their sides exchanged.
const TSumRow kSums[] = {
    {"20051031175918.600000+060", '+', "00000001020304.500000:000", "20051101200223.100000+060"},
    {"20050228235959.999999-300", '+', "00000000000000.000001:000", "20050301000000.000000-300"},
    {"19700101000000.000005+000", '+', "00000000000000.000000:000", "19700101000000.000005+000"},
    {"00000003230000.900000:000", '+', "00000001020304.200000:000", "00000005010305.100000:000"},
    {"00049710062816.000003:000", '+', "00000000000001.000000:000", "00000000000001.000003:000"},
    {"00040000000000.000000:000", '+', "00040000000000.000000:000", "00080000000000.000000:000"},
    {"20051031175918.000000+060", '+', "20051031175918.000000+060", kInvalid},
    {"20380101000000.000000+000", '+', "00000099000000.000000:000", kInvalid},
    {"20051031120000.000000+060", '-', "20051031120000.000000+000", "00000000010000.000000:000"},
    {"20051031120000.250000-345", '-', "20051102130102.500000+015", "00000001190102.250000:000"},
    {"20051031175918.600000-300", '-', "00000001020304.700000:000", "20051030155613.900000-300"},
    {"00000003120000.000000:000", '-', "00000005110000.000001:000", "00000001230000.000001:000"},
};

TEST(TCIMDateTimeSum, SumsAndAbsoluteDifferencesInEveryZone) {
  for (const char* zone : kZones) {
    const TZone use(zone);
    for (const TSumRow& row : kSums) {
      SCOPED_TRACE(string(zone) + ": " + row.left + row.operation + row.right);
      const TCIMDateTime left{string(row.left)};
      const TCIMDateTime right{string(row.right)};
      const bool adds = row.operation == '+';
      EXPECT_EQ(row.result, TextOf([&] { return adds ? left + right : left - right; }));
      EXPECT_EQ(row.result, TextOf([&] { return adds ? right + left : right - left; }));
    }
  }
}

TEST(TCIMDateTimeSum, HourStaysInDaylightSaving) {
  const TZone use(kWest);
  const TCIMDateTime zero(0, 0, 0, 0, 0);
  for (const char* text : {"20050715123456.000000-240", "20051215123456.000000-300",
                           "20380118221407.000000-000", "19700701003000.000000+000"}) {
    EXPECT_EQ(text, (TCIMDateTime(string(text)) + zero).ToString().replace(21, 1, text + 21, 1));
  }
  EXPECT_EQ("20051215123456.000000-240",
            (TCIMDateTime("20050715123456.000000-240") + TCIMDateTime(153, 0, 0, 0, 0)).ToString());
}

// The hour around which the clocks change is an hour like any other.
TEST(TCIMDateTimeSum, EveryHourOfAYearStaysInEveryZone) {
  const TCIMDateTime zero(0, 0, 0, 0, 0);
  for (const char* zone : kZones) {
    const TZone use(zone);
    for (unsigned int hours = 0; hours < 365 * 24; ++hours) {
      const auto hour = static_cast<unsigned short>(hours % 24);
      const TCIMDateTime time(2005, 1, 1 + hours / 24, hour, 29, 17, 0, 0);
      ASSERT_TRUE(time + zero == time) << zone << ": day " << 1 + hours / 24 << " hour " << hour;
    }
  }
}

TEST(TCIMDateTimeUIString, ForPeople) {
  const struct {
    const char* text;
    const char* shown;
  } kRows[] = {
      {"20051031175908.123456+060", "10/31/2005 17:59:08"},
      {"20050203040506.000000-060", "02/03/2005 04:05:06"},
      {"00000003120000.000000:000", "3 days 12 hours "},
      {"00000001010101.001001:000", "1 day 1 hour 1 minute 1 second 1 millisecond 1 microsecond "},
      {"00000000235958.123456:000",
       "23 hours 59 minutes 58 seconds 123 milliseconds 456 microseconds "},
      {"00100000000000.000010:000", "100000 days 10 microseconds "},
      {"00000000000000.000000:000", ""},
  };
  for (const auto& row : kRows) EXPECT_EQ(row.shown, TCIMDateTime(string(row.text)).ToUIString());
}

}  // namespace
