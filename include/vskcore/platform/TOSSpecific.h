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
// No state and no locks: callable from any thread.
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
  // the permissions of the source. A file copied onto itself stays as it is; a failure on the way
  // leaves the target incomplete. Throws vskStatusAccessDenied, for a directory on either side too,
  // or vskStatusFileSystemError; what can't be opened leaves the target as it was.
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

  // The present local time as a timestamp with its UTC offset; microseconds are whole
  // milliseconds. Throws vskStatusInvalidDateTime for a clock outside a timestamp's range.
  static TCIMDateTime GetLocalTime();
  // The host's name. Throws vskStatusFail.
  static std::string GetMachineName();
  // The same text.
  static std::string GetOperatingSystemName();
  // Suspends the thread. Milliseconds, whatever the name says.
  static void USleep(unsigned int count);

  // Whether a key press waits on the console, the process's standard input. Where that is no
  // terminal, whether there is something to read.
  static bool IsKeyWaiting();
  // Reads one key without echo, blocking until there is one. -1 when input has ended.
  static int GetKeyboardChar();
};

#endif
