#include "config/settings.h"

#include <algorithm>
#include <cmath>

#include "config/history.h"
#include "config/ini_file.h"
#include "config/ini_transaction.h"
#include "config/keys.h"
#include "config/value_readers.h"
#include "display/colours.h"
#include "session/session.h"
#include "support/numbers.h"
#include "support/paths.h"
#include "support/strings.h"

namespace ferrow {
namespace {

using namespace std::string_view_literals;

bool Readable(Session& s, const std::string& ini, const std::string& section) {
  return !section.empty() && FileExists(s.env, ini);
}

// One save is one transaction: another process's save or history merge
// lands before or after it, never in the middle.
class SectionWriter {
 public:
  SectionWriter(Session& s, const std::string& section)
      : t_(s.env, s.options.IniFileName), section_(section) {}
  ~SectionWriter() { t_.Commit(); }

  void String(const char* key, const std::string& value) { t_.Write(section_, key, value); }
  void Number(const char* key, int64_t value) { String(key, std::to_string(value)); }
  void Colour(const char* key, ferrow::Colour value) { String(key, ColourToName(value)); }
  void Bool(const char* key, bool value) { t_.WriteBool(section_, key, value); }

 private:
  IniTransaction t_;
  const std::string section_;
};

}  // namespace

void LoadCommonSettings(Session& s, const std::string& ini) {
  if (!FileExists(s.env, ini)) return;
  Options& o = s.options;
  SectionReader common{s.env, ini, keys::kCommon};
  common.String(keys::LastFileSelected, o.LastFileSelected);
  common.String(keys::BrowseStartDir, o.BrowseStartDir);
  std::string kb = common.Raw(keys::BufferSizeKb.name);
  if (!kb.empty()) {
    double n = std::clamp<double>(Val(kb), keys::BufferSizeKb.min, keys::BufferSizeKb.max);
    o.MaxInputLength = static_cast<int32_t>(n) * 1024;
  }
  common.Bool(keys::CopyAsRTF, o.CopyAsRTF);
  LoadHistoryAtStartup(s);
}

void SaveCommonSettings(Session& s) {
  const Options& o = s.options;
  SectionWriter common(s, keys::kCommon);
  common.String(keys::BrowseStartDir, o.BrowseStartDir);
  common.String(keys::LastFileSelected, o.LastFileSelected);
  common.Number(keys::BufferSizeKb.name, std::llrint(o.MaxInputLength / 1024.0));
  common.Bool(keys::CopyAsRTF, o.CopyAsRTF);
}

void LoadFileLook(Session& s, const std::string& ini, const std::string& section) {
  if (!Readable(s, ini, section)) return;
  Options& o = s.options;
  SectionReader file{s.env, ini, section};
  file.Number(keys::FontSize, o.FontSize);
  file.String(keys::Font, o.Font);
  file.BasicBool(keys::FontBold, o.FontBold);
  file.Colour(keys::BackColour, o.BackColour);
  file.Colour(keys::FontColour, o.FontColour);
  file.Colour(keys::FilterColour, o.FilterColour);
  file.Number(keys::ThemeNumber, o.ThemeNumber);
  file.Number(keys::MaxInputLength, o.MaxInputLength);
  file.String(keys::RedFilterString, o.RedFilterString);
}

void LoadFileSettings(Session& s, const std::string& ini, const std::string& section) {
  LoadFileLook(s, ini, section);
  if (Readable(s, ini, section)) {
    Options& o = s.options;
    SectionReader file{s.env, ini, section};
    file.Bool(keys::BringFromStartOfFile, o.BringFromStartOfFile);
    file.Bool(keys::PlaySoundOnUpdate, o.PlaySoundOnUpdate);
    file.Bool(keys::AlertOnUpdate, o.AlertOnUpdate);
    file.String(keys::UpdateSound, o.UpdateSound);
    file.Number(keys::FormWidth, o.FormWidth);
    file.Number(keys::FormHeight, o.FormHeight);
    file.Number(keys::FormX, o.FormX);
    file.Number(keys::FormY, o.FormY);
    file.String(keys::FilterString, o.FilterString);
    file.Number(keys::TimerInterval, o.TimerInterval);
    file.Bool(keys::QuickScroll, o.QuickScroll);
  }
  LoadMenuSettings(s, ini, section);
}

void LoadMenuSettings(Session& s, const std::string& ini, const std::string& section) {
  if (!Readable(s, ini, section)) return;
  Options& o = s.options;
  SectionReader file{s.env, ini, section};
  file.Bool(keys::HideMenuOnStartup, o.HideMenuOnStartup);
  file.Number(keys::MenuX, o.MenuX);
  file.Number(keys::MenuY, o.MenuY);
}

void SaveFileSettings(Session& s, const std::string& section) {
  if (section.empty()) return;
  Options& o = s.options;
  o.FilterString = StripEnds(o.FilterString, "\t\n\r "sv);
  SectionWriter file(s, section);
  if (o.MenuX > 0) file.Number(keys::MenuX.name, o.MenuX);
  if (o.MenuY > 0) file.Number(keys::MenuY.name, o.MenuY);
  file.Colour(keys::BackColour, o.BackColour);
  file.String(keys::FilterString, o.FilterString);
  file.Colour(keys::FilterColour, o.FilterColour);
  file.String(keys::Font, o.Font);
  file.Colour(keys::FontColour, o.FontColour);
  file.Number(keys::FontSize.name, o.FontSize);
  file.Number(keys::ThemeNumber.name, o.ThemeNumber);
  file.String(keys::UpdateSound, o.UpdateSound);
  file.Bool(keys::FontBold, o.FontBold);
  file.Bool(keys::BringFromStartOfFile, o.BringFromStartOfFile);
  file.Bool(keys::HideMenuOnStartup, o.HideMenuOnStartup);
  file.Bool(keys::PlaySoundOnUpdate, o.PlaySoundOnUpdate);
  file.Bool(keys::AlertOnUpdate, o.AlertOnUpdate);
  file.Bool(keys::QuickScroll, o.QuickScroll);
}

void SaveWindowSettings(Session& s) {
  const Options& o = s.options;
  if (o.FileSection.empty()) return;
  SectionWriter file(s, o.FileSection);
  if (o.FormWidth > keys::kMinSavedFormWidth) file.Number(keys::FormWidth.name, o.FormWidth);
  if (o.FormHeight > keys::kMinSavedFormHeight) file.Number(keys::FormHeight.name, o.FormHeight);
  if (o.FormX > 0) file.Number(keys::FormX.name, o.FormX);
  if (o.FormY > 0) file.Number(keys::FormY.name, o.FormY);
}

}  // namespace ferrow
