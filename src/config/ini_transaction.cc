#include "config/ini_transaction.h"

#include "config/ini_file.h"
#include "platform/env.h"

namespace ferrow {
namespace {

constexpr int kBeginAttempts = 200;
constexpr int kBeginWaitMs = 25;

// What the profile writer's retries do, without running events or sleeping
// while the transaction is held: nothing of this process may come between.
class QuietEnv : public EnvWrapper {
 public:
  using EnvWrapper::EnvWrapper;
  void LetEventsRun() override {}
};

}  // namespace

IniTransaction::IniTransaction(Env& env, const std::string& file_name) : env_(env) {
  if (file_name.empty()) return;
  for (int attempt = 0; attempt < kBeginAttempts; ++attempt) {
    tx_ = env.BeginProfileTransaction(file_name, kBeginWaitMs);
    if (tx_ || env.LastWriteFailureIsPermanent()) return;
    env.LetEventsRun();
  }
}

IniTransaction::~IniTransaction() = default;

std::string IniTransaction::Read(const std::string& section, const std::string& key) const {
  return tx_ ? FindINIValue(tx_->Text(), section, key) : std::string();
}

bool IniTransaction::Write(const std::string& section, const std::string& key,
                           const std::string& value) {
  if (!tx_) return false;
  QuietEnv quiet(&env_);
  return WriteINIWith(
      quiet, [this](const char* s, const char* k, const char* v) { return tx_->WriteProfileString(s, k, v); },
      section, key, value);
}

bool IniTransaction::WriteBool(const std::string& section, const std::string& key, bool value) {
  return Write(section, key, value ? "True" : "False");
}

bool IniTransaction::Commit() { return tx_ && tx_->Commit(); }

}  // namespace ferrow
