// Where documents enter the model: declared with the container, defined up here beside the parser,
// so that the model never sees its reader.
#include <vskcore/cimxml/TCIMXMLParser.h>
#include <vskcore/core/TVSKException.h>
#include <vskcore/model/TContainer.h>
#include <vskcore/platform/TOSSpecific.h>
#include <zlib.h>

#include <cstdint>
#include <cstdio>
#include <memory>
#include <new>

#include "core/base/Fail.h"
#include "platform/OpenStream.h"

using vsk::detail::OpenStream;
using vsk::detail::TStream;

namespace {

// A whole document with a NUL behind it, as the reader wants it.
using TBuffer = std::unique_ptr<char[]>;

struct TCloseGzip {
  void operator()(gzFile file) const { gzclose(file); }
};

using TGzipFile = std::unique_ptr<gzFile_s, TCloseGzip>;

void Demand(bool condition, vskStatus status) {
  if (!condition) throw TVSKException(status);
}

void DemandAllowedSize(std::uint64_t size) {
  Demand(size <= TCIMXMLParser::kMaxSpecificationDocumentSize,
         vskStatusInvalidSpecificationDocument);
}

TBuffer AllocateFor(std::size_t size) {
  TBuffer buffer(new (std::nothrow) char[size + 1]);
  Demand(buffer != nullptr, vskStatusOutOfMemory);
  return buffer;
}

TBuffer ReadPlain(const std::string& path, std::uint64_t fileSize) {
  DemandAllowedSize(fileSize);
  const auto size = static_cast<std::size_t>(fileSize);
  TBuffer buffer = AllocateFor(size);
  const TStream file = OpenStream(path);
  Demand(file != nullptr, vskStatusFileSystemError);
  // Less than the whole is no error: the file may have shrunk since.
  const std::size_t got = std::fread(buffer.get(), 1, size, file.get());
  Demand(std::ferror(file.get()) == 0, vskStatusFileSystemError);
  buffer[got] = '\0';
  return buffer;
}

std::uint32_t LittleEndian(const unsigned char (&bytes)[4]) {
  return bytes[0] | std::uint32_t{bytes[1]} << 8 | std::uint32_t{bytes[2]} << 16 |
         std::uint32_t{bytes[3]} << 24;
}

template <std::size_t kCount>
void ReadBytes(std::FILE& file, unsigned char (&bytes)[kCount]) {
  Demand(std::fread(bytes, 1, kCount, &file) == kCount, vskStatusFileSystemError);
}

// The uncompressed size by the file's last four bytes. Of the head only the signature is checked.
std::uint32_t GzipContentSize(const std::string& path) {
  const TStream file = OpenStream(path);
  Demand(file != nullptr, vskStatusFileSystemError);
  unsigned char signature[2];
  ReadBytes(*file, signature);
  Demand(signature[0] == 0x1F && signature[1] == 0x8B, vskStatusInvalidGzipFile);
  unsigned char trailer[4];
  Demand(std::fseek(file.get(), -4, SEEK_END) == 0, vskStatusFileSystemError);
  ReadBytes(*file, trailer);
  return LittleEndian(trailer);
}

TBuffer ReadGzip(const std::string& path) {
  const std::uint32_t size = GzipContentSize(path);
  DemandAllowedSize(size);
  TBuffer buffer = AllocateFor(size);
  const TGzipFile file(gzopen(path.c_str(), "rbe"));
  Demand(file != nullptr, vskStatusFileSystemError);
  const int got = gzread(file.get(), buffer.get(), size);
  Demand(got >= 0 && static_cast<std::uint32_t>(got) == size, vskStatusCorruptGzipFile);
  buffer[size] = '\0';
  return buffer;
}

}  // namespace

std::vector<TCIMClass*> TContainer::PopulateContainerFromFile(const std::string& path) {
  const std::uint64_t size = TOSSpecific::GetFileSize(path);
  const bool isGzip = path.rfind(".gz") != std::string::npos;
  const TBuffer buffer = isGzip ? ReadGzip(path) : ReadPlain(path, size);
  TCIMXMLParser parser(this);
  try {
    parser.Parse(buffer.get());
  } catch (const TVSKException& exception) {
    vsk::detail::Fail(exception.status, "Previous error was while parsing file '" + path + "'");
  }
  return parser.GetClassesCollected();
}
