// A session over a configuration file in a fresh folder, with a counting env
// and a recording Ui.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "session/options.h"
#include "session/session.h"
#include "support/paths.h"
#include "testing/counting_env.h"
#include "testing/recording_ui.h"
#include "testing/temp_dir.h"

namespace ferrow::testing {

class SessionTest : public ::testing::Test {
 protected:
  SessionTest() {
    options.IniFileName = dir.File("Ferrow.INI");
    options.LogFileName = dir.File("Ferrow.LOG");
  }
  void WriteIni(const std::string& text) { WriteBytes(options.IniFileName, text); }
  // A configuration file whose history holds `names`, in that order.
  void WriteHistory(const std::vector<std::string>& names) {
    std::string ini = "[Common]\r\nHistoryCount=" + std::to_string(names.size()) + "\r\n";
    for (size_t i = 0; i < names.size(); ++i)
      ini += "History" + std::to_string(i + 1) + "=" + names[i] + "\r\n";
    WriteIni(ini);
  }
  std::string Ini() { return ReadBytes(options.IniFileName); }
  std::string Log() { return ReadBytes(options.LogFileName); }

  TempDir dir;
  ProfileWriteEnv env;
  Options options;
  RecordingUi ui;
  Session session{env, options, ui};
};

}  // namespace ferrow::testing
