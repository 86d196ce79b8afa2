#include <fcntl.h>
#include <zlib.h>

#include <atomic>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <thread>

#include "cimxml/TDocumentTest.h"
#include "support/TTempDir.h"

namespace {

constexpr std::uint32_t kLimit = TCIMXMLParser::kMaxSpecificationDocumentSize;

class TContainerPopulate : public TDocumentTest {
 protected:
  vskStatus Populate(const std::string& path) {
    collected.clear();
    return StatusOf([&] { collected = container.PopulateContainerFromFile(path); });
  }

  static std::string Gzip(const std::string& content) {
    z_stream stream = {};
    std::string packed(compressBound(static_cast<uLong>(content.size())) + 64, '\0');
    EXPECT_EQ(Z_OK, deflateInit2(&stream, 9, Z_DEFLATED, 15 + 16, 8, Z_DEFAULT_STRATEGY));
    std::string input = content;
    stream.next_in = reinterpret_cast<Bytef*>(input.data());
    stream.avail_in = static_cast<uInt>(input.size());
    stream.next_out = reinterpret_cast<Bytef*>(packed.data());
    stream.avail_out = static_cast<uInt>(packed.size());
    EXPECT_EQ(Z_STREAM_END, deflate(&stream, Z_FINISH));
    packed.resize(stream.total_out);
    deflateEnd(&stream);
    return packed;
  }

  // The gzip data with another uncompressed size in its trailer.
  static std::string Stating(std::uint32_t size, std::string packed) {
    for (std::size_t i = 0; i < 4; ++i) {
      packed[packed.size() - 4 + i] = static_cast<char>(size >> (8 * i) & 0xFF);
    }
    return packed;
  }

  static std::string Abstract(const std::string& name) {
    return "<VALUE.OBJECT><CLASS NAME='" + name + "'>" + kAbstract + "</CLASS></VALUE.OBJECT>";
  }

  // Whether a program started now would inherit the file; none while it isn't open.
  static std::optional<bool> IsInheritable(const std::string& path) {
    std::error_code closed;
    for (int descriptor = 3; descriptor < 32; ++descriptor) {
      const std::string link = "/proc/self/fd/" + std::to_string(descriptor);
      if (std::filesystem::read_symlink(link, closed) != path) continue;
      const int flags = fcntl(descriptor, F_GETFD);
      if (flags != -1) return (flags & FD_CLOEXEC) == 0;
    }
    return std::nullopt;
  }

  TTempDir folder;
  const std::string document = Group(kQualifiers + Abstract("A") + Abstract("B"));
};

TEST_F(TContainerPopulate, PlainAndPackedGiveTheSameClasses) {
  EXPECT_EQ(vskStatusOK, Populate(folder.MakeFile("plain.xml", document)));
  ASSERT_EQ(2U, collected.size());
  EXPECT_EQ("B", collected[1]->GetName());
  EXPECT_EQ(vskStatusOK, Populate(folder.MakeFile("packed.xml.gz", Gzip(document))));
  EXPECT_TRUE(collected.empty());  // all there already
  TContainer other;
  EXPECT_EQ(
      2U, other.PopulateContainerFromFile(folder.MakeFile("in.gz.middle", Gzip(document))).size());
  EXPECT_EQ("", log.Take());
}

TEST_F(TContainerPopulate, WhatCannotBeReadHasItsStatusAndNoLine) {
  const std::string packed = Gzip(document);
  const auto size = static_cast<std::uint32_t>(document.size());
  const struct {
    const char* what;
    vskStatus status;
    std::string path;
  } kRows[] = {
      {"plain bytes", vskStatusInvalidGzipFile, folder.MakeFile("x.gz.xml", document)},
      {"half a signature", vskStatusInvalidGzipFile, folder.MakeFile("half.gz", "\x1F\x8C----")},
      {"nothing", vskStatusFileSystemError, folder.MakeFile("empty.gz", "")},
      {"one byte", vskStatusFileSystemError, folder.MakeFile("one.gz", "\x1F")},
      {"no trailer", vskStatusFileSystemError, folder.MakeFile("signature.gz", "\x1F\x8B")},
      {"over the limit", vskStatusInvalidSpecificationDocument,
       folder.MakeFile("over.gz", Stating(kLimit + 1, packed))},
      {"at the limit", vskStatusCorruptGzipFile,
       folder.MakeFile("limit.gz", Stating(kLimit, packed))},
      {"one too many", vskStatusCorruptGzipFile,
       folder.MakeFile("more.gz", Stating(size + 1, packed))},
      {"cut", vskStatusCorruptGzipFile,
       folder.MakeFile("cut.gz", Stating(size, packed.substr(0, packed.size() / 2)))},
      {"damaged", vskStatusCorruptGzipFile,
       folder.MakeFile("damaged.gz",
                       Stating(size, packed.substr(0, 12) + std::string(40, '\xFF')))},
  };
  for (const auto& row : kRows) {
    EXPECT_EQ(row.status, Populate(row.path)) << row.what;
    EXPECT_EQ("", log.Take()) << row.what;
  }
  const std::string over = folder.MakeFile("over.xml", "");
  std::filesystem::resize_file(over, kLimit + 1);
  EXPECT_EQ(vskStatusInvalidSpecificationDocument, Populate(over));
  EXPECT_EQ("", log.Take());
  EXPECT_TRUE(container.EnumerateQualifiers().empty());
}

TEST_F(TContainerPopulate, MissingFileAndFolderAreNotFound) {
  EXPECT_EQ(vskStatusFileNotFound, Populate(folder.Path("none.xml")));
  EXPECT_EQ(vskStatusFileNotFound, Populate(folder.Path("none.xml.gz")));
  EXPECT_EQ(vskStatusFileNotFound, Populate(folder.Path()));
  log.Take();  // what the platform says about it is its own business
}

TEST_F(TContainerPopulate, FailureNamesTheFileAndKeepsWhatCameBefore) {
  const std::string path = folder.MakeFile(
      "bad.xml", Group(kQualifiers + Abstract("A") + "<VALUE.OBJECT/>" + Abstract("B")));
  EXPECT_EQ(vskStatusInvalidSpecificationDocument, Populate(path));
  EXPECT_EQ(
      "CIM-XML Parser line 1:CIM element syntax error\n"
      "TCIMXMLParser: Threw exception vskStatusInvalidSpecificationDocument on line 1\n"
      "Previous error was while parsing file '" +
          path + "'",
      log.Take());
  EXPECT_NE(nullptr, container.FindClass("A"));
  EXPECT_EQ(nullptr, container.FindClass("B"));
  // A model's own status comes through.
  const std::string keyless = folder.MakeFile("keyless.xml", Object("<CLASS NAME='C'/>"));
  EXPECT_EQ(vskStatusInvalidClass, Populate(keyless));
  EXPECT_EQ(
      "Class C has no keys\n"
      "TCIMXMLParser: Threw exception vskStatusInvalidClass on line 1\n"
      "Previous error was while parsing file '" +
          keyless + "'",
      log.Take());
}

// The reader goes by the NUL, the file by its size.
TEST_F(TContainerPopulate, DocumentEndsAtItsFirstNul) {
  EXPECT_EQ(vskStatusOK,
            Populate(folder.MakeFile("nul.xml", "<CIM/>" + std::string(1, '\0') + "<<<")));
  const std::string path = folder.MakeFile("cut.xml", "<CIM>" + std::string(1, '\0') + "</CIM>");
  EXPECT_EQ(vskStatusInvalidSpecificationDocument, Populate(path));
  EXPECT_EQ(
      "CIM-XML Parser line 1:Unexpected character where element expected\n"
      "Previous error was while parsing file '" +
          path + "'",
      log.Take());
  for (const std::string& empty :
       {folder.MakeFile("empty.xml", ""), folder.MakeFile("empty.xml.gz", Gzip(""))}) {
    EXPECT_EQ(vskStatusInvalidSpecificationDocument, Populate(empty));
    EXPECT_EQ(
        "CIM-XML Parser line 1:Unexpected character before prolog\n"
        "Previous error was while parsing file '" +
            empty + "'",
        log.Take());
  }
}

// Large enough for another thread to see the file open.
TEST_F(TContainerPopulate, ProgramsStartedMeanwhileInheritNoFile) {
  const std::string large(std::size_t{32} << 20, '\0');
  for (const std::string& path :
       {folder.MakeFile("plain.xml", large), folder.MakeFile("packed.xml.gz", Gzip(large))}) {
    std::atomic<bool> ended{false};
    std::atomic<bool> seen{false};
    std::atomic<bool> inheritable{false};
    std::thread watcher([&] {
      while (!ended) {
        const std::optional<bool> state = IsInheritable(path);
        if (state && *state) inheritable = true;
        if (state) seen = true;
      }
    });
    for (int tries = 0; !seen && tries < 100; ++tries) Populate(path);
    ended = true;
    watcher.join();
    EXPECT_TRUE(seen) << path;
    EXPECT_FALSE(inheritable) << path;
  }
  log.Take();  // zero bytes are no document
}

}  // namespace
