#include <gtest/gtest.h>
#include <vskcore/cimxml/TXmlParser.h>

#include <algorithm>
#include <cstring>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using TEvents = std::vector<std::string>;

// A buffer of exactly the document's size, so that a sanitizer sees each byte read past its end.
class TBuffer {
 public:
  explicit TBuffer(const std::string& document)
      : size_(document.size()), bytes_(new char[document.size() + 1]) {
    std::memcpy(bytes_.get(), document.c_str(), size_ + 1);
  }
  char* Get() { return bytes_.get(); }
  std::string GetText() const { return {bytes_.get(), size_}; }

 private:
  std::size_t size_;
  std::unique_ptr<char[]> bytes_;
};

// Notes each event as a short text: <name key=value>, </name>, 'text', ?instruction and !message.
class TRecorder : public TXmlParser {
 public:
  void StartElement(const char* const name, TAttributes& attributes) override {
    std::string event = std::string("<") + name;
    for (const auto& [key, value] : attributes) event += " " + key + "=" + value;
    Note(event + ">");
    if (onStart) onStart(attributes);
  }
  void EndElement(const char* const name) override { Note(std::string("</") + name + ">"); }
  void processingInstruction(const char* const target, const char* const data) override {
    Note(std::string("?") + target + "," + data);
  }
  void characters(const char* const text, unsigned int length) override {
    EXPECT_EQ('\0', text[length]);
    Note("'" + std::string(text, length) + "'");
  }
  void notationDecl(const char* const, const char* const, const char* const) override {
    Note("notation");
  }
  void FatalError(const char* const message) override {
    Note(std::string("!") + message);
    throw std::runtime_error(message);
  }

  // Whether the reading came to its end.
  bool Run(char* buffer) {
    try {
      Parse(buffer);
    } catch (const std::runtime_error&) {
      return false;
    }
    return true;
  }

  TEvents events;
  std::vector<unsigned int> lines;  // one for each event if asked for
  bool notesLines = false;
  std::function<void(TAttributes&)> onStart;
  std::function<void()> onEvent;

 private:
  void Note(const std::string& event) {
    events.push_back(event);
    if (notesLines) lines.push_back(GetCurLine());
    if (onEvent) onEvent();
  }
};

std::string Join(const TEvents& events) {
  std::string joined;
  for (const std::string& event : events) joined += event;
  return joined;
}

std::string Picture(const std::string& document) {
  TBuffer buffer(document);
  TRecorder recorder;
  recorder.Run(buffer.Get());
  return Join(recorder.events);
}

// What is reported of each of these.
struct TRow {
  std::string picture;
  std::vector<std::string> documents;
};

void ExpectPictures(const std::vector<TRow>& rows) {
  for (const TRow& row : rows) {
    for (const std::string& document : row.documents)
      EXPECT_EQ(row.picture, Picture(document)) << document;
  }
}

// Elements inside each other, the innermost one empty.
std::string Nested(unsigned int depth) {
  std::string opening;
  std::string closing;
  for (unsigned int level = 1; level < depth; ++level) {
    opening += "<e>";
    closing += "</e>";
  }
  return opening + "<e/>" + closing;
}

std::string Numbered(int count, const std::string& last = "") {
  std::string tag = "<a";
  for (int number = count; number > 0; --number) tag += " n" + std::to_string(number) + "='v'";
  return tag + last + "/>";
}

const char kGoodDocument[] =
    "<?xml version='1.0'?>\n<!-- a -- b -->\n<!DOCTYPE CIM>\n<?p x?>\n"
    "<CIM VERSION=\"2.0\" \n DTD = '2 > 1'>t&lt;&#65;\n<x.y-z_1:w\n/><!--c--><?q?>"
    "<E A='1'  b='2'>&quot;<F/></E\n></CIM>\n<!--d--> <?r?>\n";

}  // namespace

TEST(TXmlParserDocument, PassesOnWhatStands) {
  ExpectPictures({
      {"<a></a>", {"<a/>", "<a></a>", "<a></a \r\n\t>"}},
      {"<_a.b-c:9></_a.b-c:9>", {"<_a.b-c:9/>"}},
      {"<A b=1></A>", {"<A B=\"1\"/>"}},
      {"<a _= a:a=2 b9-z=1></a>", {"<a B9-Z='1' a:A = \"2\"\n_='' />"}},
      {"<a b=x>y/\"z></a>", {"<a b='x>y/\"z'/>"}},
      {"<a b= '\n\t></a>", {"<a b=\" '\n\t\"/>"}},
      {"<a>' \n'</a>", {"<a> \n</a>"}},
      {"<a>'x > y ]]> \xC3\xA9'</a>", {"<a>x > y ]]> \xC3\xA9</a>"}},
      {"<a>'a run of more than sixteen bytes'</a>", {"<a>a run of more than sixteen bytes</a>"}},
      // Each is '<', '&', '"' or "'" but for its high bit.
      {"<a b=\xBC\xA6\xA7\xA2 7890>'\xBC\xA6 34567890'</a>",
       {"<a b='\xBC\xA6\xA7\xA2 7890'>\xBC\xA6 34567890</a>"}},
      {"<a>'x''y'?TBD,TBD'z'<b></b></a>", {"<a>x<!-- c -->y<?p?>z<b/></a>"}},
      {"<a><b><c></c></b><b>'1'</b></a>", {"<a><b><c/></b><b>1</b></a>"}},
  });
}

TEST(TXmlParserDocument, ProloguesAndEpilogues) {
  ExpectPictures({
      {"<a></a>",
       {"<?xml version=\"1.0\"?>\n<!-- c -->\n<a/>",
        "<?xml version=\"1.0\"?>\r\n<!-- c -->\r\n<a/>", "<?anything?><a/>",
        "<?><a/>",          // the shortest thing that counts as a declaration
        "<?xml?><!--<a/>",  // without an end: only the opening is stepped over
        "<a/>text", "<a/><b/>", "<a/><!--c <?p?>", "<a/><!-?><?p?>"}},
      {"?TBD,TBD?TBD,TBD<a></a>", {"<?xml?><?p?> <?q?><a/>"}},
      {"?TBD,TBD<a></a>", {"<?xml?> <!DOCTYPE CIM SYSTEM 'x'> <!--c--> <?p?><a/>"}},
      {"<a></a>?TBD,TBD?TBD,TBD", {"<a/> <!--c--> <?p?> <?q?>x<?r?>"}},
      {"!Unexpected character before element",
       {"<?xml?><!DOCTYPE a [<!ENTITY b 'c'>]><a/>",  // skipped to the first ">"
        "<?xml?><!DOCTYPE a", "<?xml?>x<a/>", "<?xml?>\n"}},
      {"!Unexpected character in doctypedecl", {"<?xml?><!doctype a><a/>", "<?xml?><!-x--><a/>"}},
      {"!Invalid element/attribute name",
       {"<?xml?><?p <a/>", "<?xml <a/>", "<!-- c --><a/>", "<!DOCTYPE a><a/>", "<"}},
      {"!Unexpected character before prolog", {"", " <a/>", "\xEF\xBB\xBF<a/>"}},
  });
}

TEST(TXmlParserDocument, ErrorsInTags) {
  const std::string name = "!Invalid element/attribute name";
  const std::string tagEnd = "!Unexpected character before end of element";
  const std::string inValue = "!Unexpected character in attribute value";
  const std::string mismatch = "!Start and end element names don't match";
  const std::string missing = "!Unexpected character where element expected";
  ExpectPictures({
      {name, {"<1/>", "<.a/>", "< a/>", "<\xC3\xA9/>", "<a ", "<a 1='2'/>"}},
      {"<a>" + name, {"<a></>", "<a></ a>", "<a><", "<a><<b/></a>"}},
      {"<a>'x'" + name, {"<a>x<"}},
      {"!Unexpected character between attribute name and value",
       {"<a b/>", "<a b c='1'/>", "<a b"}},
      {"!Unexpected character after equals of attribute name", {"<a b=1/>", "<a b= "}},
      {inValue, {"<a b='x<y'/>", "<a b=\"x&amp;y\"/>"}},
      {"<r>" + inValue, {"<r><a b='x<yyyyyyyyyyy'/></r>", "<r><a b='x&yyyyyyyyyyy'/></r>"}},
      {"!Unterminated attribute value", {"<a b='", "<a b='x", "<a b='x\"/>"}},
      {"!Attribute appears twice", {"<A B='1' b='2'/>", "<a c='1' b='2' c='3' 1/>"}},
      {tagEnd, {"<a b='1'c='2'/>", "<a", "<a\xC3/>", "<a / >", "<a/"}},
      {"<a>" + tagEnd, {"<a></a", "<a></a b>"}},
      {"<a><b>" + tagEnd, {"<a><b></b"}},
      {"<a>" + mismatch, {"<a></A>"}},
      {"<abc>" + mismatch, {"<abc></abcd>", "<abc></ab>"}},
      {"<a><b>" + mismatch, {"<a><b></a></b>"}},
      {"<a>" + missing, {"<a>"}},
      {"<a>'x'" + missing, {"<a>x"}},
      {"<a><b></b>" + missing, {"<a><b/>"}},
  });
}

TEST(TXmlParserDocument, References) {
  ExpectPictures({
      {"<a>'x''&''y'</a>", {"<a>x&amp;y</a>"}},
      {"<a>'more than sixteen bytes''>'</a>", {"<a>more than sixteen bytes&gt;</a>"}},
      {"<a>'a run that is longer than thirty-two bytes''>'</a>",
       {"<a>a run that is longer than thirty-two bytes&gt;</a>"}},
      {"<a>'&'''''>''<''\"'</a>", {"<a>&amp;&apos;&gt;&lt;&quot;</a>"}},
      {"<a>'&''<''\"'</a>", {"<a>&AMP;&Lt;&qUOt;</a>"}},
      {"<a>'A''A''J''J''A''A'</a>", {"<a>&#65;&#x41;&#X4a;&#x4A;&#321;&#0000065;</a>"}},
      {"<a>'\xE9''\xAC'</a>", {"<a>&#xE9;&#x20AC;</a>"}},  // one byte, whatever the number
      {"<a>'" + std::string(1, '\0') + "'</a>", {"<a>&#0;</a>"}},
      {"<a>!Invalid hex character", {"<a>&#;</a>", "<a>&#x;</a>"}},
      {"<a>!Unknown entity reference",
       {"<a>&#xg;</a>", "<a>&#x4", "<a>&#a;</a>", "<a>&#6 5;</a>", "<a>&#-1;</a>", "<a>&foo;</a>",
        "<a>&amp</a>", "<a>&ampx;</a>", "<a>& amp;</a>", "<a>&;</a>", "<a>&<b/></a>", "<a>&"}},
  });
}

// Scans take several bytes at once, by blocks: no place in a word or a block is special.
TEST(TXmlParserDocument, ReadsAlikeWhereverItStands) {
  const std::string inside = "<Element.Name Name='a > \"b' b=\"\"/><v>12345678901&lt;<i/></v>";
  const std::string picture =
      "<Element.Name b= name=a > \"b></Element.Name><v>'12345678901''<'<i></i></v>";
  for (std::size_t size = 1; size < 4200; size += size == 32 ? 4000 : 1) {
    SCOPED_TRACE(size);
    const std::string padding(size, ' ');
    EXPECT_EQ("<r>'" + padding + "'" + picture + "</r>",
              Picture("<r>" + padding + inside + "</r>"));
  }
}

TEST(TXmlParserDocument, SomeThingsEndItWithoutAWord) {
  const std::string silent[] = {"<![CDATA[x]]>", "<!-x-->", "<!", "<!-- c ->", "<?p ?", "<?"};
  for (const std::string& markup : silent) {
    SCOPED_TRACE(markup);
    TBuffer buffer("<a><b>x" + markup + "</b></a>");
    const std::string before = buffer.GetText();
    TRecorder recorder;
    EXPECT_TRUE(recorder.Run(buffer.Get()));
    EXPECT_EQ("<a><b>'x'", Join(recorder.events));  // open elements stay open
    EXPECT_EQ(before, buffer.GetText());
  }
}

TEST(TXmlParserDocument, EveryPrefixEndsInOrder) {
  const std::string document = kGoodDocument;
  TBuffer whole(document);
  TRecorder full;
  ASSERT_TRUE(full.Run(whole.Get()));
  const std::size_t rootEnd = document.find("</CIM>") + std::strlen("</CIM>");
  for (std::size_t size = 0; size < document.size(); ++size) {
    SCOPED_TRACE(document.substr(0, size));
    TBuffer buffer(document.substr(0, size));
    TRecorder cut;
    const bool isComplete = cut.Run(buffer.Get());
    const bool isSilent = isComplete && size < rootEnd;
    ASSERT_LE(cut.events.size(), full.events.size() + 1);
    // The last event may be the message, the one ahead of it a text that is cut short.
    const std::size_t sure = isComplete ? cut.events.size() : cut.events.size() - 1;
    for (std::size_t index = 0; index + 1 < sure; ++index) {
      EXPECT_EQ(full.events[index], cut.events[index]);
    }
    if (isSilent) {
      const std::size_t markup = document.rfind('<', size - 1);
      EXPECT_TRUE(document[markup + 1] == '!' || document[markup + 1] == '?');
    }
    EXPECT_EQ(!isComplete, !cut.events.empty() && cut.events.back()[0] == '!');
  }
}

TEST(TXmlParserDepth, EndsAt256) {
  EXPECT_EQ(TXmlParser::kMaxDepth, 256u);
  std::string deepest = Picture(Nested(256));
  EXPECT_EQ(256 * std::strlen("<e></e>"), deepest.size());
  deepest = Picture(Nested(257));
  EXPECT_EQ("<e><e>!Elements nested too deeply", deepest.substr(255 * 3 - 3));
  // Siblings at the limit are no deeper.
  EXPECT_EQ(std::string::npos, Picture("<r>" + Nested(255) + Nested(255) + "</r>").find('!'));
}

TEST(TXmlParserAttributes, ManyInOneTag) {
  for (const int count : {15, 16, 17, 40}) {
    SCOPED_TRACE(count);
    TBuffer buffer(Numbered(count));
    TRecorder recorder;
    recorder.onStart = [&](TXmlParser::TAttributes& attributes) {
      EXPECT_EQ(static_cast<std::size_t>(count), attributes.size());
      EXPECT_EQ("v", attributes["n" + std::to_string(count)]);
    };
    EXPECT_TRUE(recorder.Run(buffer.Get()));
    for (const int twice : {1, count / 2, count}) {
      const std::string repeated = " N" + std::to_string(twice) + "=''";
      EXPECT_EQ("!Attribute appears twice", Picture(Numbered(count, repeated)));
    }
  }
}

// Whatever came before on the same level, in whatever order.
TEST(TXmlParserAttributes, AreTheElementsOwn) {
  ExpectPictures({
      {"<r><a n=1 t=2></a><a n=3 t=4></a><a></a><a t=5></a></r>",
       {"<r><a n='1' t='2'/><a n='3' t='4'/><a/><a t='5'/></r>"}},
      {"<r><a n=2 s=3 t=1></a><a a=4 o=6 z=5></a><a n=8 s=7 t=9></a></r>",
       {"<r><a t='1' n='2' s='3'/><a a='4' z='5' o='6'/><a s='7' n='8' t='9'/></r>"}},
      {"<r><a abcdefgh=1 ijklmnop=2></a><a></a><a qrstuvwxyzabcdef=3></a></r>",
       {"<r><a abcdefgh='1' ijklmnop='2'/><a/><a qrstuvwxyzabcdef='3'/></r>"}},
      {"<r><a n=1></a><a n=23></a><a n=longer than any before></a><a n=4></a><a n=></a></r>",
       {"<r><a n='1'/><a n='23'/><a n='longer than any before'/><a n='4'/><a n=''/></r>"}},
      {"<r>" + Picture(Numbered(18)) + "<a n05=y n5=x></a></r>",
       {"<r>" + Numbered(18) + "<a n5='x' n05='y'/></r>"}},
      {"<r><a abcdefghi-ijklmnop=1></a><a abcdefghi_ijklmnop=2></a></r>",
       {"<r><a abcdefghi-ijklmnop='1'/><a abcdefghi_ijklmnop='2'/></r>"}},
      {"<r><a abcdefgh1=1 abcdefgh2=2></a><a abcdefgh2=3></a><a abcd2=4></a><a abcd3=5></a></r>",
       {"<r><a abcdefgh1='1' ABCDEFGH2='2'/><a abcdefgh2='3'/><a abcd2='4'/><a abcd3='5'/></r>"}},
  });
}

TEST(TXmlParserAttributes, StayWhileTheElementIsOpen) {
  TBuffer buffer("<a n='1'><b n='2'><c n='3'/><c m='4'/></b><b/></a>");
  TRecorder recorder;
  TXmlParser::TAttributes* outermost = nullptr;
  recorder.onStart = [&](TXmlParser::TAttributes& attributes) {
    if (outermost == nullptr) outermost = &attributes;
    EXPECT_EQ("1", outermost->at("n"));
    EXPECT_EQ(1u, outermost->size());
  };
  EXPECT_TRUE(recorder.Run(buffer.Get()));
}

TEST(TXmlParserAttributes, WhatACallbackDoesToThemDoesNotSpread) {
  TBuffer buffer("<r><a n='1'/><a n='2' o='3'/><a/><a n='4'/><a/></r>");
  TRecorder recorder;
  recorder.onStart = [](TXmlParser::TAttributes& attributes) {
    attributes.erase("n");
    attributes[""] = "left";
    attributes["x"] = "behind";
  };
  EXPECT_TRUE(recorder.Run(buffer.Get()));
  EXPECT_EQ("<r><a n=1></a><a n=2 o=3></a><a></a><a n=4></a><a></a></r>", Join(recorder.events));
}

TEST(TXmlParserBuffer, OnlyAttributeNamesChangeForGood) {
  TBuffer buffer("<A\nNAME='V' Type=\"W\">T<B/>&amp;<C >X</C ></A>");
  TRecorder recorder;
  EXPECT_TRUE(recorder.Run(buffer.Get()));
  EXPECT_EQ("<A\nname='V' type=\"W\">T<B/>&amp;<C >X</C ></A>", buffer.GetText());
}

TEST(TXmlParserBuffer, NamesAreTerminatedWhileTheElementIsOpen) {
  TBuffer buffer("<abc>t<d e='1'/></abc>");
  TRecorder recorder;
  recorder.onEvent = [&] { EXPECT_STREQ("abc", buffer.Get() + 1); };
  EXPECT_TRUE(recorder.Run(buffer.Get()));
  EXPECT_EQ("<abc>t<d e='1'/></abc>", buffer.GetText());
}

struct TLineRow {
  const char* document;
  std::vector<unsigned int> lines;  // one for each event
};

TEST(TXmlParserLine, IsTheTrueOne) {
  const TLineRow rows[] = {
      {"<a/>", {1, 1}},
      {"<a>\n\n\n</a>", {1, 4, 4}},
      {"<a>\r\r\n</a\n>", {1, 2, 3}},
      {"<?xml?>\n<!--\n-->\n<a\nb='\n'\n>x</a>", {7, 7, 7}},
      // A line feed behind a name is out of the buffer while its element is open.
      {"<a\n><b\n><c\n/>\n</b></a>", {2, 3, 4, 4, 5, 5, 5}},
      {"<a\n>&#10;\n<b\n\n/>&bad;", {2, 2, 3, 5, 5, 5}},
      // A byte that is refused has been read.
      {"\n<a/>", {2}},
      {"<?xml?><!--\n<a/>", {2}},
      {"<a /\n>", {2}},
      {"<a b='\n\n", {3}},
      {"<a\n\n", {3}},
  };
  for (const TLineRow& row : rows) {
    SCOPED_TRACE(row.document);
    TBuffer buffer(row.document);
    TRecorder often;
    often.notesLines = true;
    often.Run(buffer.Get());
    EXPECT_EQ(row.lines, often.lines);

    TBuffer again(row.document);
    TRecorder once;
    once.onEvent = [&] { once.notesLines = once.events.size() + 1 == row.lines.size(); };
    once.notesLines = row.lines.size() == 1;
    once.Run(again.Get());
    EXPECT_EQ(std::vector<unsigned int>{row.lines.back()}, once.lines);
  }
}

TEST(TXmlParserReader, SurvivesWhatCallbacksThrow) {
  const std::string document = kGoodDocument;
  TBuffer whole(document);
  TRecorder full;
  full.notesLines = true;
  ASSERT_TRUE(full.Run(whole.Get()));
  for (std::size_t last = 1; last <= full.events.size(); ++last) {
    SCOPED_TRACE(last);
    TRecorder recorder;
    recorder.onEvent = [&] {
      if (recorder.events.size() == last) throw std::runtime_error("enough");
    };
    TBuffer buffer(document);
    EXPECT_FALSE(recorder.Run(buffer.Get()));
    EXPECT_EQ(TEvents(full.events.begin(), full.events.begin() + static_cast<long>(last)),
              recorder.events);
    EXPECT_EQ(full.lines[last - 1], recorder.GetCurLine());

    recorder.onEvent = nullptr;
    recorder.events.clear();
    recorder.notesLines = true;
    TBuffer next(document);
    EXPECT_TRUE(recorder.Run(next.Get()));
    EXPECT_EQ(full.events, recorder.events);
    EXPECT_EQ(full.lines, recorder.lines);
  }
}

TEST(TXmlParserReader, CopiesReferToTheSameBuffer) {
  TBuffer buffer("<a>\n\n</a>");
  TRecorder recorder;
  EXPECT_TRUE(recorder.Run(buffer.Get()));
  TRecorder copy(recorder);
  TRecorder assigned;
  EXPECT_EQ(1u, assigned.GetCurLine());
  assigned = recorder;
  EXPECT_EQ(3u, copy.GetCurLine());
  EXPECT_EQ(3u, assigned.GetCurLine());
}
