// The XML reader alone. What it reports of a document that is cut off is the beginning of what it
// reports of the whole, and what it reports of an element doesn't depend on what stands around it.
// Bytes behind the document and a NUL tell where to cut: the next piece is one byte and so many
// 256ths of the document.
#include <vskcore/cimxml/TXmlParser.h>
#include <vskcore/core/TVSKException.h>

#include <algorithm>
#include <string_view>

#include "FuzzSupport.h"
#include "support/StatusOf.h"

namespace {

constexpr std::size_t kMaxCuts = 32;
constexpr std::size_t kMaxAlone = 6;

// Where an element begins, in the document and in the events.
struct TStart {
  std::size_t place;
  std::size_t event;
};

// Every event, one after another; neighbouring texts run together.
class TRecorder : public TXmlParser {
 public:
  TRecorder(std::vector<char>& document, unsigned int firstLine)
      : document_(document.data()), firstLine_(firstLine) {
    status = StatusOf([&] { Parse(document.data()); });
    const auto lines = std::count(document.begin(), document.end(), '\n');
    Require(status != vskStatusOK || GetCurLine() <= 1 + lines, "no line behind the last");
  }

  void StartElement(const char* const name, TAttributes& attributes) override {
    starts.push_back({static_cast<std::size_t>(name - document_) - 1, events.size()});
    ++depth_;
    Tell("start ", name);
    for (const auto& [key, value] : attributes) Tell(key.c_str(), value.c_str());
  }
  void EndElement(const char* const name) override {
    Tell("end ", name);
    if (--depth_ == 0) rootSize = events.size();
  }
  void processingInstruction(const char* const target, const char* const data) override {
    Tell(target, data);
  }
  void characters(const char* const text, unsigned int length) override {
    Require(text[length] == '\0', "a text is terminated");
    events.append(text, length);
  }
  void notationDecl(const char* const, const char* const, const char* const) override {
    Require(false, "notations are skipped");
  }
  void FatalError(const char* const message) override {
    Require(*message != '\0', "a failure says what is wrong");
    throw TVSKException(vskStatusInvalidSpecificationDocument);
  }

  vskStatus status = vskStatusOK;
  std::string events;
  std::vector<TStart> starts;
  std::size_t rootSize = std::string::npos;  // of the events up to the root element's end

 private:
  void Tell(const char* what, const char* name) {
    const unsigned int line = GetCurLine();
    Require(line >= line_, "lines ascend");
    line_ = line;
    events += "\n" + std::to_string(firstLine_ - 1 + line) + what + "=" + name + "\n";
  }

  const char* document_;
  unsigned int firstLine_;
  unsigned int line_ = 1;
  int depth_ = 0;
};

std::vector<char> Terminated(std::string_view text) {
  std::vector<char> document(text.begin(), text.end());
  document.push_back('\0');
  return document;
}

// Ahead of the root element, what stands in a comment without an end is read.
bool LeavesCommentOpen(std::string_view text) {
  const std::size_t begin = text.rfind("<!--");
  return begin != text.npos && text.find("-->", begin + 4) == text.npos;
}

void ReadCut(std::string_view begin, const std::string& events) {
  if (LeavesCommentOpen(begin)) return;
  std::vector<char> document = Terminated(begin);
  const std::string cut = TRecorder(document, 1).events;
  Require(events.compare(0, cut.size(), cut) == 0,
          "a document that is cut off begins as the whole does");
}

void ReadAlone(std::string_view whole, const TRecorder& record, const TStart& start) {
  std::vector<char> document = Terminated(whole.substr(start.place));
  const std::string_view ahead = whole.substr(0, start.place);
  const auto lines = std::count(ahead.begin(), ahead.end(), '\n');
  const TRecorder alone(document, 1 + static_cast<unsigned int>(lines));
  const std::string_view events = std::string_view(alone.events).substr(0, alone.rootSize);
  const std::string_view within = std::string_view(record.events).substr(start.event);
  // Within others it may be too deep.
  const std::size_t size = std::min(events.size(), within.size());
  Require(events.substr(0, size) == within.substr(0, size), "an element reads alone as within");
  Require(record.status != vskStatusOK || events.size() == size, "nothing more is read alone");
}

void ReadPieces(std::string_view whole, std::string pieces, const std::string& events) {
  if (pieces.empty()) pieces = "UU";  // two thirds
  std::size_t cut = 0;
  for (const char piece : pieces.substr(0, kMaxCuts)) {
    cut += 1 + whole.size() * static_cast<unsigned char>(piece) / 256;
    if (cut >= whole.size()) break;
    ReadCut(whole.substr(0, cut), events);
  }
}

bool IsSameButForCase(char left, char right) {
  const bool isCapital = right >= 'A' && right <= 'Z';
  return left == right || (isCapital && left == (right | 0x20));
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size > kMaxInputSize) return 0;
  StartInput();
  const std::string input(data, data + size);
  std::vector<char> document = DocumentIn(input);
  const std::string_view whole = input.c_str();
  const TRecorder record(document, 1);
  if (record.status == vskStatusOK) {
    Require(std::equal(document.begin(), document.end() - 1, whole.begin(), IsSameButForCase),
            "the document stands as before but for lower case");
    Require(TRecorder(document, 1).events == record.events, "a document reads the same again");
  }
  ReadPieces(whole, BehindDocument(input), record.events);
  const std::size_t step = 1 + record.starts.size() / kMaxAlone;
  for (std::size_t i = size % step; i < record.starts.size(); i += step) {
    ReadAlone(whole, record, record.starts[i]);
  }
  return 0;
}
