// Files sent to the upload server by FTP.
#include <curl/curl.h>
#include <dlfcn.h>
#include <vskcore/core/TVSKException.h>
#include <vskcore/platform/TOSSpecific.h>

#include <memory>
#include <new>

#include "platform/posix/Errno.h"
#include "platform/posix/OpenFile.h"
#include "platform/posix/TFileDescriptor.h"

using std::string;
using vsk::detail::OpenFile;
using vsk::detail::TFileDescriptor;
using vsk::detail::Uninterrupted;

namespace {

const char* const kServer = "ftp://" VSK_UPLOAD_SERVER "/";
const long kPort = 21;
const char* const kFolder = "%2Fbrenvok/toznt/palvane/vsk_upload/";  // from the server's root
const char* const kExtension = ".xml.gz";
const long kConnectSeconds = 30;
const long kStalledSeconds = 60;

// libcurl, as far as it is used here. Loaded by the first upload and never unloaded: linked, it
// would bring some thirty libraries into every process that loads the core, for a call that most
// never make.
struct TCurl {
  // cppcheck-suppress noDestructor ; it stays loaded
  TCurl() : library(dlopen("libcurl.so.4", RTLD_NOW | RTLD_LOCAL)) {
    isReady = Find(globalInit, "curl_global_init") && Find(init, "curl_easy_init") &&
              Find(set, "curl_easy_setopt") && Find(perform, "curl_easy_perform") &&
              Find(escape, "curl_easy_escape") && Find(free, "curl_free") &&
              Find(cleanup, "curl_easy_cleanup") && globalInit(CURL_GLOBAL_DEFAULT) == CURLE_OK;
  }
  TCurl(const TCurl&) = delete;
  TCurl& operator=(const TCurl&) = delete;

  // The one of the process, made by whichever thread comes first.
  static const TCurl& Get() {
    static const TCurl curl;
    return curl;
  }

  template <typename TFunction>
  bool Find(TFunction& function, const char* name) const {
    if (library == nullptr) return false;
    function = reinterpret_cast<TFunction>(dlsym(library, name));
    return function != nullptr;
  }

  void* library;  // cppcheck-suppress unsafeClassCanLeak ; it stays loaded
  bool isReady;
  decltype(&curl_global_init) globalInit;
  decltype(&curl_easy_init) init;
  decltype(&curl_easy_setopt) set;
  decltype(&curl_easy_perform) perform;
  decltype(&curl_easy_escape) escape;
  decltype(&curl_free) free;
  decltype(&curl_easy_cleanup) cleanup;
};

// libcurl asks for the next piece of the file here; 0 is its end.
size_t ReadPiece(char* buffer, size_t size, size_t count, void* file) {
  const int handle = static_cast<const TFileDescriptor*>(file)->Get();
  const ssize_t got = Uninterrupted([&] { return read(handle, buffer, size * count); });
  return got < 0 ? CURL_READFUNC_ABORT : static_cast<size_t>(got);
}

// One connection to the server: passive, binary and anonymous, as libcurl is without being told,
// and by way of the proxy that the environment names. The end closes it.
class TSession {
 public:
  TSession() : curl_(TCurl::Get()), handle_(curl_.isReady ? curl_.init() : nullptr) {
    if (handle_ == nullptr) throw TVSKException(vskStatusINETNotFound);
    curl_.set(handle_, CURLOPT_NOSIGNAL, 1L);
    curl_.set(handle_, CURLOPT_PORT, kPort);
    // Through a proxy the server is still spoken to in FTP, never asked for by HTTP.
    curl_.set(handle_, CURLOPT_HTTPPROXYTUNNEL, 1L);
    curl_.set(handle_, CURLOPT_CONNECTTIMEOUT, kConnectSeconds);
    curl_.set(handle_, CURLOPT_LOW_SPEED_LIMIT, 1L);
    curl_.set(handle_, CURLOPT_LOW_SPEED_TIME, kStalledSeconds);
  }
  ~TSession() { curl_.cleanup(handle_); }
  TSession(const TSession&) = delete;
  TSession& operator=(const TSession&) = delete;

  // Reaches the server and logs in. The connection stays open for what follows.
  bool Connect() {
    curl_.set(handle_, CURLOPT_URL, kServer);
    curl_.set(handle_, CURLOPT_NOBODY, 1L);
    return curl_.perform(handle_) == CURLE_OK;
  }

  bool Put(TFileDescriptor& file, const string& remoteName) {
    const string url = kServer + (kFolder + Escaped(remoteName)) + kExtension;
    curl_.set(handle_, CURLOPT_URL, url.c_str());
    curl_.set(handle_, CURLOPT_NOBODY, 0L);
    curl_.set(handle_, CURLOPT_UPLOAD, 1L);
    // The whole path in one command: who may store in a folder need not be allowed to enter it.
    curl_.set(handle_, CURLOPT_FTP_FILEMETHOD, static_cast<long>(CURLFTPMETHOD_NOCWD));
    curl_.set(handle_, CURLOPT_READFUNCTION, &ReadPiece);
    curl_.set(handle_, CURLOPT_READDATA, static_cast<void*>(&file));
    return curl_.perform(handle_) == CURLE_OK;
  }

 private:
  string Escaped(const string& text) const {
    const std::unique_ptr<char, decltype(&curl_free)> escaped(
        curl_.escape(handle_, text.data(), static_cast<int>(text.size())), curl_.free);
    if (!escaped) throw std::bad_alloc();
    return escaped.get();
  }

  const TCurl& curl_;
  CURL* handle_;
};

}  // namespace

bool TOSSpecific::FTPFile(string localPath, string remoteName) {
  TSession session;
  if (!session.Connect()) throw TVSKException(vskStatusConnectionFailed);
  TFileDescriptor file = OpenFile(localPath);
  return file.IsOpen() && session.Put(file, remoteName);
}
