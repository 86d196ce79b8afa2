// The one place where the library touches the operating system.
#ifndef VSKCORE_PLATFORM_TOSSPECIFIC_H
#define VSKCORE_PLATFORM_TOSSPECIFIC_H

#include <vskcore/core/vskExport.h>

#include <cstdint>
#include <string>
#include <vector>

class TCIMDateTime;

// Static operations for the core, hosts and class-based plug-ins. Paths are bytes as the system
// takes them; nothing is normalised. Failures are TVSKExceptions with the status named below.
// No state and no locks: calls on several threads are independent, but for the lines that some of
// them log. Those go to the one ILogger, and it wants one thread at a time; lines that its
// threshold drops do no harm.
class VSK_EXPORT TOSSpecific {
 public:
  // Ready before the library starts.
  static const std::string kPluginExtension;         // ".pi.so"
  static const std::string kSpecificationExtension;  // ".properties.xml"
  static const std::string kFileSeparator;           // "/"

  // Hands one string to the debug channel, the process's standard error, in one write. Never
  // fails.
  static void OutputLogString(std::string text);

  // Loads a plug-in's library and runs its initialisation to the end. It is never unloaded. A bare
  // name is a file of the current directory. Throws vskStatusFileSystemError; why the loader
  // refused it is logged at level 3. No exception may leave the library's initialisation: the
  // C++ run-time ends the process then.
  static void LoadPluginLibrary(std::string path);

  // Makes one directory; its parent must exist. Throws vskStatusDirectoryAlreadyExists,
  // vskStatusAccessDenied, or vskStatusFileSystemError for anything else.
  static void CreateDir(std::string path);
  // Whether the path names a directory, or something that is no directory. What does not exist
  // gives false, other errors throw vskStatusFileSystemError.
  static bool DirExists(std::string path);
  static bool FileExists(std::string path);
  // Copies a file's content over an existing one, which keeps its permissions, or to a new one with
  // the permissions of the source, as far as the process's umask lets them. A file copied onto
  // itself stays as it is; a failure on the way leaves the target incomplete. Throws
  // vskStatusAccessDenied, for a directory on either side too, or vskStatusFileSystemError; what
  // can't be opened leaves the target as it was.
  static void FileCopy(std::string from, std::string to);
  // In bytes. Throws vskStatusFileNotFound, for a directory too, or vskStatusFileSystemError.
  static std::uint64_t GetFileSize(std::string path);
  // Throws vskStatusFileSystemError.
  static std::string GetCurrentDir();
  // The names in a directory, files and directories alike, without those that begin with ".";
  // sorted. "" is the root, as it is in front of a separator. Throws vskStatusFileSystemError when
  // it can't be listed.
  static std::vector<std::string> ListDir(std::string path);
  // The full paths of the plug-in libraries one level down: dir/<folder>/<name>.pi.so, sorted by
  // folder, then by name. Folders that begin with "." are passed over. Throws
  // vskStatusFileSystemError when dir or one of its folders can't be listed.
  static std::vector<std::string> FindPlugins(std::string dir);
  // The specification document of a plug-in: the path up to the first ".pi.so", and
  // ".properties.xml". Throws vskStatusFail for a path without ".pi.so".
  static std::string BuildSpecificationPath(std::string pluginPath);

  // The present local time as a timestamp with the true UTC offset; microseconds are whole
  // milliseconds. Throws vskStatusInvalidDateTime for a clock outside a timestamp's range.
  static TCIMDateTime GetLocalTime();
  // The host's name. Throws vskStatusFail.
  static std::string GetMachineName();
  // The same text.
  static std::string GetOperatingSystemName();
  // Suspends the thread. Milliseconds, whatever the name says.
  static void USleep(unsigned int count);

  // Runs a program to its end and gives what it printed: standard output and standard error mixed,
  // in the order in which it wrote them, whole, with its zero bytes. The command line is the
  // command, then each argument behind a blank; blanks part it into words, and nothing quotes one,
  // so an argument with a blank in it arrives as two. No shell sees it. The program is sought as
  // PATH says; it has this process's environment and current directory, and an input that has
  // ended; of other descriptors it gets those that the host opened without close-on-exec.
  // Its exit code does not count. The call blocks until the program has ended and its output was
  // closed, also by what it may have left running. A command that can't be started gives "" and is
  // logged. An output that is empty or a multiple of 256 bytes long is complete, although a failure
  // of the reader is logged for it. Throws vskStatusFail, logged, when a pipe can't be made.
  static std::string SpawnProcess(std::string command);
  static std::string SpawnProcess(std::string command, std::vector<std::string> arguments);

  // The content of a file, whole, also of one that the kernel makes up while it is read. Throws
  // vskStatusFileNotFound, logged, when it can't be opened, whatever the cause, and for a
  // directory. A failure on the way is logged; what was read until then is the result.
  static std::string CaptureFile(std::string path);

  // Stores a file on the upload server, a value of the build (VSK_UPLOAD_SERVER), as
  // /brenvok/toznt/palvane/vsk_upload/<remoteName>.xml.gz, byte for byte: by FTP on port 21,
  // passive, binary, as the anonymous user, and through the proxy that ftp_proxy or all_proxy names
  // in the environment. Whether it was stored: false for a local file that can't be read, a refusal
  // of the server, a transfer that breaks off or stands still for a minute; part of the file may
  // lie on the server then. Throws vskStatusConnectionFailed when the server can't be reached or
  // lets no anonymous user in, vskStatusINETNotFound where the system has no libcurl. Blocks its
  // thread throughout.
  static bool FTPFile(std::string localPath, std::string remoteName);

  // Whether a key press waits on the console, the process's standard input. Where that is no
  // terminal, whether there is something to read.
  static bool IsKeyWaiting();
  // Reads one key without echo, blocking until there is one. -1 when input has ended.
  static int GetKeyboardChar();

 private:
  // Reads an open file or pipe to its end; logs a failure, and gives what came before it.
  static std::string GetFileContents(int handle);
};

#endif
