#include <gtest/gtest.h>
#include <vskcore/model/TCIMClass.h>
#include <vskcore/model/TCIMDateTime.h>
#include <vskcore/model/TCIMReference.h>
#include <vskcore/model/TCIMValue.h>
#include <vskcore/model/TCIMValueImpl.h>
#include <vskcore/model/TContainer.h>

#include <functional>
#include <limits>
#include <locale>
#include <sstream>
#include <type_traits>
#include <utility>

#include "support/StatusOf.h"
#include "support/TLogCapture.h"

using TCIMType = TCIMValue::TCIMType;
using TElements = std::vector<TCIMValue>;

namespace {

constexpr auto kArray = TCIMType::cimArrayFlag;
constexpr TCIMValue::ECIMType kNoSuchType = static_cast<TCIMValue::ECIMType>(-17);

TCIMValue Null(TCIMValue::ECIMType type) { return TCIMValue(type, 0); }

// One value of each type that can have content but a reference, in the order of the types.
TElements OneOfEach() {
  return {true,
          static_cast<unsigned char>(2),
          static_cast<signed char>(-3),
          static_cast<unsigned short>(4),
          static_cast<short>(-5),
          6U,
          -7,
          std::uint64_t{8},
          std::int64_t{-9},
          10.5F,
          -11.25,
          "text",
          TCIMDateTime("20051031175918.000123+060")};
}

// What a stream gives for a text, when the text itself chooses the base.
template <typename TNumber>
TNumber ByStream(const std::string& text) {
  std::istringstream stream(text);
  stream.imbue(std::locale::classic());
  stream.unsetf(std::ios_base::basefield);
  if (std::is_same_v<TNumber, bool>) stream.setf(std::ios_base::boolalpha);
  TNumber number{};
  stream >> number;
  return number;
}

class TCIMValueText : public testing::Test {
 protected:
  TCIMValue Read(TCIMValue::ECIMType type, std::string text) {
    return TCIMValue(type, text, container_);
  }

  template <typename TNumber, typename TExtracted = TNumber>
  void ExpectLikeStream(TCIMValue::ECIMType type, const std::string& text) {
    const auto expected = static_cast<TNumber>(ByStream<TExtracted>(text));
    EXPECT_EQ(expected, static_cast<TNumber>(Read(type, text))) << '"' << text << '"';
  }

  void ExpectIntegersLikeStream(const std::string& text) {
    ExpectLikeStream<unsigned char, unsigned int>(TCIMType::cimUint8, text);
    ExpectLikeStream<signed char, int>(TCIMType::cimSint8, text);
    ExpectLikeStream<unsigned short>(TCIMType::cimUint16, text);
    ExpectLikeStream<short>(TCIMType::cimSint16, text);
    ExpectLikeStream<unsigned int>(TCIMType::cimUint32, text);
    ExpectLikeStream<int>(TCIMType::cimSint32, text);
    ExpectLikeStream<std::uint64_t>(TCIMType::cimUint64, text);
    ExpectLikeStream<std::int64_t>(TCIMType::cimSint64, text);
  }

  TContainer container_;
};

template <typename TOther>
vskStatus StatusAs(const TCIMValueImpl& content) {
  return StatusOf([&] { content.operator TOther(); });
}

std::string Print(std::uint64_t number, unsigned int base) {
  std::ostringstream stream;
  stream << std::showbase << std::setbase(static_cast<int>(base)) << number;
  return stream.str();
}

}  // namespace

TEST(TCIMTypeName, ReadAndPrinted) {
  const struct {
    const char* name;
    TCIMValue::ECIMType type;
    bool readable;
  } kRows[] = {
      {"boolean", TCIMType::cimBoolean, true},      {"uint8", TCIMType::cimUint8, true},
      {"sint8", TCIMType::cimSint8, true},          {"uint16", TCIMType::cimUint16, true},
      {"sint16", TCIMType::cimSint16, true},        {"uint32", TCIMType::cimUint32, true},
      {"sint32", TCIMType::cimSint32, true},        {"uint64", TCIMType::cimUint64, true},
      {"sint64", TCIMType::cimSint64, true},        {"real32", TCIMType::cimReal32, true},
      {"real64", TCIMType::cimReal64, true},        {"char", TCIMType::cimChar, false},
      {"string", TCIMType::cimString, true},        {"datetime", TCIMType::cimDateTime, true},
      {"reference", TCIMType::cimReference, false},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(row.name, TCIMType(row.type).ToString());
    std::ostringstream stream;
    stream << TCIMType(row.type | kArray);
    EXPECT_EQ(row.name, stream.str());
    std::string shouted = row.name;
    shouted[0] = static_cast<char>(shouted[0] - 'a' + 'A');
    EXPECT_EQ(row.readable ? vskStatusOK : vskStatusTypeMismatch,
              StatusOf([&] { EXPECT_EQ(row.type, TCIMType(shouted)); }));
  }
  for (const char* name : {"", "uint", "uint8 ", "uint128", "none"}) {
    EXPECT_EQ(vskStatusTypeMismatch, StatusOf([&] { TCIMType{std::string(name)}; })) << name;
  }
  for (const auto type :
       {TCIMType::cimNone, kArray, kNoSuchType, static_cast<TCIMValue::ECIMType>(32)}) {
    EXPECT_EQ(vskStatusTypeMismatch, StatusOf([&] { TCIMType(type).ToString(); })) << type;
  }
}

TEST_F(TCIMValueText, EveryShortTextReadsAsByStream) {
  const std::string letters = "-+0x7 fF9.";
  std::vector<std::string> texts = {""};
  for (std::size_t i = 0; i < texts.size(); ++i) {
    const std::string text = texts[i];
    ExpectIntegersLikeStream(text);
    ExpectLikeStream<double>(TCIMType::cimReal64, text);
    for (std::size_t j = 0; text.size() < 4 && j < letters.size(); ++j) {
      texts.push_back(text + letters[j]);
    }
  }
}

TEST_F(TCIMValueText, NumbersAtTheirLimitsReadAsByStream) {
  for (unsigned int bits = 7; bits <= 64; ++bits) {
    const std::uint64_t power = bits == 64 ? 0 : std::uint64_t{1} << bits;
    for (const unsigned int base : {8U, 10U, 16U}) {
      for (const std::uint64_t number : {power - 1, power, power + 1}) {
        for (const char* sign : {"", "-", "+"})
          ExpectIntegersLikeStream(sign + Print(number, base));
      }
    }
  }
  for (const char* text : {"18446744073709551616", "-18446744073709551616", "-18446744073709551615",
                           "99999999999999999999999999x", "0xFFFFFFFFFFFFFFFFF",
                           "0x10000000000000000", "-0x8000000000000001", "07777777777777777777777",
                           "\t\n\v\f\r 12", "1,234", "08", "0X1fG", "0x", "-0x", "00x1"}) {
    ExpectIntegersLikeStream(text);
  }
  ExpectIntegersLikeStream(
      std::string("12\0"
                  "34",
                  5));
}

TEST_F(TCIMValueText, RealsReadAsByStream) {
  for (const char* text :
       {"1.5", " -2.25e3xyz", "1e", "1e+", ".5", "5.", "1e400", "-1e400", "1e-400", "3,5", "inf",
        "nan", "0x10", "1.2.3", "1e5.5", "4e38", "1e-45"}) {
    ExpectLikeStream<float>(TCIMType::cimReal32, text);
    ExpectLikeStream<double>(TCIMType::cimReal64, text);
  }
}

TEST_F(TCIMValueText, LocaleOfTheProgramDoesNotCount) {
  struct TComma : std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
  };
  const std::locale before = std::locale::global(std::locale(std::locale(), new TComma));
  const double real = Read(TCIMType::cimReal64, "1.5");
  const int number = Read(TCIMType::cimSint32, "12.345");
  const std::string printed = TCIMValue(1234.5).ToString(10) + " " + TCIMValue(12345).ToString(10);
  std::locale::global(before);
  EXPECT_EQ(1.5, real);
  EXPECT_EQ(12, number);
  EXPECT_EQ("1234.5 12345", printed);
}

TEST_F(TCIMValueText, BooleansReadInAnyCase) {
  for (const char* text :
       {"true", "false", " \ttrue", "trueish", "falsetto", "tru", "", "1", "t rue"}) {
    ExpectLikeStream<bool>(TCIMType::cimBoolean, text);
  }
  for (const char* text : {"TRUE", "True", "tRUE "})
    EXPECT_TRUE(Read(TCIMType::cimBoolean, text)) << text;
  for (const char* text : {"FALSE", "TRU", "yes"})
    EXPECT_FALSE(Read(TCIMType::cimBoolean, text)) << text;
}

TEST_F(TCIMValueText, OtherTypes) {
  EXPECT_EQ(" as it is ", static_cast<std::string>(Read(TCIMType::cimString, " as it is ")));
  EXPECT_EQ("20051031175918.000000+060",
            Read(TCIMType::cimDateTime, "20051031175918.000000+060").ToString(10));
  const struct {
    TCIMValue::ECIMType type;
    vskStatus status;
  } kRows[] = {
      {TCIMType::cimDateTime, vskStatusInvalidDateTime},
      {TCIMType::cimReference, vskStatusNotImplemented},
      {TCIMType::cimNone, vskStatusTypeMismatch},
      {TCIMType::cimChar, vskStatusTypeMismatch},
      {TCIMType::cimString | kArray, vskStatusTypeMismatch},
      {kNoSuchType, vskStatusTypeMismatch},
  };
  for (const auto& row : kRows) {
    EXPECT_EQ(row.status, StatusOf([&] { Read(row.type, "x"); })) << row.type;
  }
}

TEST(TCIMValuePrint, Radix) {
  const struct {
    TCIMValue value;
    const char* decimal;
    const char* hexadecimal;  // null: refused, and octal too
    const char* octal;
  } kRows[] = {
      {true, "true", "true", "true"},
      {false, "false", "false", "false"},
      {static_cast<unsigned char>(255), "255", "FF", "377"},
      {static_cast<unsigned char>(10), "10", "0A", "12"},
      {static_cast<unsigned short>(48879), "48879", "BEEF", "137357"},
      {0U, "0", "00000000", "0"},
      {255U, "255", "000000FF", "377"},
      {std::uint64_t{81985529216486895}, "81985529216486895", "0123456789ABCDEF",
       "4432126361152746757"},
      {static_cast<signed char>(-65), "-65", nullptr, nullptr},
      {static_cast<short>(-32768), "-32768", nullptr, nullptr},
      {-7, "-7", nullptr, nullptr},
      {std::numeric_limits<std::int64_t>::min(), "-9223372036854775808", nullptr, nullptr},
      {0.1F, "0.1", nullptr, nullptr},
      {1234567.0, "1.23457e+06", nullptr, nullptr},
      {"text", "text", "text", "text"},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.decimal);
    EXPECT_EQ(row.decimal, row.value.ToString(10));
    const vskStatus expected = row.octal == nullptr ? vskStatusNotSupported : vskStatusOK;
    EXPECT_EQ(expected, StatusOf([&] { EXPECT_EQ(row.hexadecimal, row.value.ToString(16)); }));
    EXPECT_EQ(expected, StatusOf([&] { EXPECT_EQ(row.octal, row.value.ToString(8)); }));
  }
  for (const int radix : {0, 2, 9, 255}) {
    for (const TCIMValue& number : {TCIMValue(true), TCIMValue(1U), TCIMValue(1), TCIMValue(1.0)}) {
      EXPECT_EQ(vskStatusNotSupported,
                StatusOf([&] { number.ToString(static_cast<unsigned char>(radix)); }))
          << radix;
    }
  }
}

TEST(TCIMValuePrint, RealsAsByStream) {
  using TLimits = std::numeric_limits<double>;
  for (const double number :
       {0.0, -0.0, 1.0, 100000.0, 999999.5, 1000000.0, 0.0001, 0.00001234567, -3.14159265, 1e100,
        5e-324, TLimits::max(), TLimits::infinity(), -TLimits::infinity(), TLimits::quiet_NaN(),
        -TLimits::quiet_NaN(), 2.5, 16777217.0, 0.1}) {
    std::ostringstream wide;
    std::ostringstream narrow;
    wide << number;
    narrow << static_cast<float>(number);
    EXPECT_EQ(wide.str(), TCIMValue(number).ToString(10));
    EXPECT_EQ(narrow.str(), TCIMValue(static_cast<float>(number)).ToString(10));
  }
}

TEST(TCIMValuePrint, Arrays) {
  const TCIMType type = TCIMType::cimUint8;
  const auto byte = [](int number) { return TCIMValue(static_cast<unsigned char>(number)); };
  EXPECT_EQ("{  }", TCIMValue(type, 0, {}).ToString(10));
  EXPECT_EQ("{ 0A }", TCIMValue(type, 0, {byte(10)}).ToString(16));
  EXPECT_EQ("{ 10, 7, 255 }", TCIMValue(type, 0, {byte(10), byte(7), byte(255)}).ToString(10));
  EXPECT_EQ(vskStatusValueIsNULL, StatusOf([&] {
              TCIMValue(type, 0, {byte(1), Null(type)}).ToString(10);
            }));
  EXPECT_EQ(vskStatusValueIsNULL, StatusOf([] { Null(TCIMType::cimString).ToString(10); }));
}

// Each conversion takes its own type and no other, and no NULL.
TEST(TCIMValueConversion, IsStrict) {
  const std::function<void(const TCIMValue&)> kConversions[] = {
      [](const TCIMValue& value) { EXPECT_EQ(true, value.operator bool()); },
      [](const TCIMValue& value) { EXPECT_EQ(2, value.operator unsigned char()); },
      [](const TCIMValue& value) { EXPECT_EQ(-3, value.operator signed char()); },
      [](const TCIMValue& value) { EXPECT_EQ(4, value.operator unsigned short()); },
      [](const TCIMValue& value) { EXPECT_EQ(-5, value.operator short()); },
      [](const TCIMValue& value) { EXPECT_EQ(6U, value.operator unsigned int()); },
      [](const TCIMValue& value) { EXPECT_EQ(-7, value.operator int()); },
      [](const TCIMValue& value) { EXPECT_EQ(8U, value.operator std::uint64_t()); },
      [](const TCIMValue& value) { EXPECT_EQ(-9, value.operator std::int64_t()); },
      [](const TCIMValue& value) { EXPECT_EQ(10.5F, value.operator float()); },
      [](const TCIMValue& value) { EXPECT_EQ(-11.25, value.operator double()); },
      [](const TCIMValue& value) { EXPECT_EQ("text", value.operator std::string()); },
      [](const TCIMValue& value) {
        EXPECT_EQ(123U, value.operator TCIMDateTime().GetMicroSeconds());
      },
      [](const TCIMValue& value) { value.operator TCIMReference(); },
      [](const TCIMValue& value) { EXPECT_EQ(3U, value.operator TElements&().size()); },
  };
  TElements values = OneOfEach();
  ASSERT_EQ(13U, values.size());
  values.push_back(TCIMValue(TCIMType::cimReference, 0));  // no conversion is its own while NULL
  values.push_back(TCIMValue(TCIMType::cimUint32, 0, {1U, 2U, 3U}));
  for (std::size_t i = 0; i < values.size(); ++i) {
    for (std::size_t j = 0; j < values.size(); ++j) {
      const vskStatus expected = values[i].IsNull() ? vskStatusValueIsNULL
                                 : i == j           ? vskStatusOK
                                                    : vskStatusTypeMismatch;
      EXPECT_EQ(expected, StatusOf([&] { kConversions[j](values[i]); })) << i << " by " << j;
      const TCIMValue null = Null(values[i].GetType());
      EXPECT_EQ(vskStatusValueIsNULL, StatusOf([&] { kConversions[j](null); })) << i << " by " << j;
    }
  }
}

// The contents hold the line themselves, when somebody meets them without their value.
TEST(TCIMValueConversion, ContentIsStrictToo) {
  const TCIMNumericValueImpl number(5U);
  EXPECT_EQ(5U, number.operator unsigned int());
  EXPECT_EQ(vskStatusTypeMismatch, StatusOf([&] { number.operator int(); }));
  EXPECT_EQ(vskStatusTypeMismatch, StatusOf([&] { number.operator std::string(); }));
  EXPECT_FALSE(number == TCIMValue(5));
  EXPECT_FALSE(number < TCIMValue("6"));
  EXPECT_EQ(vskStatusValueIsNULL, StatusOf([&] { (void)(number == Null(TCIMType::cimUint32)); }));
  const TCIMStringValueImpl text("5");
  const std::vector<vskStatus> statuses = {
      StatusAs<bool>(text),          StatusAs<unsigned char>(text),
      StatusAs<signed char>(text),   StatusAs<unsigned short>(text),
      StatusAs<short>(text),         StatusAs<unsigned int>(text),
      StatusAs<int>(text),           StatusAs<std::uint64_t>(text),
      StatusAs<std::int64_t>(text),  StatusAs<float>(text),
      StatusAs<double>(text),        StatusAs<TCIMDateTime>(text),
      StatusAs<TCIMReference>(text), StatusAs<TElements&>(text)};
  EXPECT_EQ(std::vector<vskStatus>(14, vskStatusTypeMismatch), statuses);
  EXPECT_FALSE(text == TCIMValue(5U));
  EXPECT_FALSE(text < TCIMValue(TCIMDateTime(1, 2, 3, 4, 5)));
  EXPECT_EQ(vskStatusValueIsNULL, StatusOf([&] { (void)(text < Null(TCIMType::cimString)); }));
  const TCIMDateTimeValueImpl time(TCIMDateTime(1, 2, 3, 4, 5));
  EXPECT_FALSE(time == TCIMValue("5"));
  EXPECT_FALSE(time < TCIMValue("6"));
}

TEST(TCIMValueState, NullKnowsItsType) {
  const TCIMValue none;
  EXPECT_TRUE(none.IsNull());
  EXPECT_EQ(TCIMType::cimNone, none.GetType());

  const TCIMValue text(TCIMType(TCIMType::cimString), 0);
  EXPECT_TRUE(text.IsNull());
  EXPECT_FALSE(text.IsArray());

  TCIMValue bytes(TCIMType(TCIMType::cimUint8), 4);
  EXPECT_TRUE(bytes.IsNull());
  EXPECT_TRUE(bytes.IsArray());
  EXPECT_EQ(18, bytes.GetType());
  EXPECT_EQ(4U, bytes.GetMaxArraySize());
  bytes.SetNullValue(TCIMType::cimString, 7);
  EXPECT_EQ(4U, bytes.GetMaxArraySize());
  EXPECT_EQ(TCIMType::cimString, bytes.GetType());
  bytes.Set(5U);
  EXPECT_EQ(4U, bytes.GetMaxArraySize());
  bytes.SetNullValue(TCIMType::cimSint8 | kArray, 9);
  EXPECT_TRUE(bytes.IsNull());
  EXPECT_EQ(9U, bytes.GetMaxArraySize());
  EXPECT_FALSE(TCIMValue(TCIMType(TCIMType::cimReference), 1).IsReference());
}

TEST(TCIMValueState, ReferencedClass) {
  TContainer container;
  TCIMClass disk(container, "Sample_Disk", nullptr);
  TCIMClass port(container, "Sample_Port", nullptr);
  TCIMValue value = Null(TCIMType::cimReference);
  EXPECT_EQ(nullptr, value.FindReferencedClass());
  EXPECT_EQ(vskStatusInvalidReference, StatusOf([&] { value.GetReferencedClass(); }));
  EXPECT_EQ(vskStatusInvalidReference, StatusOf([&] { value.Set(TCIMReference()); }));
  EXPECT_FALSE(value.IsNull());  // stored all the same
  EXPECT_EQ(vskStatusInvalidReference, StatusOf([] { TCIMValue lost{TCIMReference()}; }));

  value.SetNullValue(TCIMType::cimReference, 0);
  value.SetReferencedClass(disk);
  const TCIMValue other = value;
  EXPECT_EQ(&disk, &other.GetReferencedClass());
  value.SetReferencedClass(port);
  EXPECT_TRUE(value != other);
  EXPECT_FALSE(value < other);

  TCIMReference reference;
  reference.SetClass(disk);
  value.Set(reference);
  EXPECT_EQ(&disk, value.FindReferencedClass());
  EXPECT_EQ(vskStatusInvalidOpSequence, StatusOf([&] { value.SetReferencedClass(port); }));
  value.Set(3);
  EXPECT_EQ(&disk, value.FindReferencedClass());  // left from before
  EXPECT_EQ(nullptr, TCIMValue(value).FindReferencedClass());
}

TEST_F(TCIMValueText, ReadsIntoATotalOrder) {
  const std::pair<const char*, std::vector<const char*>> kAscending[] = {
      {"boolean", {"false", "true"}},
      {"uint8", {"200", "255"}},
      {"sint8", {"-1", "1"}},
      {"uint16", {"255", "65535"}},
      {"sint16", {"-1", "1"}},
      {"uint32", {"1000", "4000000000"}},
      {"sint32", {"-2", "1"}},
      {"uint64", {"1", "0x8000000000000000"}},
      {"sint64", {"-1", "4294967296"}},
      {"real32", {"-0.5", "0.5"}},
      {"real64", {"-1e300", "1e300"}},
      {"string", {"B", "a", "a "}},
      {"datetime", {"00000001000000.000000:000", "00000001000000.000001:000"}}};
  TElements ascending = {Null(TCIMType::cimString)};
  for (const auto& [type, texts] : kAscending) {
    for (const char* text : texts) ascending.push_back(Read(TCIMType(type), text));
  }
  for (std::size_t i = 0; i < ascending.size(); ++i) {
    for (std::size_t j = 0; j < ascending.size(); ++j) {
      SCOPED_TRACE(std::to_string(i) + " and " + std::to_string(j));
      EXPECT_EQ(i == j, ascending[i] == ascending[j]);
      EXPECT_EQ(i != j, ascending[i] != ascending[j]);
      EXPECT_EQ(i < j, ascending[i] < ascending[j]);
      EXPECT_EQ(i <= j, ascending[i] <= ascending[j]);
      EXPECT_EQ(i > j, ascending[i] > ascending[j]);
      EXPECT_EQ(i >= j, ascending[i] >= ascending[j]);
    }
  }
}

TEST(TCIMValueCompare, Oddities) {
  const TCIMValue nan(std::numeric_limits<double>::quiet_NaN());
  EXPECT_FALSE(nan == nan);
  EXPECT_FALSE(nan < TCIMValue(1.0));
  EXPECT_TRUE(nan > TCIMValue(1.0));  // neither equal nor less
  EXPECT_TRUE(TCIMValue(0.0) == TCIMValue(-0.0));

  EXPECT_FALSE(Null(TCIMType::cimUint8) == Null(TCIMType::cimUint16));
  EXPECT_FALSE(Null(TCIMType::cimUint8) < Null(TCIMType::cimUint16));
  EXPECT_FALSE(TCIMValue(TCIMType::cimUint8, 3) == TCIMValue(TCIMType::cimUint8, 4));
  EXPECT_TRUE(TCIMValue(TCIMType::cimUint8, 3) == TCIMValue(TCIMType::cimUint8, 3));

  const TCIMValue numbers(TCIMType::cimUint32, 0, {1U});
  const TCIMValue texts(TCIMType::cimString, 0, {"1"});
  EXPECT_FALSE(numbers == texts);
  EXPECT_TRUE(numbers < texts);
  EXPECT_EQ(vskStatusNotImplemented, StatusOf([&] { (void)(numbers == numbers); }));
  EXPECT_EQ(vskStatusNotImplemented, StatusOf([&] { (void)(numbers < numbers); }));
  const TCIMValue stamp(TCIMDateTime("20051031175918.000000+000"));
  EXPECT_EQ(vskStatusInvalidDateTime,
            StatusOf([&] { (void)(stamp == TCIMValue(TCIMDateTime(1, 2, 3, 4, 5))); }));
}

TEST(TCIMValueSet, CopiesDeeply) {
  for (const TCIMValue& value : OneOfEach()) {
    TCIMValue copy("before");
    copy = value;
    EXPECT_TRUE(copy == value);
    EXPECT_EQ(value.GetType(), copy.GetType());
    TCIMValue moved(std::move(copy));
    EXPECT_TRUE(moved == value);
    EXPECT_TRUE(copy.IsNull());
  }
  const TCIMValue source(TCIMType::cimString, 5, {"a", "b"});
  const TCIMValue copy = source;
  static_cast<TElements&>(copy)[0].Set("z");
  EXPECT_EQ("{ a, b }", source.ToString(10));
  EXPECT_EQ("{ z, b }", copy.ToString(10));
  EXPECT_EQ(5U, copy.GetMaxArraySize());
}

TEST(TCIMValueSet, MoveShowsWhatACopyShows) {
  TContainer container;
  TCIMClass disk(container, "Sample_Disk", nullptr);
  TCIMValue reference = Null(TCIMType::cimReference);
  reference.SetReferencedClass(disk);
  TCIMValue number = reference;
  number.SetNullValue(kArray, 6);
  number.Set(1U);
  for (TCIMValue* source : {&reference, &number}) {
    const TCIMValue copy = *source;
    const TCIMValue moved = std::move(*source);
    EXPECT_TRUE(copy == moved);
    EXPECT_EQ(copy.GetMaxArraySize(), moved.GetMaxArraySize());
    EXPECT_EQ(copy.FindReferencedClass(), moved.FindReferencedClass());
  }
}

TEST(TCIMValueSet, FailureLeavesAKnownState) {
  const TCIMValue bytes(TCIMType::cimUint8, 0, {static_cast<unsigned char>(1)});
  TCIMValue target = bytes;
  EXPECT_EQ(vskStatusNotImplemented, StatusOf([&] { target = bytes; }));
  EXPECT_EQ("{ 1 }", target.ToString(10));

  target.Set(TCIMDateTime("20051031175918.000000+000"));
  EXPECT_EQ(vskStatusInvalidDateTime, StatusOf([&] { target = TCIMDateTime(1, 2, 3, 4, 5); }));
  EXPECT_EQ("20051031175918.000000+000", target.ToString(10));

  for (const auto type :
       {TCIMType::cimNone, TCIMType::cimChar, static_cast<TCIMValue::ECIMType>(32), kNoSuchType}) {
    target.Set("before");
    EXPECT_EQ(vskStatusTypeMismatch, StatusOf([&] { target = Null(type); })) << type;
    EXPECT_TRUE(target.IsNull());
    EXPECT_EQ(type, target.GetType());
    EXPECT_EQ(type == TCIMType::cimNone ? vskStatusOK : vskStatusTypeMismatch,
              StatusOf([&] { TCIMValue copy(target); }));
  }
}

TEST(TCIMValueSet, ArrayTakesItsElementsOnly) {
  TLogCapture log;
  TCIMValue value;
  value.Set(TCIMType::cimUint8 | kArray, 2, {Null(TCIMType::cimUint8)});
  EXPECT_EQ(18, value.GetType());
  EXPECT_EQ(vskStatusInvalidProperty, StatusOf([&] {
              value.Set(TCIMType::cimUint8, 7, {1U, "a"});
            }));
  EXPECT_EQ("ERROR: Attempting to create array of type uint8, but element is of type uint32.",
            log.Take());
  EXPECT_EQ("{ 1, a }", value.ToString(10));
  EXPECT_EQ(7U, value.GetMaxArraySize());
  EXPECT_EQ(vskStatusInvalidProperty,
            StatusOf([] { TCIMValue(TCIMType::cimString, 0, {TCIMValue()}); }));
  EXPECT_EQ("ERROR: Attempting to create array of type string, but element is of type none.",
            log.Take());
}

TEST(TCIMValueSet, OutOfItsOwnContent) {
  TCIMValue value(TCIMType::cimString, 2, {"a long text that needs memory of its own", "second"});
  TElements& elements = value;
  value.Set(TCIMType::cimString, 3, elements);
  EXPECT_EQ("{ a long text that needs memory of its own, second }", value.ToString(10));
  value.Set(static_cast<TElements&>(value)[0]);
  EXPECT_EQ("a long text that needs memory of its own", value.ToString(10));
  value.Set(value);
  EXPECT_EQ("a long text that needs memory of its own", value.ToString(10));

  TLogCapture log;
  value.SetNullValue(TCIMType::cimNone, 0);
  EXPECT_EQ(vskStatusInvalidProperty,
            StatusOf([&] { value.Set(TCIMType::cimString, 1, {TCIMValue()}); }));
  EXPECT_NE("", log.Take());
  EXPECT_EQ(vskStatusTypeMismatch, StatusOf([&] { value.Set(static_cast<TElements&>(value)[0]); }));
  EXPECT_TRUE(value.IsNull());
}
