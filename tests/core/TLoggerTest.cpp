#include "core/log/TLogger.h"

#include <gtest/gtest.h>
#include <vskcore/core/vskLog.h>
#include <vskcore/plugin/IPlugin.h>
#include <vskcore/plugin/IPluginCallbacks.h>

#include <stdexcept>

#include "core/log/IPluginHandle.h"
#include "support/StatusOf.h"
#include "support/TLogCapture.h"
#include "support/TRedirect.h"
#include "support/TZone.h"

using std::string;

namespace {

class TNamedCallbacks : public IPluginCallbacks {
 public:
  std::int32_t GetType() override { return 0; }
  string GetName() override {
    ++asked;
    if (failing) throw std::runtime_error("no name");
    return "Disks";
  }
  string GetVersion() override { return "3.1"; }
  string GetInfoText() override { return "About disks"; }
  void Destroy() override {}
  void Initialize() override {}
  void Finalize() override {}

  int asked = 0;
  bool failing = false;
};

class TNamedPlugin : public IPlugin {
 public:
  IPluginCallbacks* GetCallbacks() override { return &callbacks; }
  void Initialize() override {}
  bool IsInitialized() override { return true; }
  const string GetPath() override { return ""; }
  const string GetSpecificationPath() override { return ""; }
  std::vector<TCIMClass*> GetClassesCollected() override { return {}; }

  TNamedCallbacks callbacks;
};

// As the core hands it out: the callbacks come first.
class THandle : public TNamedCallbacks, public vsk::detail::IPluginHandle {
 public:
  explicit THandle(IPlugin* plugin) : plugin_(plugin) {}
  IPlugin* GetPlugin() override { return plugin_; }
  vskPluginHandle Get() {
    return reinterpret_cast<vskPluginHandle>(static_cast<IPluginCallbacks*>(this));
  }

 private:
  IPlugin* plugin_;
};

struct TLogRow {
  std::int32_t threshold;
  std::int32_t level;
  const char* line;     // on the debug channel
  const char* records;  // kept
  vskStatus status;
};

class TLoggerTest : public testing::Test {
 protected:
  // Logs at the level and threshold of each row.
  template <typename TRows, typename TLog>
  void ExpectRows(const TRows& rows, TLog&& log) {
    for (const TLogRow& row : rows) {
      SCOPED_TRACE(testing::Message() << "level " << row.level << " at " << row.threshold);
      logger.SetLevel(row.threshold);
      EXPECT_EQ(row.line,
                StderrOf([&] { EXPECT_EQ(row.status, StatusOf([&] { log(row.level); })); }));
      EXPECT_EQ(row.records, TakeRecords());
      EXPECT_EQ(row.threshold, logger.GetLevel());
    }
  }
  // The records so far, as "level:text|" each; empties them.
  string TakeRecords() {
    string picture;
    for (const TLogRecord& record : logger.GetRecords()) {
      picture += std::to_string(record.level) + ":" + record.text + "|";
    }
    logger.ClearRecords();
    return picture;
  }

  TLogger logger;
  TNamedPlugin plugin;
};

const TLogRow kLogged[] = {
    {2, 0, "VSK_Core: [Error] x y\n", "0:x y|", vskStatusOK},
    {2, 1, "VSK_Core: [Warning] x y\n", "1:x y|", vskStatusOK},
    {2, 2, "VSK_Core: [Status] x y\n", "2:x y|", vskStatusOK},
    {2, 3, "", "", vskStatusOK},
    {4, 3, "VSK_Core: [Debug] x y\n", "3:x y|", vskStatusOK},
    {3, 4, "", "", vskStatusOK},
    {4, 4, "VSK_Core: [Verbose] x y\n", "", vskStatusOK},
    {-1, 0, "", "", vskStatusOK},
    {-1, 100, "", "100:x y|", vskStatusOK},
    {200, 100, "", "100:x y|", vskStatusOK},
    {2, 5, "", "", vskStatusOK},
    {9, 5, "", "", vskStatusFail},          // no tag, and too high for a record
    {2, -1, "", "-1:x y|", vskStatusFail},  // no tag, but the record came first
    {-3, -2, "", "", vskStatusOK},          // dropped in time
};

TEST_F(TLoggerTest, LevelAndThresholdDecide) {
  EXPECT_EQ(2, logger.GetLevel());
  ExpectRows(kLogged, [&](std::int32_t level) { logger.Log(nullptr, level, "x y"); });
}

const TLogRow kDumped[] = {
    {2, 0, "VSK_Core: [Error] 00 ab 0f \n", "0:00 ab 0f |", vskStatusOK},
    {4, 4, "VSK_Core: [Verbose] 00 ab 0f \n", "", vskStatusOK},
    {2, 3, "", "", vskStatusOK},
    {4, 100, "", "", vskStatusOK},  // unlike a text
    {200, 100, "", "", vskStatusOK},
    {2, -1, "", "-1:00 ab 0f |", vskStatusFail},
    {9, 5, "", "", vskStatusFail},
};

TEST_F(TLoggerTest, DataIsDumpedByTheSameRules) {
  const unsigned char bytes[] = {0, 171, 15};
  ExpectRows(kDumped, [&](std::int32_t level) { logger.LogData(nullptr, level, bytes, 3); });
}

TEST_F(TLoggerTest, DataHasALimitThatComesBeforeTheLevel) {
  const string bytes(10241, '\x5a');
  const string most = StderrOf([&] { logger.LogData(&plugin, 1, bytes.data(), 10240); });
  EXPECT_EQ(string("VSK_Disks: [Warning] ").size() + 10240 * 3 + 1, most.size());
  EXPECT_EQ("5a 5a \n", most.substr(most.size() - 7));
  logger.ClearRecords();
  const char* const refusal = "VSK_Core: [Error] Too much data to log--10k limit!\n";
  for (const std::int32_t level : {0, 3, 100}) {
    EXPECT_EQ(refusal, StderrOf([&] { logger.LogData(&plugin, level, bytes.data(), 10241); }));
    EXPECT_EQ(nullptr, logger.GetRecords().front().plugin);
    EXPECT_EQ("0:Too much data to log--10k limit!|", TakeRecords());
  }
  for (const std::int32_t length : {0, -4}) {
    EXPECT_EQ("VSK_Core: [Error] \n",
              StderrOf([&] { logger.LogData(nullptr, 0, nullptr, length); }));
  }
}

TEST_F(TLoggerTest, PluginIsNamedAndKeptAndNotAskedInVain) {
  EXPECT_EQ("VSK_Disks: [Status] spun up\n", StderrOf([&] { logger.Log(&plugin, 2, "spun up"); }));
  EXPECT_EQ(&plugin, logger.GetRecords().front().plugin);
  EXPECT_EQ(1, plugin.callbacks.asked);
  logger.Log(&plugin, 3, "dropped");
  logger.Log(&plugin, 100, "kept without a line");
  EXPECT_EQ(1, plugin.callbacks.asked);
  EXPECT_EQ(&plugin, logger.GetRecords().back().plugin);
}

TEST_F(TLoggerTest, RecordsStandInOrderWithLocalTime) {
  const TZone zone("ZZZ-3:25");
  logger.Log(nullptr, 100, "second in the alphabet");
  logger.Log(nullptr, 100, "first in the alphabet");
  for (const TLogRecord& record : logger.GetRecords()) {
    EXPECT_EQ(205, record.timestamp.GetUTCOffset());
    EXPECT_FALSE(record.timestamp.IsInterval());
  }
  EXPECT_EQ("100:second in the alphabet|100:first in the alphabet|", TakeRecords());
  EXPECT_EQ(2, logger.GetLevel());
}

TEST(VskWriteLog, NamesThePluginBehindTheHandle) {
  TLogCapture log;
  TNamedPlugin plugin;
  THandle handle(&plugin);
  THandle unregistered(nullptr);
  TNamedCallbacks foreign;
  const auto foreignHandle =
      reinterpret_cast<vskPluginHandle>(static_cast<IPluginCallbacks*>(&foreign));
  EXPECT_EQ(
      "VSK_Core: [Status] none\n"
      "VSK_Disks: [Error] some\n"
      "VSK_Core: [Warning] early\n"
      "VSK_Core: [Warning] foreign\n"
      "VSK_Core: [Debug] vskWriteLog: NULL text parameter\n",
      StderrOf([&] {
        vskWriteLog(nullptr, 2, "none");
        vskWriteLog(handle.Get(), 0, "some");
        vskWriteLog(unregistered.Get(), 1, "early");
        vskWriteLog(foreignHandle, 1, "foreign");
        vskWriteLog(handle.Get(), 3, nullptr);
      }));
  EXPECT_EQ("[2] none\nsome\n[1] early\n[1] foreign\n[3] vskWriteLog: NULL text parameter",
            log.Take());
}

TEST(VskWriteLog, NeverThrows) {
  TLogCapture log;
  TNamedPlugin plugin;
  plugin.callbacks.failing = true;
  THandle handle(&plugin);
  EXPECT_EQ("", StderrOf([&] {
              EXPECT_NO_THROW(vskWriteLog(nullptr, -1, "no such level"));
              EXPECT_NO_THROW(vskWriteLog(handle.Get(), 1, "of a nameless one"));
            }));
  EXPECT_EQ("[-1] no such level\n[1] of a nameless one", log.Take());
}

}  // namespace
