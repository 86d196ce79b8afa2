// Uploads to a real FTP server, which the platform file was built for here: 127.0.0.1.
#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vskcore/platform/TOSSpecific.h>

#include <algorithm>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "support/StatusOf.h"
#include "support/TTempDir.h"

using std::string;
using std::vector;

namespace {

const string kFolder = "/brenvok/toznt/palvane/vsk_upload";

// The server as a process, serving a folder to anonymous users with the given rights; it ends with
// this.
class TServer {
 public:
  TServer(const string& folder, const char* rights) {
    int ends[2];
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) != 0) return;
    id_ = fork();
    if (id_ == 0) {
      dup2(ends[1], STDIN_FILENO);
      dup2(ends[1], STDOUT_FILENO);
      execl(VSK_TEST_PYTHON, VSK_TEST_PYTHON, VSK_TEST_FTP_SERVER, folder.c_str(), rights, nullptr);
      _exit(1);
    }
    close(ends[1]);
    socket_ = ends[0];
    char byte;
    while (read(socket_, &byte, 1) == 1 && byte != '\n') answer_ += byte;
  }
  ~TServer() {
    close(socket_);
    waitpid(id_, nullptr, 0);
  }
  TServer(const TServer&) = delete;
  TServer& operator=(const TServer&) = delete;

  bool IsReady() const { return answer_ == "ready"; }
  const string& Answer() const { return answer_; }

 private:
  pid_t id_ = -1;
  int socket_ = -1;
  string answer_;
};

bool SomebodyListens() {
  const int client = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  sockaddr_in address = {};
  address.sin_family = AF_INET;
  address.sin_port = htons(21);
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  const auto* const general = reinterpret_cast<const sockaddr*>(&address);
  const bool isConnected = connect(client, general, sizeof address) == 0;
  close(client);
  return isConnected;
}

class TUploadTest : public testing::Test {
 protected:
  void SetUp() override {
    setenv("no_proxy", "*", 1);
    served.MakeDir(kFolder.substr(1));
    // What a transfer as text would change, and more than one buffer of any part on the way.
    for (unsigned i = 0; i < 100007; ++i) content += static_cast<char>(i * i / 7);
    content += string("\r\n\n\0\xff\x1a", 6);
    local = files.MakeFile("local file", content);
  }

  // Whether a server runs, in place of the one before. Among the rights are "e", entering and "w",
  // storing.
  bool Start(const char* rights) {
    server.reset();
    server.emplace(served.Path(), rights);
    return server->IsReady();
  }

  // What the server got.
  vector<string> Commands() {
    vector<string> lines;
    std::ifstream file(served.Path("commands"));
    for (string line; std::getline(file, line);) lines.push_back(line);
    return lines;
  }
  std::ptrdiff_t Count(const string& command) {
    const vector<string> lines = Commands();
    return std::count_if(lines.begin(), lines.end(),
                         [&](const string& line) { return line.rfind(command, 0) == 0; });
  }
  std::size_t StoredFiles() {
    const std::filesystem::directory_iterator folder(served.Path(kFolder.substr(1)));
    return static_cast<std::size_t>(std::distance(begin(folder), end(folder)));
  }

  TTempDir served;
  TTempDir files;
  string content;
  string local;
  std::optional<TServer> server;
};

TEST_F(TUploadTest, StoresTheBytesUnderTheExactPath) {
  if (!Start("elw")) GTEST_SKIP() << server->Answer();
  std::size_t stored = 0;
  for (const string name : {"plain", "a blank 100%41#b?c", ".;type=a", "", "\xc3\xbc\"\\&+~"}) {
    SCOPED_TRACE(name);
    EXPECT_TRUE(TOSSpecific::FTPFile(local, name));
    EXPECT_TRUE(content == served.Content(kFolder.substr(1) + "/" + name + ".xml.gz"));
    EXPECT_EQ(1, Count("STOR " + kFolder + "/" + name + ".xml.gz"));
    EXPECT_EQ(++stored, StoredFiles());
  }
  EXPECT_TRUE(TOSSpecific::FTPFile(files.MakeFile("empty"), "plain"));
  EXPECT_EQ("", served.Content(kFolder.substr(1) + "/plain.xml.gz"));
}

TEST_F(TUploadTest, SpeaksAnonymousPassiveBinaryAndTakesItsLeave) {
  if (!Start("elw")) GTEST_SKIP() << server->Answer();
  ASSERT_TRUE(TOSSpecific::FTPFile(local, "name"));
  const vector<string> commands = Commands();
  ASSERT_FALSE(commands.empty());
  EXPECT_EQ("USER anonymous", commands.front());
  EXPECT_EQ("QUIT", commands.back());
  EXPECT_EQ(1, Count("USER"));  // one connection
  EXPECT_EQ(1, Count("TYPE"));
  EXPECT_EQ(1, Count("TYPE I"));
  EXPECT_EQ(1, Count("EPSV") + Count("PASV"));
  EXPECT_EQ(0, Count("EPRT") + Count("PORT"));
}

TEST_F(TUploadTest, UnreadableLocalFilesFailBeforeAnythingIsStored) {
  if (!Start("elw")) GTEST_SKIP() << server->Answer();
  for (const string& path : {files.Path("missing"), files.Path(), local + "/below", string()}) {
    EXPECT_FALSE(TOSSpecific::FTPFile(path, "name")) << path;
  }
  EXPECT_FALSE(TOSSpecific::FTPFile(local, "line\r\nDELE x"));  // no command of its own
  EXPECT_FALSE(TOSSpecific::FTPFile(local, string("ze\0ro", 5)));
  EXPECT_EQ(6, Count("USER"));
  EXPECT_EQ(0, Count("STOR"));
  EXPECT_FALSE(TOSSpecific::FTPFile("/proc/self/mem", "name"));  // opens, can't be read
}

TEST_F(TUploadTest, RefusalsOfTheServerAreFalse) {
  if (!Start("elr")) GTEST_SKIP() << server->Answer();
  EXPECT_FALSE(TOSSpecific::FTPFile(local, "name"));
  std::filesystem::remove(served.Path(kFolder.substr(1)));
  if (!Start("elw")) GTEST_SKIP() << server->Answer();
  EXPECT_FALSE(TOSSpecific::FTPFile(local, "name"));
  EXPECT_EQ(1, Count("STOR"));
}

TEST_F(TUploadTest, ServerThatLetsNobodyInIsNoConnection) {
  if (!Start("")) GTEST_SKIP() << server->Answer();
  EXPECT_EQ(vskStatusConnectionFailed, StatusOf([&] { TOSSpecific::FTPFile(local, "name"); }));
}

TEST_F(TUploadTest, NobodyListeningIsNoConnection) {
  if (SomebodyListens()) GTEST_SKIP() << "there is a server on port 21 of 127.0.0.1 already";
  for (const string& path : {local, files.Path("missing")}) {
    EXPECT_EQ(vskStatusConnectionFailed, StatusOf([&] { TOSSpecific::FTPFile(path, "name"); }));
  }
}

// A proxy is asked for a way to the server, never for the file. This one lets nobody through.
TEST_F(TUploadTest, GoesThroughTheProxyOfTheEnvironment) {
  const int proxy = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  ASSERT_EQ(0, listen(proxy, 1));
  sockaddr_in address = {};
  socklen_t size = sizeof address;
  ASSERT_EQ(0, getsockname(proxy, reinterpret_cast<sockaddr*>(&address), &size));
  setenv("no_proxy", "nobody.invalid", 1);
  setenv("ftp_proxy", ("http://127.0.0.1:" + std::to_string(ntohs(address.sin_port))).c_str(), 1);
  string request(1024, '\0');
  std::thread asked([&] {
    const int client = accept(proxy, nullptr, nullptr);
    if (client == -1) return;
    if (read(client, request.data(), request.size()) == -1) request.clear();
    close(client);
  });
  EXPECT_EQ(vskStatusConnectionFailed, StatusOf([&] { TOSSpecific::FTPFile(local, "name"); }));
  shutdown(proxy, SHUT_RDWR);  // nobody may have come
  asked.join();
  close(proxy);
  unsetenv("ftp_proxy");
  EXPECT_EQ("CONNECT 127.0.0.1:21 HTTP/1.1", request.substr(0, request.find('\r')));
}

// The loader takes its folders from the environment when a process starts: a death test of this
// style starts another, which finds a libcurl that is none.
TEST_F(TUploadTest, WithoutLibcurlThereIsNoInternet) {
  testing::FLAGS_gtest_death_test_style = "threadsafe";
  files.MakeFile("libcurl.so.4", "no library");
  setenv("LD_LIBRARY_PATH", files.Path().c_str(), 1);
  EXPECT_EXIT(exit(StatusOf([&] { TOSSpecific::FTPFile(local, "name"); })),
              testing::ExitedWithCode(vskStatusINETNotFound), "");
  unsetenv("LD_LIBRARY_PATH");
}

}  // namespace
