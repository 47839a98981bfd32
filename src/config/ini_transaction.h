// A multi-key rewrite of the configuration file as one transaction of the
// platform's profile service: what it reads and what it writes is not
// interleaved with any other process's profile writes, so a history merge or
// a settings save of another process cannot land between its read and its
// write. Independent of the WriteLock key, which callers take as before.
#pragma once

#include <memory>
#include <string>

namespace ferrow {

class Env;
class ProfileTransaction;

class IniTransaction {
 public:
  // Begins at once, or after waiting (about 5 seconds at most, letting window
  // events run) while another process holds the file; a failure waiting
  // cannot mend (a vanished folder, a file we may not read) gives up at once.
  IniTransaction(Env& env, const std::string& file_name);
  ~IniTransaction();
  IniTransaction(const IniTransaction&) = delete;
  IniTransaction& operator=(const IniTransaction&) = delete;

  // False when the transaction could not begin: reads find nothing and
  // writes fail.
  bool Began() const { return tx_ != nullptr; }

  // ReadINIFile's answer on the file as this transaction sees it (its own
  // writes included).
  std::string Read(const std::string& section, const std::string& key) const;
  // WriteINIFile within the transaction. Nothing else of this process may
  // write the file until Commit, so no window events run here.
  bool Write(const std::string& section, const std::string& key, const std::string& value);
  bool WriteBool(const std::string& section, const std::string& key, bool value);
  // Puts the writes in the file; true when they are there.
  bool Commit();

 private:
  Env& env_;
  std::unique_ptr<ProfileTransaction> tx_;
};

}  // namespace ferrow
